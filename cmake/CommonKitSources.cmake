# Helpers for subsystem folders: add sources to the library and install the
# public headers beside them under include/CommonKit/<folder>/.
#
# Public headers include each other as <CommonKit/<folder>/<File>.h>, the
# form a consumer uses with only <prefix>/include on its include path. Inside
# the build tree the same names resolve through small forwarding headers
# under ${COMMONKIT_FORWARD_INCLUDE_DIR}/CommonKit/, one per public header.
# Headers named *_p.h are internal: never installed, never forwarded.
set(COMMONKIT_FORWARD_INCLUDE_DIR "${PROJECT_BINARY_DIR}/include" CACHE INTERNAL "")

function(commonkit_add_sources)
  target_sources(CommonKit PRIVATE ${ARGN})
endfunction()

function(commonkit_install_headers)
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  foreach(header IN LISTS ARGN)
    get_filename_component(path "${header}" ABSOLUTE BASE_DIR "${CMAKE_CURRENT_SOURCE_DIR}")
    get_filename_component(name "${path}" NAME)
    if(name MATCHES "_p\\.h$")
      message(FATAL_ERROR "${path}: internal headers (*_p.h) are not installed")
    endif()
    file(RELATIVE_PATH relative "${PROJECT_SOURCE_DIR}" "${path}")
    set(forward "${COMMONKIT_FORWARD_INCLUDE_DIR}/CommonKit/${relative}")
    # Relative, so that the same tree built in another place compiles the
    # same text (and compiler caches can reuse the objects).
    get_filename_component(forward_dir "${forward}" DIRECTORY)
    file(RELATIVE_PATH target "${forward_dir}" "${path}")
    file(CONFIGURE OUTPUT "${forward}" CONTENT "#pragma once\n#include \"${target}\"\n")
  endforeach()
  install(FILES ${ARGN}
          DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/CommonKit/${folder}"
          COMPONENT Devel)
endfunction()
