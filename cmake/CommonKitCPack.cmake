# Debian packages, one per install component (see CommonKitPackage.cmake):
#
#   cd build/release && cpack -G DEB
#
# gives libcommonkit<SOVERSION> (the shared library), libcommonkit-dev
# (headers, .so link, CMake package, pkg-config file) and commonkit-tools
# (the command-line tool). The runtime dependencies of the library and the
# tool come from dpkg-shlibdeps; the -dev package depends on the runtime
# package of the same version and on the -dev packages a consumer compiles
# against. The binaries are stripped.
set(COMMONKIT_DEB_RUNTIME "libcommonkit${PROJECT_VERSION_MAJOR}")

set(CPACK_PACKAGE_NAME "commonkit")
set(CPACK_PACKAGE_VENDOR "CommonKit developers")
set(CPACK_PACKAGE_CONTACT "CommonKit developers <commonkit@commonkit.invalid>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "CommonKit")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)

set(CPACK_COMPONENTS_ALL Runtime Devel)
if(COMMONKIT_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL Tools)
endif()
set(CPACK_COMPONENT_DEVEL_DEPENDS Runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS Runtime)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The tool links the library that is being packaged beside it: dpkg-shlibdeps
# finds it in the build tree (no installed package owns it, so it adds no
# dependency for it); the component dependency names the runtime package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}")

# A shlibs file for the package that holds the library, so that packages
# built against it depend on at least this version of the same SOVERSION.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Each description's first line is the package's synopsis (see
# CommonKitCPackOptions.cmake).
set(CPACK_PROJECT_CONFIG_FILE "${PROJECT_SOURCE_DIR}/cmake/CommonKitCPackOptions.cmake")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "${COMMONKIT_DEB_RUNTIME}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
"CommonKit building blocks for Qt desktop clients (shared library)
CommonKit is a C++17 / Qt 5 library of building blocks for desktop clients:
typed properties and filter expressions, an XML action log, an encrypted and
signed file container, encrypted settings formats, password hashing, a JSON
bridge, a rights matrix and small utilities.
.
This package holds the shared library, with its German and French
translations compiled in.")

set(CPACK_DEBIAN_DEVEL_PACKAGE_NAME "libcommonkit-dev")
set(CPACK_DEBIAN_DEVEL_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS "qtbase5-dev, libboost-dev")
set(CPACK_DEBIAN_DEVEL_DESCRIPTION
"CommonKit building blocks for Qt desktop clients (development files)
CommonKit is a C++17 / Qt 5 library of building blocks for desktop clients.
.
This package holds the headers (include/CommonKit), the CMake package
(find_package(CommonKit) gives CommonKit::CommonKit) and a pkg-config file.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME "commonkit-tools")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_TOOLS_DESCRIPTION
"command-line tool of the CommonKit library
The commonkit tool converts frame times and four-character codes, prints
expression streams as SQL, shows, appends to and summarises action logs,
creates, inspects, verifies and extracts encrypted containers, hashes
passwords, shows and converts settings files, shows saved rights matrices,
and runs a demonstration of the library.")

include(CPack)
