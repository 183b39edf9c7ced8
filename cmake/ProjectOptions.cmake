# Options that hold for every target of the project: the language, warnings as errors, sanitizers,
# coverage. Targets take them by linking to zorva_options.

set(ZORVA_SANITIZE "" CACHE STRING "Sanitizers to build with, for example 'address;undefined' or 'thread'")
option(ZORVA_COVERAGE "Count executed lines and branches (gcov)" OFF)
option(ZORVA_FUZZ "Build the libFuzzer targets (needs clang)" OFF)
option(ZORVA_WERROR "Treat warnings as errors, as developers do" OFF)

add_library(zorva_options INTERFACE)
target_compile_features(zorva_options INTERFACE cxx_std_17)
target_compile_options(zorva_options INTERFACE -Wall -Wextra -Wpedantic)
if(ZORVA_WERROR)
    target_compile_options(zorva_options INTERFACE -Werror)
endif()
# Holds the annotations of base/ThreadSafety.h against the code.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(zorva_options INTERFACE -Wthread-safety)
endif()
# Older ones warn that they ignore [[maybe_unused]] on members.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12)
    target_compile_options(zorva_options INTERFACE -Wno-attributes)
endif()

if(ZORVA_SANITIZE)
    string(REPLACE ";" "," zorva_sanitizers "${ZORVA_SANITIZE}")
    target_compile_options(zorva_options INTERFACE
        -fsanitize=${zorva_sanitizers} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(zorva_options INTERFACE -fsanitize=${zorva_sanitizers})
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        target_compile_options(zorva_options INTERFACE
            -fsanitize-ignorelist=${PROJECT_SOURCE_DIR}/cmake/sanitizers.ignore)
    endif()
endif()

if(ZORVA_COVERAGE)
    target_compile_options(zorva_options INTERFACE --coverage -O0)
    target_link_options(zorva_options INTERFACE --coverage)
endif()

if(ZORVA_FUZZ AND NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "The fuzz targets need clang's libFuzzer: configure with "
        "-DCMAKE_CXX_COMPILER=clang++ (Debian packages clang and libclang-rt-14-dev).")
endif()
if(ZORVA_FUZZ)
    # libFuzzer learns from what the code under test does.
    target_compile_options(zorva_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(zorva_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
