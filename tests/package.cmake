# Makes the package, unpacks it into an empty folder and runs the program from there.
#
#   cmake -D config=<CPackConfig.cmake> -D folder=... -D cpack=... -D "emulator=..."
#         -D "files=<files that it has to hold>" -D "licences=<name>=<Debian package>..."
#         -D licenceFolder=... -D program=... -D repository=... -P package.cmake
cmake_minimum_required(VERSION 3.21)
file(REMOVE_RECURSE "${folder}")
execute_process(COMMAND "${cpack}" --config "${config}" -B "${folder}/made"
  COMMAND_ERROR_IS_FATAL ANY OUTPUT_VARIABLE ignored)
file(GLOB package "${folder}/made/*.zip" "${folder}/made/*.tar.gz")
file(ARCHIVE_EXTRACT INPUT "${package}" DESTINATION "${folder}/unpacked")
file(GLOB top "${folder}/unpacked/*")  # one folder; more would be no path

foreach(file IN LISTS files)
  if(NOT EXISTS "${top}/${file}")
    message(SEND_ERROR "${package} lacks ${file}")
  endif()
endforeach()
foreach(licence IN LISTS licences)
  string(REGEX MATCH "^(.*)=(.*)$" licence "${licence}")
  execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files
    "${top}/${licenceFolder}/${CMAKE_MATCH_1}.txt" "/usr/share/doc/${CMAKE_MATCH_2}/copyright"
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()

execute_process(COMMAND ${emulator} "${top}/${program}" query "${repository}"
    --machine-type 1234 --os 10 --arch 9
  WORKING_DIRECTORY "${top}"
  RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT status EQUAL 0 OR NOT out MATCHES "\norx_drv_ethlan_1_4 ")
  message(FATAL_ERROR "${program} ended with ${status}\n${out}\n${err}")
endif()
message("${out}")
