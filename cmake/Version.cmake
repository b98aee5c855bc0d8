# The version stands in project() alone. <accessory/Version.h> is made from it, and so is whatever else names it:
# accessory_install_page(<page>) gives a manual page its version and installs it, compressed in packages.
configure_file(cmake/Version.h.in "${PROJECT_BINARY_DIR}/include/accessory/Version.h" @ONLY)

function(accessory_install_page page)
  get_filename_component(name "${page}" NAME)
  configure_file("${page}" "${PROJECT_BINARY_DIR}/man/${name}" @ONLY)
  if(ACCESSORY_PACKAGES)
    execute_process(COMMAND gzip -9nkf "${PROJECT_BINARY_DIR}/man/${name}" COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND name .gz)
  endif()
  install(FILES "${PROJECT_BINARY_DIR}/man/${name}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endfunction()
