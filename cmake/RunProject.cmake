# Configures and builds a project in a fresh folder, runs a program of it, and checks what it
# prints. Used by the tests for the projects that stand outside this one.
#
#   cmake -D source=... -D build=... -D options=... -D "program=..." -D "arguments=..."
#         -D "expected=<regular expression>" [-D "arguments2=..." -D "expected2=..."]
#         -D generator=... [-D "installFrom=<build folder>"]
#         [-D "emulator=<command>"] -P RunProject.cmake
file(REMOVE_RECURSE "${build}")

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${status}\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

if(installFrom)
  run("${CMAKE_COMMAND}" --install "${installFrom}" --prefix "${build}/prefix")
  list(APPEND options "-DCMAKE_PREFIX_PATH=${build}/prefix")
  if(emulator)
    # A cross-build looks nowhere else.
    list(APPEND options "-DCMAKE_FIND_ROOT_PATH=${build}/prefix")
  endif()
endif()
run("${CMAKE_COMMAND}" -G "${generator}" -S "${source}" -B "${build}/out" ${options})
run("${CMAKE_COMMAND}" --build "${build}/out")

# Where Windows finds the installed DLLs.
if(emulator)
  set(ENV{WINEPATH} "${build}/prefix/bin")
elseif(CMAKE_HOST_WIN32)
  set(ENV{PATH} "${build}/prefix/bin;$ENV{PATH}")
endif()

function(check arguments expected)
  run(${emulator} "${build}/out/${program}" ${arguments})
  message("${out}")
  if(NOT out MATCHES "${expected}")
    message(FATAL_ERROR "${program} ${arguments}: printed nothing that matches: ${expected}")
  endif()
endfunction()
check("${arguments}" "${expected}")
if(arguments2)
  check("${arguments2}" "${expected2}")
endif()
