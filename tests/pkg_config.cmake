# Installs, moves what is installed, compiles tests/consumer with the flags that pkg-config gives, and
# runs it on the sample.
#
#   cmake -D installFrom=<build folder> -D folder=<where to work> -D libraries=<CMAKE_INSTALL_LIBDIR>
#         -D pkgConfig=<program> -D compiler=<C++ compiler> -D source=<main.cpp> -D sample=<folder>
#         -P pkg_config.cmake
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${status}\n${out}\n${err}")
  endif()
  set(out "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${folder}")
run("${CMAKE_COMMAND}" --install "${installFrom}" --prefix "${folder}/first")
file(RENAME "${folder}/first" "${folder}/moved")

set(ENV{PKG_CONFIG_PATH} "${folder}/moved/${libraries}/pkgconfig")
run("${pkgConfig}" --cflags --libs querypackage)
message("${out}")
separate_arguments(flags UNIX_COMMAND "${out}")
run("${compiler}" -std=c++17 "${source}" -o "${folder}/consumer" ${flags})

set(ENV{LD_LIBRARY_PATH} "${folder}/moved/${libraries}")
run("${folder}/consumer" "${sample}")
if(NOT out MATCHES "orx_drv_ethlan_1_4\n")
  message(FATAL_ERROR "the program printed\n${out}")
endif()
