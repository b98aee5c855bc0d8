# accessory_sanitizers: the sanitizers chosen with ACCESSORY_SANITIZE, applied to everything built here.
add_library(accessory_sanitizers INTERFACE)
if(ACCESSORY_SANITIZE)
  # Lines are what reports need. For the folder, so that the tests may say otherwise.
  add_compile_options(-g1 -O1)
  target_compile_options(accessory_sanitizers INTERFACE
    -fsanitize=${ACCESSORY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(accessory_sanitizers INTERFACE -fsanitize=${ACCESSORY_SANITIZE})
  # A sanitizer's library is in every program, and LLVM's own linker puts it there in a tenth of the time.
  find_program(ACCESSORY_LLD ld.lld)
  if(ACCESSORY_LLD AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    add_link_options(-fuse-ld=lld)
  endif()
endif()
