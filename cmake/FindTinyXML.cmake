# TinyXML as a static library: it stays private to the library, whatever the host links.
#
# Defines the target TinyXML::TinyXML.
find_path(TinyXML_INCLUDE_DIR tinyxml.h)
find_library(TinyXML_LIBRARY NAMES libtinyxml.a tinyxml.lib tinyxml)
mark_as_advanced(TinyXML_INCLUDE_DIR TinyXML_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(TinyXML REQUIRED_VARS TinyXML_LIBRARY TinyXML_INCLUDE_DIR)

if(TinyXML_FOUND AND NOT TARGET TinyXML::TinyXML)
  add_library(TinyXML::TinyXML UNKNOWN IMPORTED)
  set_target_properties(TinyXML::TinyXML PROPERTIES
    IMPORTED_LOCATION "${TinyXML_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${TinyXML_INCLUDE_DIR}"
    INTERFACE_COMPILE_DEFINITIONS TIXML_USE_STL)
endif()
