# kx_flags: how our own targets are compiled. Linked privately, or by link_libraries for the programs of a folder, so
# that it reaches nobody who uses the library.
add_library(kx_flags INTERFACE)
target_compile_options(kx_flags INTERFACE -Wall -Wextra -Wpedantic -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 sees overlapping copies in plain concatenations of std::string (its bug 105651).
    target_compile_options(kx_flags INTERFACE -Wno-restrict)
endif()
if(KXGRAPH_WERROR)
    target_compile_options(kx_flags INTERFACE -Werror)
endif()
if(KXGRAPH_SANITIZE OR KXGRAPH_FUZZ)
    set(sanitizers address,undefined,float-cast-overflow) # the last is no part of undefined
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        # Numbers that lose digits or their sign on the way into another type, which GCC does not see. Unsigned
        # numbers that wrap are no fault: hashes and differences of addresses are meant to.
        string(APPEND sanitizers ",implicit-conversion")
        target_compile_options(kx_flags INTERFACE -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizers.txt)
    endif()
    target_compile_options(kx_flags INTERFACE -fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kx_flags INTERFACE -fsanitize=${sanitizers})
endif()
if(KXGRAPH_FUZZ)
    target_compile_options(kx_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
