# 32-bit ARM by Debian's cross compiler; programs run under qemu-arm. scripts/prove-armhf uses it and makes the sysroot:
# a folder with armhf's packages of libutils, liblog and GoogleTest, which ACCESSORY_ARMHF_SYSROOT names.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ACCESSORY_ARMHF_SYSROOT)
# GCC notes that it passes some arguments otherwise than before its version 7.1, which nobody here has.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)

# The compiler brings libc and the C++ library; only what it does not have comes from the folder.
set(CMAKE_FIND_ROOT_PATH "${ACCESSORY_ARMHF_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(libraries "${ACCESSORY_ARMHF_SYSROOT}/usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}")
# Debian's libutils needs a library of p7zip's in the end.
set(p7zip "${ACCESSORY_ARMHF_SYSROOT}/usr/lib/p7zip")
foreach(kind EXE SHARED)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-Wl,-rpath-link,${libraries}:${p7zip}")
endforeach()

set(CMAKE_CROSSCOMPILING_EMULATOR
  qemu-arm -L /usr/arm-linux-gnueabihf -E "LD_LIBRARY_PATH=${libraries}:${libraries}/android:${p7zip}"
  CACHE STRING "What runs programs of that architecture" FORCE)
