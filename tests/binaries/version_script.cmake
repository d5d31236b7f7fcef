# Compares the symbols that a version script alone lets through with a list of exports. Every symbol
# of the library, and of the libraries inside it, is put into a separate library with default
# visibility, so that only the script hides it.
#
#   cmake -D library=... -D script=... -D expected=<file> -D nm=... -D compiler=... -D folder=...
#         -P version_script.cmake
cmake_minimum_required(VERSION 3.21)

execute_process(COMMAND "${nm}" --defined-only --format=posix "${library}"
  OUTPUT_VARIABLE table COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "(^|\n)_Z[A-Za-z0-9_]+ " names "${table}")
list(TRANSFORM names STRIP)
list(REMOVE_DUPLICATES names)
list(LENGTH names count)
file(STRINGS "${expected}" wanted)
list(LENGTH wanted wantedCount)
if(NOT count GREATER wantedCount)
  message(FATAL_ERROR "${library} has no symbols of its own left: is it stripped?")
endif()

string(JOIN ",\n" names ${names})
file(WRITE "${folder}/every_symbol.cpp" "extern \"C\" {\nchar ${names};\n}\n")
execute_process(COMMAND "${compiler}" -shared -nostdlib -fPIC "-Wl,--version-script=${script}"
  "${folder}/every_symbol.cpp" -o "${folder}/every_symbol.so" COMMAND_ERROR_IS_FATAL ANY)

set(library "${folder}/every_symbol.so")
set(tool "${nm}")
message("${count} symbols before the version script")
include("${CMAKE_CURRENT_LIST_DIR}/exports.cmake")
