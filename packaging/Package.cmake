# The package that 'cpack --preset' makes: everything that is installed, and the licences of what is
# inside.

# Debian's names of the packages whose code the libraries and the program contain, by the name that
# the licence gets.
set(licences
  "TinyXML=libtinyxml-dev"
  "Boost=libboost${Boost_VERSION_MAJOR}.${Boost_VERSION_MINOR}-dev"
  "fmt=libfmt-dev"
  "spdlog=libspdlog-dev"
  "CLI11=libcli11-dev"
  "nlohmann-json=nlohmann-json3-dev")
if(MINGW)
  list(APPEND licences
    "GCC-runtime=gcc-mingw-w64-x86-64-posix-runtime"
    "MinGW-w64=mingw-w64-x86-64-dev")
endif()
set(licenceFolder "${CMAKE_INSTALL_DOCDIR}/licences")
configure_file("${CMAKE_CURRENT_LIST_DIR}/licences.cmake.in"
  "${PROJECT_BINARY_DIR}/licences.cmake" @ONLY)

string(TOLOWER "${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR}" system)
set(CPACK_PACKAGE_FILE_NAME "${PROJECT_NAME}-${PROJECT_VERSION}-${system}")
set(CPACK_PACKAGE_VENDOR "Vornik")
if(WIN32)
  set(CPACK_GENERATOR ZIP)
else()
  set(CPACK_GENERATOR TGZ)
endif()
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_SCRIPTS "${PROJECT_BINARY_DIR}/licences.cmake")
include(CPack)
