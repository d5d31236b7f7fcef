# The version is written in the public header; what else names it has to agree.
#
#   cmake -D root=<project> -P version.cmake
cmake_minimum_required(VERSION 3.21)

file(READ "${root}/include/QueryPackage.h" header)
foreach(part IN ITEMS MAJOR MINOR PATCH)
  if(NOT header MATCHES "#define QUERYPACKAGE_VERSION_${part} ([0-9]+)\n")
    message(FATAL_ERROR "QueryPackage.h defines no QUERYPACKAGE_VERSION_${part}")
  endif()
  list(APPEND parts "${CMAKE_MATCH_1}")
endforeach()
list(JOIN parts "." version)

function(require file text)
  file(READ "${root}/${file}" content)
  string(FIND "${content}" "${text}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "${file} has no ${text}")
  endif()
endfunction()

require(include/QueryPackage.h "#define QUERYPACKAGE_VERSION_STRING \"${version}\"\n")
require(vcpkg.json "\"version\": \"${version}\"")
require(CHANGELOG.md "\n## [${version}]")
message("${version}")
