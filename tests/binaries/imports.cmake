# Checks which shared libraries a library or a program needs.
#
#   cmake -D file=... -D "required=<names>" -D "allowed=<regular expressions>" -D objdump=...
#         -P imports.cmake
cmake_minimum_required(VERSION 3.21)

execute_process(COMMAND "${objdump}" --private-headers "${file}"
  OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(NEEDED +|DLL Name: )[^\n]+" needed "${headers}")
list(TRANSFORM needed REPLACE "(NEEDED +|DLL Name: )" "")

foreach(name IN LISTS required)
  if(NOT name IN_LIST needed)
    message(SEND_ERROR "${file} does not need ${name}")
  endif()
endforeach()
list(JOIN allowed "|" pattern)
foreach(name IN LISTS needed)
  if(NOT name IN_LIST required AND NOT name MATCHES "^(${pattern})$")
    message(SEND_ERROR "${file} needs ${name}, which it should do without")
  endif()
endforeach()
message("${file} needs: ${needed}")
