# Runs the program that writes past the end of a buffer, and checks that the intended defence stops
# it, not an unmapped page.
#
#   cmake -D "command=<program and its argument>" -D "status=<how it ends>" -P overflow.cmake
cmake_minimum_required(VERSION 3.21)
execute_process(COMMAND ${command} RESULT_VARIABLE ended OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT "${ended}" STREQUAL "${status}")
  message(FATAL_ERROR "ended with \"${ended}\" instead of \"${status}\"\n${out}\n${err}")
endif()
