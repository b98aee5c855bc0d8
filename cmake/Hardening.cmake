# What makes a fault of memory end the process instead of serving whoever provoked it, for everything built here:
# checked copies and string functions, guarded stacks and returns, tables that are read-only once a program runs.
include(CheckCXXCompilerFlag)
include(CheckPIESupported)

# Programs lie at a random address, as libraries do.
check_pie_supported(LANGUAGES CXX)

add_compile_options(-fstack-protector-strong)
check_cxx_compiler_flag(-fcf-protection ACCESSORY_HAS_CF_PROTECTION)
if(ACCESSORY_HAS_CF_PROTECTION)
  add_compile_options(-fcf-protection)
endif()
add_link_options(LINKER:-z,relro,-z,now LINKER:-z,noexecstack)

# The checked functions need the optimizer. They call past the sanitizers, which check the same and more.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  set(accessory_fortify_level 3)
else()
  set(accessory_fortify_level 2)
endif()
if(NOT ACCESSORY_SANITIZE)
  add_compile_options(
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${accessory_fortify_level}>")
endif()
