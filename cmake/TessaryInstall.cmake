# What an installed copy holds: the executable, the libraries with their headers, the resources, the default asset where
# it was built.

include(CMakePackageConfigHelpers)

install(TARGETS TessaryRenderer RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(TARGETS TessaryPlatform TessaryLocalization TessaryDomain EXPORT TessaryTargets
  ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY TessaryPlatform TessaryLocalization TessaryDomain DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING PATTERN "*.h")
set(TESSARY_RESOURCE_BUNDLE "${CMAKE_INSTALL_DATADIR}/tessary/Tessary_TessaryLocalization.bundle")
install(DIRECTORY resources/ DESTINATION "${TESSARY_RESOURCE_BUNDLE}/Resources" FILES_MATCHING PATTERN "*.json")
install(EXPORT TessaryTargets NAMESPACE Tessary:: DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary")
configure_package_config_file(cmake/TessaryConfig.cmake.in "${PROJECT_BINARY_DIR}/TessaryConfig.cmake"
  INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary" PATH_VARS TESSARY_RESOURCE_BUNDLE)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/TessaryConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/TessaryConfig.cmake" "${PROJECT_BINARY_DIR}/TessaryConfigVersion.cmake"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/Tessary")
