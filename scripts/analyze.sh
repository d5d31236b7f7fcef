#!/usr/bin/env bash
# cppcheck over src, and GCC's own analyzer over the library.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# The functions of the public class take their strings by value: hosts are linked to that.
cppcheck -j "$(nproc)" --std=c++17 --language=c++ --enable=warning,performance,portability \
  --suppress=passedByValue:src/module/querypackage/querypackageimp.cpp \
  -I include -I src/module/querypackage -I src/module/log -I src/app/querypackage-cli \
  --template='{file}:{line}: {severity}: {message} [{id}]' --error-exitcode=1 --quiet src
echo "cppcheck: clean"

# GCC 12 takes the place that a function returns a class object in for uninitialised, even in
# "std::string f() { std::string s; s += 'a'; return s; }", and does not follow what a destructor
# frees. -Wall asks for the first as well, and LeakSanitizer sees the second when the tests run.
# The log and the program are left out: GCC 12 follows every path of the large header libraries that
# they include, and takes over 10 GB for one source.
analyzer=(-fanalyzer -Wno-analyzer-use-of-uninitialized-value -Wno-analyzer-malloc-leak)
cmake -S . -B build/analyzer -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_COMPILER=g++ \
  -DCMAKE_CXX_FLAGS="${analyzer[*]}" -DQUERYPACKAGE_WERROR=ON \
  -DQUERYPACKAGE_{INSTALL,BUILD_TOOLS}=OFF
cmake --build build/analyzer --target querypackage_rules querypackage_core
echo "GCC's analyzer: clean"
