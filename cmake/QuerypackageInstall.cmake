# What an installed querypackage consists of, and how another project finds it.
include(CMakePackageConfigHelpers)

set(packageDir "${CMAKE_INSTALL_LIBDIR}/cmake/querypackage")

install(TARGETS querypackage EXPORT querypackageTargets
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}"
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
  PUBLIC_HEADER DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/querypackage")
install(EXPORT querypackageTargets NAMESPACE Vornik:: DESTINATION "${packageDir}")

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/querypackageConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/querypackageConfig.cmake"
  INSTALL_DESTINATION "${packageDir}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/querypackageConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/querypackageConfig.cmake"
  "${PROJECT_BINARY_DIR}/querypackageConfigVersion.cmake"
  DESTINATION "${packageDir}")

# For projects without CMake. The prefix is where the file is, so that what is installed can be moved.
file(RELATIVE_PATH toPrefix "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(REGEX REPLACE "/$" "" toPrefix "${toPrefix}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/querypackage.pc.in"
  "${PROJECT_BINARY_DIR}/querypackage.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/querypackage.pc"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/repository"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/querypackage")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/share/querypackage/schemas"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/querypackage")
