# Flags that every target of the project is built with.
add_library(drill2d_flags INTERFACE)
target_compile_options(drill2d_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wno-unused-parameter -Werror
    -msse2 -mfpmath=sse)
