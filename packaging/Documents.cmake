# What every package has below share/doc: copyright and changelogs; lintian's overrides; guides and examples of libaccessory-dev.
find_program(GZIP gzip REQUIRED)

# accessory_compress(<file> <target>): writes <target> so that it is the same whenever it is made.
function(accessory_compress file target)
  execute_process(COMMAND "${GZIP}" -9nc "${file}" OUTPUT_FILE "${target}" COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
endfunction()

set(documents "${CMAKE_CURRENT_BINARY_DIR}/documents")
file(MAKE_DIRECTORY "${documents}")
accessory_compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${documents}/changelog.gz")
accessory_compress("${CMAKE_CURRENT_SOURCE_DIR}/debian/changelog" "${documents}/changelog.Debian.gz")

function(accessory_install_documents component package)
  install(FILES debian/copyright "${documents}/changelog.gz" "${documents}/changelog.Debian.gz"
          DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${package}" COMPONENT ${component})
  if(EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/debian/${component}.lintian-overrides")
    install(FILES "debian/${component}.lintian-overrides" DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides"
            RENAME "${package}" COMPONENT ${component})
  endif()
endfunction()
accessory_install_documents(library ${library_package})
accessory_install_documents(development libaccessory-dev)
accessory_install_documents(tools accessory-tools)

include(Pages.cmake)
foreach(file ${packaged_pages} ${packaged_beside_pages})
  get_filename_component(folder "${file}" DIRECTORY)
  install(FILES "${PROJECT_SOURCE_DIR}/${file}" DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/libaccessory-dev/${folder}")
endforeach()
