# Installation: the library, its CMake package and a pkg-config file, split
# into install components that the Debian packages follow:
#   Runtime  the shared library and its SONAME link;
#   Devel    headers (see commonkit_install_headers()), the .so link, the
#            CMake package and the pkg-config file;
#   Tools    the commonkit command-line tool (tools/commonkit).
# Everything installed is relocatable: the CMake package and the pkg-config
# file find the rest relative to their own location.
include(CMakePackageConfigHelpers)

set(COMMONKIT_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/CommonKit")

install(TARGETS CommonKit EXPORT CommonKitTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                COMPONENT Runtime
                NAMELINK_COMPONENT Devel
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Devel
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime)
install(EXPORT CommonKitTargets NAMESPACE CommonKit::
        DESTINATION ${COMMONKIT_CMAKE_DIR}
        COMPONENT Devel)

configure_package_config_file(
  "${PROJECT_SOURCE_DIR}/cmake/CommonKitConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/CommonKitConfig.cmake"
  INSTALL_DESTINATION ${COMMONKIT_CMAKE_DIR})
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/CommonKitConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/CommonKitConfig.cmake"
              "${PROJECT_BINARY_DIR}/CommonKitConfigVersion.cmake"
        DESTINATION ${COMMONKIT_CMAKE_DIR}
        COMPONENT Devel)

# The pkg-config file names its prefix relative to its own directory
# (${pcfiledir}), so it stays right wherever the tree is installed or
# unpacked. Absolute library or include directories are kept as they are.
file(RELATIVE_PATH COMMONKIT_PC_PREFIX
     "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" COMMONKIT_PC_PREFIX "${COMMONKIT_PC_PREFIX}")
set(COMMONKIT_PC_PREFIX "\${pcfiledir}/${COMMONKIT_PC_PREFIX}")
foreach(dir IN ITEMS LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
    set(COMMONKIT_PC_${dir} "${CMAKE_INSTALL_${dir}}")
  else()
    set(COMMONKIT_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
  endif()
endforeach()
configure_file("${PROJECT_SOURCE_DIR}/cmake/CommonKit.pc.in"
               "${PROJECT_BINARY_DIR}/CommonKit.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/CommonKit.pc"
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT Devel)

if(PROJECT_IS_TOP_LEVEL)
  include(CommonKitCPack)
endif()
