# The house rules that a compiler does not check:
#
#   log statements stand in the stages alone, and each expands where it stands;
#   TinyXML is known to one module;
#   Boost.Filesystem is known to the stages and the few modules that deal in paths and files;
#   a fixed text of the log stands in the table of texts alone.
#
#   cmake -D root=<project> -P CheckSources.cmake
cmake_minimum_required(VERSION 3.21)

set(library "${root}/src/module/querypackage")
file(GLOB sources RELATIVE "${library}" "${library}/*.cpp" "${library}/*.h")

set(mayLog querypackageimp.cpp log_statement.h)
set(mayKnowTinyXml cimxml.cpp)
set(mayKnowFiles querypackageimp.cpp query_parameters.cpp package_paths.cpp descriptor_files.cpp)

function(require_only file text pattern allowed what)
  if(text MATCHES "${pattern}" AND NOT file IN_LIST allowed)
    message(SEND_ERROR "${file}: ${what}")
  endif()
endfunction()

foreach(source IN LISTS sources)
  file(READ "${library}/${source}" text)
  require_only("${source}" "${text}" "QP_LOG|QP_REPORT|<Log\\.h>|\"Log\\.h\"|Log\\(|std::cout"
    "${mayLog}" "logs; log statements stand in querypackageimp.cpp alone")
  require_only("${source}" "${text}" "#include [<\"]tinyxml" "${mayKnowTinyXml}"
    "includes TinyXML; that is for cimxml.cpp alone")
  require_only("${source}" "${text}" "#include <boost/filesystem" "${mayKnowFiles}"
    "includes Boost.Filesystem; only ${mayKnowFiles} may")
endforeach()

file(READ "${library}/querypackageimp.cpp" stages)
string(REGEX REPLACE "//[^\n]*" "" stages "${stages}")
string(REGEX MATCHALL "QP_(LOG|REPORT)\\([^;]*\"" literals "${stages}")
foreach(literal IN LISTS literals)
  if(NOT literal MATCHES "message")
    message(SEND_ERROR "querypackageimp.cpp: a log text of its own, not from log_texts.h: ${literal}")
  endif()
endforeach()
