# Checks that a library contains no symbol of src/inspection, hidden ones included.
#
#   cmake -D library=... -D "objects=<objects of src/inspection>" -D nm=... -P no_inspection.cmake
cmake_minimum_required(VERSION 3.21)

function(read_functions names file)
  execute_process(COMMAND "${nm}" --defined-only --format=posix "${file}"
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX MATCHALL "[^\n ]+ T [^\n]*" found "${table}")
  list(TRANSFORM found REPLACE " .*" "")
  set(${names} "${found}" PARENT_SCOPE)
endfunction()

set(inspection)
foreach(object IN LISTS objects)
  read_functions(found "${object}")
  list(APPEND inspection ${found})
endforeach()
if(NOT inspection)
  message(FATAL_ERROR "src/inspection defines no function")
endif()

execute_process(COMMAND "${nm}" --defined-only --format=posix "${library}"
  OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
if(NOT table)
  message(FATAL_ERROR "${library} is stripped")
endif()
foreach(name IN LISTS inspection)
  string(FIND "${table}" "${name} " at)
  if(NOT at EQUAL -1)
    message(SEND_ERROR "for tools only, but contained: ${name}")
  endif()
endforeach()
list(LENGTH inspection count)
message("none of ${count} functions in ${library}")
