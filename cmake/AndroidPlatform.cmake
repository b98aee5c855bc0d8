# android::utils and android::log, from Debian's packages or from a target's sysroot.
#
# Debian keeps the headers under include/android and the libraries in the 'android' folder of the
# multiarch library folder, away from the default search paths; whoever links them needs the run path.

set(_android_hint "Install android-libutils-dev and android-liblog-dev ('./run' does it), or point "
                  "CMAKE_PREFIX_PATH at a sysroot that has libutils and liblog.")

find_path(ANDROID_INCLUDE_DIR utils/RefBase.h PATH_SUFFIXES android)
find_library(ANDROID_UTILS_LIBRARY utils PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
find_library(ANDROID_LOG_LIBRARY log PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
if(NOT ANDROID_INCLUDE_DIR OR NOT ANDROID_UTILS_LIBRARY)
  message(FATAL_ERROR "The platform's libutils was not found. " ${_android_hint})
endif()
if(NOT ANDROID_LOG_LIBRARY)
  message(FATAL_ERROR "The platform's liblog was not found. " ${_android_hint})
endif()

function(accessory_import_android name library)
  add_library(android::${name} SHARED IMPORTED GLOBAL)
  get_filename_component(folder "${library}" DIRECTORY)
  set_target_properties(android::${name} PROPERTIES
    IMPORTED_LOCATION "${library}"
    INTERFACE_INCLUDE_DIRECTORIES "${ANDROID_INCLUDE_DIR}")
  # libutils itself needs neighbours of its folder that nobody here names (libbacktrace, libcutils). What is below a
  # sysroot here is below the root there.
  set(folder_there "${folder}")
  if(CMAKE_SYSROOT)
    file(RELATIVE_PATH below "${CMAKE_SYSROOT}" "${folder}")
    if(NOT below MATCHES "^\\.\\.")
      set(folder_there "/${below}")
    endif()
  endif()
  target_link_options(android::${name} INTERFACE "LINKER:-rpath,${folder_there}" "LINKER:-rpath-link,${folder}")
endfunction()
accessory_import_android(utils "${ANDROID_UTILS_LIBRARY}")
accessory_import_android(log "${ANDROID_LOG_LIBRARY}")

# accessory::binder from the target's own platform instead of platform/binder.
function(accessory_find_system_binder)
  find_library(ANDROID_BINDER_LIBRARY binder PATH_SUFFIXES android ${CMAKE_LIBRARY_ARCHITECTURE}/android)
  find_path(ANDROID_BINDER_INCLUDE_DIR binder/Parcel.h PATH_SUFFIXES android)
  if(NOT ANDROID_BINDER_LIBRARY OR NOT ANDROID_BINDER_INCLUDE_DIR)
    message(FATAL_ERROR "ACCESSORY_BINDER=system, but no libbinder was found. Point CMAKE_SYSROOT or "
                        "CMAKE_PREFIX_PATH at a platform that has it, or use ACCESSORY_BINDER=bundled.")
  endif()
  add_library(accessory::binder SHARED IMPORTED GLOBAL)
  set_target_properties(accessory::binder PROPERTIES
    IMPORTED_LOCATION "${ANDROID_BINDER_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${ANDROID_BINDER_INCLUDE_DIR}")
endfunction()
