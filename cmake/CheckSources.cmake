# The house rules that a compiler does not check:
#
#   log statements are in the stages only, and each expands where it is;
#   TinyXML is known to a few files of reading/ and inspection/, and to no interface of theirs;
#   Boost.Filesystem is known to the stages and the few modules that deal in paths and files;
#   a fixed text of the log is in the table of texts only;
#   texts are looked up in ordered containers.
#
#   cmake -D root=<project> -P CheckSources.cmake
cmake_minimum_required(VERSION 3.21)

set(library "${root}/src/module/querypackage")
file(GLOB_RECURSE sources RELATIVE "${library}" "${library}/*.cpp" "${library}/*.h")

set(mayLog querypackageimp.cpp log_statement.h)
set(mayIncludeTinyXml reading/cimxml.h)
set(mayKnowTinyXml reading/cimxml.cpp reading/descriptor_reading.cpp)
set(mayKnowFiles querypackageimp.cpp text/paths.cpp
    reading/descriptor_files.cpp reading/descriptor_files.h reading/descriptor_reading.h)

function(require_only file text pattern allowed what)
  if(text MATCHES "${pattern}" AND NOT file IN_LIST allowed)
    message(SEND_ERROR "${file}: ${what}")
  endif()
endfunction()

foreach(source IN LISTS sources)
  file(READ "${library}/${source}" text)
  require_only("${source}" "${text}" "QP_LOG|QP_REPORT|<Log\\.h>|\"Log\\.h\"|Log\\(|std::cout"
    "${mayLog}" "logs; log statements are in querypackageimp.cpp only")
  require_only("${source}" "${text}" "#include [<\"]tinyxml" "${mayIncludeTinyXml}"
    "includes TinyXML; only ${mayIncludeTinyXml} may")
  require_only("${source}" "${text}" "#include \"(reading/)?cimxml[.]h" "${mayKnowTinyXml}"
    "includes reading/cimxml.h; only ${mayKnowTinyXml} may")
  require_only("${source}" "${text}" "#include <boost/filesystem" "${mayKnowFiles}"
    "includes Boost.Filesystem; only ${mayKnowFiles} may")
endforeach()

# A folder's texts can be chosen so that all of them have the same hash.
file(GLOB_RECURSE all RELATIVE "${root}/src" "${root}/src/*.cpp" "${root}/src/*.h")
foreach(source IN LISTS all)
  file(READ "${root}/src/${source}" text)
  require_only("${source}" "${text}"
    "unordered_(multi)?(map|set)<(const )?(std::(w?string|string_view|pair|tuple)|[A-Za-z:]*path)" ""
    "looks texts up by their hash; use an ordered container")
endforeach()

# Nor may the command line, or what src/inspection shows it.
file(GLOB_RECURSE tools RELATIVE "${root}/src"
  "${root}/src/app/*.cpp" "${root}/src/app/*.h" "${root}/src/inspection/*.h")
foreach(source IN LISTS tools)
  file(READ "${root}/src/${source}" text)
  require_only("${source}" "${text}" "#include [<\"](tinyxml|reading/(cimxml|xml_walk)|inspection/(unread_markup|xml_places))"
    "inspection/unread_markup.h;inspection/xml_places.h" "sees TinyXML's types")
endforeach()

file(READ "${library}/querypackageimp.cpp" stages)
string(REGEX REPLACE "//[^\n]*" "" stages "${stages}")
string(REGEX MATCHALL "QP_(LOG|REPORT)\\([^;]*\"" literals "${stages}")
foreach(literal IN LISTS literals)
  if(NOT literal MATCHES "message")
    message(SEND_ERROR "querypackageimp.cpp: a log text of its own, not from log_texts.h: ${literal}")
  endif()
endforeach()
