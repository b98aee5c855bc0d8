# accessory_sanitizers: the sanitizers chosen with ACCESSORY_SANITIZE, applied to everything built here.
add_library(accessory_sanitizers INTERFACE)
if(ACCESSORY_SANITIZE)
  target_compile_options(accessory_sanitizers INTERFACE
    -fsanitize=${ACCESSORY_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g -O1)
  target_link_options(accessory_sanitizers INTERFACE -fsanitize=${ACCESSORY_SANITIZE})
endif()
