# TinyXML as a static library: it stays private to the library, whatever the host links.
#
# Defines the target TinyXML::TinyXML. vcpkg's port brings a package of its own, with the target that
# is named there.
include(FindPackageHandleStandardArgs)

if(DEFINED VCPKG_TARGET_TRIPLET)
  find_package(tinyxml CONFIG QUIET)
  if(TARGET unofficial-tinyxml::unofficial-tinyxml AND NOT TARGET TinyXML::TinyXML)
    add_library(TinyXML::TinyXML INTERFACE IMPORTED)
    target_link_libraries(TinyXML::TinyXML INTERFACE unofficial-tinyxml::unofficial-tinyxml)
    target_compile_definitions(TinyXML::TinyXML INTERFACE TIXML_USE_STL)
  endif()
  find_package_handle_standard_args(TinyXML REQUIRED_VARS tinyxml_DIR)
  return()
endif()

set(file "${CMAKE_STATIC_LIBRARY_PREFIX}tinyxml${CMAKE_STATIC_LIBRARY_SUFFIX}")
find_path(TinyXML_INCLUDE_DIR tinyxml.h)
find_library(TinyXML_STATIC_LIBRARY NAMES "${file}")
mark_as_advanced(TinyXML_INCLUDE_DIR TinyXML_STATIC_LIBRARY)
find_package_handle_standard_args(TinyXML
  REQUIRED_VARS TinyXML_STATIC_LIBRARY TinyXML_INCLUDE_DIR
  REASON_FAILURE_MESSAGE "TinyXML is linked statically, which takes tinyxml.h and ${file}, and not a shared library.")

if(TinyXML_FOUND AND NOT TARGET TinyXML::TinyXML)
  add_library(TinyXML::TinyXML STATIC IMPORTED)
  set_target_properties(TinyXML::TinyXML PROPERTIES
    IMPORTED_LOCATION "${TinyXML_STATIC_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${TinyXML_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS TIXML_USE_STL)
endif()
