# The package that 'cpack --preset' creates: everything that is installed, and the licences of the
# libraries inside.

set(licences)
# Names the text that goes into the package for one library: Debian's, or vcpkg's.
macro(querypackage_licence name debianPackage port)
  if(DEFINED VCPKG_INSTALLED_DIR)
    list(APPEND licences
      "${name}=${VCPKG_INSTALLED_DIR}/${VCPKG_TARGET_TRIPLET}/share/${port}/copyright")
  else()
    list(APPEND licences "${name}=/usr/share/doc/${debianPackage}/copyright")
  endif()
endmacro()

# Boost is there even where its library is a shared one of the system: parts of it are in its headers.
querypackage_licence(TinyXML libtinyxml-dev tinyxml)
querypackage_licence(Boost
  "libboost${Boost_VERSION_MAJOR}.${Boost_VERSION_MINOR}-dev" boost-filesystem)
querypackage_licence(fmt libfmt-dev fmt)
querypackage_licence(spdlog libspdlog-dev spdlog)
if(QUERYPACKAGE_BUILD_TOOLS)
  querypackage_licence(CLI11 libcli11-dev cli11)
  querypackage_licence(nlohmann-json nlohmann-json3-dev nlohmann-json)
endif()
if(MINGW)
  # The runtime's DLLs, and what start-up code and the stack protector link in.
  querypackage_licence(GCC-runtime gcc-mingw-w64-x86-64-posix-runtime "")
  querypackage_licence(MinGW-w64 mingw-w64-x86-64-dev "")
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
