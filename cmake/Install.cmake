# What 'cmake --install' lays down: libraries, headers, the CMake package 'accessory', and its pkg-config file.
#
# The headers of the bundled runtime have the platform's names (<binder/...>), and so has its library; they get folders
# of their own, which both packages name. Components: library, tools, and development for all the rest.
include(CMakePackageConfigHelpers)

set(accessory_package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/accessory")
set(binder_header_folder "${CMAKE_INSTALL_INCLUDEDIR}/accessory-binder")

set_target_properties(accessory PROPERTIES INSTALL_RPATH "$ORIGIN/accessory")
install(TARGETS accessory EXPORT accessory
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library NAMELINK_COMPONENT development)
install(FILES "${PROJECT_BINARY_DIR}/include/accessory/Version.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/accessory")
foreach(unit common AccessoryManager AppleiAP2 AppleUSBAudio)
  install(DIRECTORY "${unit}/include/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
endforeach()
if(ACCESSORY_BINDER STREQUAL "bundled")
  set_target_properties(binder PROPERTIES INSTALL_RPATH "")
  target_link_options(binder INTERFACE
    "$<INSTALL_INTERFACE:LINKER:-rpath,$<INSTALL_PREFIX>/${accessory_private_libdir}>")
  install(TARGETS binder EXPORT accessory
          LIBRARY DESTINATION "${accessory_private_libdir}" COMPONENT library NAMELINK_COMPONENT development)
  install(DIRECTORY platform/binder/include/ DESTINATION "${binder_header_folder}" FILES_MATCHING PATTERN "*.h")
endif()

install(EXPORT accessory NAMESPACE accessory:: DESTINATION "${accessory_package_folder}" FILE accessoryTargets.cmake)
configure_package_config_file(cmake/accessoryConfig.cmake.in "${PROJECT_BINARY_DIR}/accessoryConfig.cmake"
  INSTALL_DESTINATION "${accessory_package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/accessoryConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/accessoryConfig.cmake" "${PROJECT_BINARY_DIR}/accessoryConfigVersion.cmake"
              cmake/AndroidPlatform.cmake
        DESTINATION "${accessory_package_folder}")

set(accessory_pc_binder_include "\${includedir}/accessory-binder")
set(accessory_pc_binder_folder "\${libdir}/accessory")
if(ACCESSORY_BINDER STREQUAL "system")
  set(accessory_pc_binder_include "${ANDROID_BINDER_INCLUDE_DIR}")
  get_filename_component(accessory_pc_binder_folder "${ANDROID_BINDER_LIBRARY}" DIRECTORY)
endif()
get_filename_component(accessory_android_library_folder "${ANDROID_UTILS_LIBRARY}" DIRECTORY)
# As the prefix may be another one with 'cmake --install --prefix', the file finds it from where it lies itself. That of
# a package is known, and the loader looks into its library folder anyway.
string(REGEX REPLACE "[^/]+" ".." accessory_pc_prefix "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
set(accessory_pc_prefix "\${pcfiledir}/${accessory_pc_prefix}")
set(accessory_pc_rpath " -Wl,-rpath,\${libdir}")
if(ACCESSORY_PACKAGES)
  set(accessory_pc_prefix "${CMAKE_INSTALL_PREFIX}")
  set(accessory_pc_rpath "")
endif()
configure_file(cmake/accessory.pc.in "${PROJECT_BINARY_DIR}/accessory.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/accessory.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# The test kit, for find_package(accessory COMPONENTS testing) alone, because only it needs GoogleMock.
if(ACCESSORY_TESTING)
  install(TARGETS accessory_testing EXPORT accessory_testing ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}")
  install(DIRECTORY testing/include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
  install(EXPORT accessory_testing NAMESPACE accessory:: DESTINATION "${accessory_package_folder}"
          FILE accessoryTestingTargets.cmake)
  configure_file(cmake/accessory-testing.pc.in "${PROJECT_BINARY_DIR}/accessory-testing.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/accessory-testing.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endif()
