# accessory_warnings: what every target of ours compiles with. Platform headers are system headers.
add_library(accessory_warnings INTERFACE)
target_compile_options(accessory_warnings INTERFACE -Wall -Wextra -Wpedantic -Werror)
