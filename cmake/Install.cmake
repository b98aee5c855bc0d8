# What 'cmake --install' lays down: libraries, headers, the CMake package 'accessory', and its pkg-config file.
#
# The headers of the bundled runtime have the platform's names (<binder/...>), so they get a folder of their own,
# which both packages name.
include(CMakePackageConfigHelpers)

set(accessory_package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/accessory")
set(binder_header_folder "${CMAKE_INSTALL_INCLUDEDIR}/accessory-binder")

install(TARGETS accessory EXPORT accessory LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
foreach(unit common AccessoryManager AppleiAP2 AppleUSBAudio)
  install(DIRECTORY "${unit}/include/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")
endforeach()
if(ACCESSORY_BINDER STREQUAL "bundled")
  install(TARGETS binder EXPORT accessory LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
  install(DIRECTORY platform/binder/include/ DESTINATION "${binder_header_folder}" FILES_MATCHING PATTERN "*.h")
endif()

install(EXPORT accessory NAMESPACE accessory:: DESTINATION "${accessory_package_folder}" FILE accessoryTargets.cmake)
configure_package_config_file(cmake/accessoryConfig.cmake.in "${PROJECT_BINARY_DIR}/accessoryConfig.cmake"
  INSTALL_DESTINATION "${accessory_package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/accessoryConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/accessoryConfig.cmake" "${PROJECT_BINARY_DIR}/accessoryConfigVersion.cmake"
              cmake/AndroidPlatform.cmake
        DESTINATION "${accessory_package_folder}")

get_filename_component(accessory_android_library_folder "${ANDROID_UTILS_LIBRARY}" DIRECTORY)
# As the prefix may be another one with 'cmake --install --prefix', the file finds it from where it lies itself.
string(REGEX REPLACE "[^/]+" ".." accessory_prefix_from_package "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
configure_file(cmake/accessory.pc.in "${PROJECT_BINARY_DIR}/accessory.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/accessory.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# The test kit, for find_package(accessory COMPONENTS testing) alone, because only it needs GoogleMock.
if(ACCESSORY_TESTING)
  install(TARGETS accessory_testing EXPORT accessory_testing ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT testing)
  install(DIRECTORY testing/include/ DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT testing FILES_MATCHING PATTERN "*.h")
  install(EXPORT accessory_testing NAMESPACE accessory:: DESTINATION "${accessory_package_folder}"
          FILE accessoryTestingTargets.cmake COMPONENT testing)
  configure_file(cmake/accessory-testing.pc.in "${PROJECT_BINARY_DIR}/accessory-testing.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/accessory-testing.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT testing)
endif()
