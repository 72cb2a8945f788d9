# Read by cpack when it makes the packages. The Debian generator takes a
# package's synopsis from the first line of its component description only
# while no project-wide summary is set; the summary stays for the other
# generators.
if(CPACK_GENERATOR STREQUAL "DEB")
  set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
endif()
