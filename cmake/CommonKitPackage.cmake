# Installation: the library, its CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(TARGETS CommonKit EXPORT CommonKitTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(EXPORT CommonKitTargets NAMESPACE CommonKit::
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonKit)

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/CommonKitConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/CommonKitConfig.cmake"
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonKit)
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/CommonKitConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/CommonKitConfig.cmake"
              "${PROJECT_BINARY_DIR}/CommonKitConfigVersion.cmake"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/CommonKit)

configure_file("${PROJECT_SOURCE_DIR}/cmake/CommonKit.pc.in"
               "${PROJECT_BINARY_DIR}/CommonKit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/CommonKit.pc"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
