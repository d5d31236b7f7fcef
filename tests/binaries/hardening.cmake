# Checks a library or a program for the defences that its file format shows, and its object files for
# the stack protector.
#
#   cmake -D file=... -D "objects=<object files>" [-D "faults=<the faults that it has to have>"]
#         -D readelf=... -D objdump=... -D nm=... -P hardening.cmake
cmake_minimum_required(VERSION 3.21)

set(found)
function(fault_unless text pattern fault)
  if(NOT text MATCHES "${pattern}")
    list(APPEND found "${fault}")
    set(found "${found}" PARENT_SCOPE)
  endif()
endfunction()

function(run output)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  set(${output} "${text}" PARENT_SCOPE)
endfunction()

function(check_windows_file)
  run(headers "${objdump}" --private-headers "${file}")
  string(REGEX MATCH "DllCharacteristics[^\n]*\n(\t\t[^\n]*\n)*" flags "${headers}")
  fault_unless("${flags}" "DYNAMIC_BASE" "loaded at a fixed address")
  fault_unless("${flags}" "HIGH_ENTROPY_VA" "addresses of 32 bits only")
  fault_unless("${flags}" "NX_COMPAT" "data can be executed")
  # Without relocations the flag that allows another address has no effect.
  fault_unless("${headers}" "Virtual Address: [0-9a-f]+ Chunk size" "no relocations")
  set(found "${found}" PARENT_SCOPE)
endfunction()

function(check_elf_file)
  run(headers "${readelf}" --wide --file-header --program-headers --dynamic "${file}")
  fault_unless("${headers}" "Type: +DYN " "loaded at a fixed address")
  fault_unless("${headers}" "GNU_RELRO" "relocations stay writable")
  fault_unless("${headers}" "BIND_NOW|FLAGS_1\\)[^\n]* NOW" "functions are bound late")
  fault_unless("${headers}" "GNU_STACK[^\n]* RW +0" "data can be executed")
  set(found "${found}" PARENT_SCOPE)
endfunction()

if(file MATCHES "\\.(dll|exe)$")
  check_windows_file()
else()
  check_elf_file()
endif()
run(symbols "${nm}" ${objects})
fault_unless("${symbols}" "__stack_chk_fail" "no stack protector")

if(NOT "${found}" STREQUAL "${faults}")
  message(FATAL_ERROR "${file}\nhas the faults: ${found}\ninstead of: ${faults}")
endif()
message("${file}: as expected (${faults})")
