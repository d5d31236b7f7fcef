# Compares what a shared library exports with a list, one mangled name per line, sorted.
#
#   cmake -D library=... -D expected=<file> -D tool=<nm, for a DLL objdump> -P exports.cmake
cmake_minimum_required(VERSION 3.21)

function(read_elf_exports names)
  execute_process(COMMAND "${tool}" --dynamic --defined-only --format=posix "${library}"
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE " [^\n]*" "" table "${table}")
  string(REGEX MATCHALL "[^\n]+" found "${table}")
  set(${names} "${found}" PARENT_SCOPE)
endfunction()

function(read_dll_exports names)
  execute_process(COMMAND "${tool}" --private-headers "${library}"
    OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^.*\\[Ordinal/Name Pointer\\] Table[^\n]*\n" "" table "${table}")
  string(REGEX REPLACE "\n\n.*$" "" table "${table}")
  string(REGEX REPLACE "[^\n]* ([^ \n]+)" "\\1" table "${table}")
  string(REGEX MATCHALL "[^\n]+" found "${table}")
  set(${names} "${found}" PARENT_SCOPE)
endfunction()

if(library MATCHES "\\.dll$")
  read_dll_exports(exported)
else()
  read_elf_exports(exported)
endif()
list(SORT exported)
file(STRINGS "${expected}" wanted)
if(NOT wanted)
  message(FATAL_ERROR "${expected} is empty")
endif()

set(extra ${exported})
list(REMOVE_ITEM extra ${wanted})
foreach(name IN LISTS extra)
  message(SEND_ERROR "exported without need: ${name}")
endforeach()
set(missing ${wanted})
list(REMOVE_ITEM missing ${exported})
foreach(name IN LISTS missing)
  message(SEND_ERROR "not exported: ${name}")
endforeach()
list(LENGTH exported count)
message("${count} names exported by ${library}")
