# What makes mistakes of memory harder to use, in each build that may be installed: one with a type that is
# optimised, without sanitizers, fuzzing and coverage, which want to see the mistakes themselves.
# tests/packaging/hardening_test.py reads it from the built files.

if(NOT CMAKE_BUILD_TYPE MATCHES "^(Release|RelWithDebInfo|MinSizeRel)$" OR ZORVA_SANITIZE OR ZORVA_FUZZ
   OR ZORVA_COVERAGE)
    return()
endif()

include(CheckCXXCompilerFlag)
target_compile_options(zorva_options INTERFACE -fstack-protector-strong)
# Not on every processor, and not in every compiler.
foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection)
    string(MAKE_C_IDENTIFIER has${flag} known)
    check_cxx_compiler_flag(${flag} ${known})
    if(${known})
        target_compile_options(zorva_options INTERFACE ${flag})
    endif()
endforeach()

target_compile_definitions(zorva_options INTERFACE _GLIBCXX_ASSERTIONS)
# A packager's own choice stands. It needs the optimiser, which what tests do themselves goes without.
if(NOT CMAKE_CXX_FLAGS MATCHES "_FORTIFY_SOURCE")
    target_compile_options(zorva_options INTERFACE
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZORVA_UNOPTIMISED>>>:-U_FORTIFY_SOURCE>
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ZORVA_UNOPTIMISED>>>:-D_FORTIFY_SOURCE=2>)
endif()

target_link_options(zorva_options INTERFACE LINKER:-z,relro,-z,now
    $<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:-pie>)
