# zorva_add_fuzz_target(NAME SOURCES... [LIBRARIES ...] SEEDS folder...): a libFuzzer program, and a test
# that feeds it every seed once.
#
# A seed is an input of interest, or one that once broke something: each fixed crash leaves one behind.
function(zorva_add_fuzz_target name)
    cmake_parse_arguments(PARSE_ARGV 1 fuzz "" "" "SOURCES;LIBRARIES;SEEDS")
    add_executable(${name} ${fuzz_SOURCES})
    target_link_libraries(${name} PRIVATE zorva_options ${fuzz_LIBRARIES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    add_test(NAME ${name}-seeds COMMAND ${name} -runs=0 ${fuzz_SEEDS})
    set_tests_properties(${name}-seeds PROPERTIES SKIP_RETURN_CODE 77)
endfunction()
