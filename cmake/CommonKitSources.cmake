# Helpers for subsystem folders: add sources to the library and install the
# public headers beside them under include/CommonKit/<folder>/.
function(commonkit_add_sources)
  target_sources(CommonKit PRIVATE ${ARGN})
endfunction()

function(commonkit_install_headers)
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  install(FILES ${ARGN}
          DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/CommonKit/${folder}"
          COMPONENT Devel)
endfunction()
