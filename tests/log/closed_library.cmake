cmake_minimum_required(VERSION 3.20)

# Fails unless the shared library LIBRARY exports Log and its settings alone and needs neither spdlog
# nor fmt at run time. NM and OBJDUMP are the tools to look with.
execute_process(
  COMMAND "${NM}" -D -C --defined-only "${LIBRARY}"
  OUTPUT_VARIABLE symbols
  RESULT_VARIABLE failed)
if(failed)
  message(FATAL_ERROR "cannot list the symbols of ${LIBRARY}")
endif()

set(allowed "^(Vornik::Log::(Log|~Log|Stream|GetMinLogLevel)(\\[abi:cxx11\\])?\\(.*\\)\
|(typeinfo|typeinfo name|vtable) for Vornik::Log\
|Vornik::(SetMinLogLevel|LogToStandardError|LogToFile|LogToFunction|LostLogRecords)\\(.*\\))$")
string(REPLACE ";" "\\;" symbols "${symbols}")
string(REGEX MATCHALL "[^\n]+" lines "${symbols}")
set(seen "")
foreach(line IN LISTS lines)
  string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" symbol "${line}")
  if(NOT symbol MATCHES "${allowed}")
    message(SEND_ERROR "exported without need: ${symbol}")
  endif()
  string(REGEX MATCH "^(typeinfo for )?[A-Za-z:~]+" name "${symbol}")
  list(APPEND seen "${name}")
endforeach()

foreach(name IN ITEMS Log::Log Log::~Log Log::Stream Log::GetMinLogLevel SetMinLogLevel
                      LogToStandardError LogToFile LogToFunction LostLogRecords)
  if(NOT "Vornik::${name}" IN_LIST seen)
    message(SEND_ERROR "not exported: Vornik::${name}")
  endif()
endforeach()
if(NOT "typeinfo for Vornik::Log" IN_LIST seen)
  message(SEND_ERROR "not exported: the type information of Vornik::Log")
endif()

execute_process(
  COMMAND "${OBJDUMP}" -p "${LIBRARY}"
  OUTPUT_VARIABLE header
  RESULT_VARIABLE failed)
if(failed OR NOT header MATCHES "NEEDED")
  message(FATAL_ERROR "cannot read what ${LIBRARY} needs")
endif()
if(header MATCHES "NEEDED +lib(spdlog|fmt)")
  message(SEND_ERROR "needs a library that it should contain: ${CMAKE_MATCH_0}")
endif()
