# Runs the program that writes behind the end of what it has, and checks that it is stopped by what
# is meant to stop it, not by the accident of a page that is not there.
#
#   cmake -D "command=<program and its argument>" -D "status=<how it ends>" -P overflow.cmake
cmake_minimum_required(VERSION 3.21)
execute_process(COMMAND ${command} RESULT_VARIABLE ended OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT "${ended}" STREQUAL "${status}")
  message(FATAL_ERROR "ended with \"${ended}\" instead of \"${status}\"\n${out}\n${err}")
endif()
