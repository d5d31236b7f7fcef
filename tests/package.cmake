# Creates the package, unpacks it into an empty folder, compares its files with those that it must
# contain, and runs the program from there.
#
#   cmake -D config=<CPackConfig.cmake> -D folder=... -D cpack=... -D "emulator=..."
#         -D "files=<its files without licences and repository>"
#         -D "licences=<name>=<text>..." -D licenceFolder=...
#         -D "built=<the libraries and the program, not stripped>" -D nm=...
#         -D program=... -D repository=... -D sample=<the repository's source>
#         -P package.cmake
cmake_minimum_required(VERSION 3.21)

# The files below a folder, relative to it.
function(list_files folder result)
  file(GLOB_RECURSE found RELATIVE "${folder}" "${folder}/*")
  list(SORT found)
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

function(compare what found wanted)
  list(SORT wanted)
  if(NOT found STREQUAL wanted)
    list(JOIN found "\n  " found)
    list(JOIN wanted "\n  " wanted)
    message(SEND_ERROR "${what} are\n  ${found}\nand should be\n  ${wanted}")
  endif()
endfunction()

function(compare_text file original)
  execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${file}" "${original}"
    RESULT_VARIABLE different OUTPUT_QUIET ERROR_QUIET)
  if(different)
    message(SEND_ERROR "${file} is not what ${original} is")
  endif()
endfunction()

# The licences of the libraries inside the built files, recognized by their symbols.
function(list_inside result)
  execute_process(COMMAND "${nm}" --defined-only ${built}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
  set(inside)
  foreach(library IN ITEMS TinyXML=TiXml Boost=N5boost fmt=N3fmt spdlog=N6spdlog CLI11=N3CLI
                           nlohmann-json=N8nlohmann GCC-runtime=__stack_chk_guard
                           MinGW-w64=mainCRTStartup)
    string(REPLACE "=" ";" library "${library}")
    list(GET library 0 name)
    list(GET library 1 symbol)
    if(symbols MATCHES " [^ \n]*${symbol}")
      list(APPEND inside "${name}.txt")
    endif()
  endforeach()
  set(${result} "${inside}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${folder}")
execute_process(COMMAND "${cpack}" --config "${config}" -B "${folder}/made"
  COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE ignored)
file(GLOB package "${folder}/made/*.zip" "${folder}/made/*.tar.gz")
file(ARCHIVE_EXTRACT INPUT "${package}" DESTINATION "${folder}/unpacked")
file(GLOB top "${folder}/unpacked/*")  # one folder; more would be no path

list_files("${top}" found)
set(ownFiles "${found}")
list(FILTER ownFiles EXCLUDE REGEX "^(${licenceFolder}|${repository})/")
compare("The package's own files" "${ownFiles}" "${files}")

list_files("${sample}" sampleFiles)
list_files("${top}/${repository}" packedSample)
compare("The sample's files" "${packedSample}" "${sampleFiles}")
foreach(file IN LISTS sampleFiles)
  compare_text("${top}/${repository}/${file}" "${sample}/${file}")
endforeach()

list_files("${top}/${licenceFolder}" packedLicences)
list(FILTER packedLicences EXCLUDE REGEX "/")
list_inside(inside)
compare("The licences" "${packedLicences}" "${inside}")
foreach(licence IN LISTS licences)
  string(REGEX MATCH "^([^=]*)=(.*)$" licence "${licence}")
  set(text "${CMAKE_MATCH_2}")
  compare_text("${top}/${licenceFolder}/${CMAKE_MATCH_1}.txt" "${text}")
  file(READ "${text}" content)
  foreach(common IN ITEMS GPL GPL-2 GPL-3 LGPL LGPL-2 LGPL-2.1 Apache-2.0 Artistic CC0-1.0 GFDL-1.2)
    if(content MATCHES "/common-licenses/${common}[^-A-Za-z0-9]")
      compare_text("${top}/${licenceFolder}/common-licenses/${common}"
        "/usr/share/common-licenses/${common}")
    endif()
  endforeach()
endforeach()

# The program may use only what is next to it.
unset(ENV{WINEPATH})
unset(ENV{LD_LIBRARY_PATH})
execute_process(COMMAND ${emulator} "${top}/${program}" query "${repository}"
    --machine-type 1234 --os 10 --arch 9
  WORKING_DIRECTORY "${top}"
  RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL 0 OR NOT out MATCHES "\norx_drv_ethlan_1_4 ")
  message(FATAL_ERROR "${program} ended with ${status}\n${out}\n${err}")
endif()
message("${out}")
