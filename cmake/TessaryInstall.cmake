# What an installed copy holds: the executable, the libraries with their headers, the default asset where it was built.

include(CMakePackageConfigHelpers)

install(TARGETS TessaryRenderer RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(TARGETS TessaryPlatform TessaryLocalization TessaryDomain EXPORT TessaryTargets
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY TessaryPlatform TessaryLocalization TessaryDomain DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING PATTERN "*.h")
install(EXPORT TessaryTargets NAMESPACE Tessary:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary")
configure_package_config_file(cmake/TessaryConfig.cmake.in "${PROJECT_BINARY_DIR}/TessaryConfig.cmake"
  INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TessaryConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TessaryConfig.cmake" "${PROJECT_BINARY_DIR}/TessaryConfigVersion.cmake"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary")
