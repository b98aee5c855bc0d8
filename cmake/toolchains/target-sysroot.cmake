# For a target that has a libbinder of its own: the compiler of its toolchain, and its root folder or a copy of it.
#
#   cmake -S . -B build/target -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/target-sysroot.cmake
#         -DTARGET_SYSROOT=/opt/target/sysroot -DTARGET_TRIPLET=aarch64-linux-gnu
#         -DACCESSORY_BINDER=system -DACCESSORY_TOOLS=OFF
#         -DACCESSORY_TESTS=OFF -DACCESSORY_TESTING=OFF -DACCESSORY_BENCHMARKS=OFF
#
# Looked for below the sysroot are, in the usual folders or a folder 'android' in them:
#   headers    utils/RefBase.h, android/log.h, binder/Parcel.h
#   libraries  libutils.so, liblog.so, libbinder.so
# A header folder elsewhere is named with ANDROID_INCLUDE_DIR and ANDROID_BINDER_INCLUDE_DIR; a library with
# ANDROID_UTILS_LIBRARY, ANDROID_LOG_LIBRARY and ANDROID_BINDER_LIBRARY. Platforms whose headers expect something of
# every includer, such as -DDO_NOT_CHECK_MANUAL_BINDER_INTERFACES, get it in CMAKE_CXX_FLAGS.
#
# TARGET_SYSROOT   the root folder; links in it must not leave it
# TARGET_TRIPLET   prefix of the compiler's name and name of the multiarch folder; empty for this machine's own kind
# With Clang name it in CMAKE_CXX_COMPILER; it is told the triplet.
set(TARGET_SYSROOT "" CACHE PATH "Root folder of the target")
set(TARGET_TRIPLET "" CACHE STRING "Such as aarch64-linux-gnu; empty for this machine's own kind")
# For the small projects with which CMake tries the compiler.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TARGET_SYSROOT TARGET_TRIPLET)
if(NOT IS_DIRECTORY "${TARGET_SYSROOT}")
  message(FATAL_ERROR "TARGET_SYSROOT is '${TARGET_SYSROOT}', which is no folder")
endif()

if(TARGET_TRIPLET)
  string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR "${TARGET_TRIPLET}")
  set(CMAKE_SYSTEM_NAME Linux)
  set(CMAKE_LIBRARY_ARCHITECTURE "${TARGET_TRIPLET}")
  set(CMAKE_CXX_COMPILER_TARGET "${TARGET_TRIPLET}")
  if(NOT CMAKE_CXX_COMPILER)
    set(CMAKE_CXX_COMPILER "${TARGET_TRIPLET}-g++")
  endif()
endif()
set(CMAKE_SYSROOT "${TARGET_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
