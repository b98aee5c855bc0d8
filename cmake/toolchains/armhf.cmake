# 32-bit ARM by Debian's cross compiler; programs run under qemu-arm. scripts/prove-armhf uses it and makes the sysroot:
# a folder with armhf's packages of libutils, liblog and GoogleTest, which ACCESSORY_ARMHF_SYSROOT names.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ACCESSORY_ARMHF_SYSROOT)

# The compiler brings libc and the C++ library; only what it does not have comes from the folder.
set(CMAKE_FIND_ROOT_PATH "${ACCESSORY_ARMHF_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(libraries "${ACCESSORY_ARMHF_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}")
string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -Wl,-rpath-link,${libraries}")
string(APPEND CMAKE_SHARED_LINKER_FLAGS_INIT " -Wl,-rpath-link,${libraries}")

set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-arm -L /usr/arm-linux-gnueabihf -E "LD_LIBRARY_PATH=${libraries}:${libraries}/android")
