# zorva_add_fuzz_target(NAME SOURCES... [LIBRARIES ...] [DICTIONARY file] SEEDS folder...): a libFuzzer program, and
# a test with the label "fuzz" that feeds it every seed once. fuzz/campaign runs whatever has that label.
#
# A seed is an input of interest, or one that once broke something: each fixed crash leaves one behind. A dictionary
# holds the words of the language that the inputs are in.
function(zorva_add_fuzz_target name)
    cmake_parse_arguments(PARSE_ARGV 1 fuzz "" "DICTIONARY" "SOURCES;LIBRARIES;SEEDS")
    add_executable(${name} ${fuzz_SOURCES})
    zorva_room_headers(${name} PRIVATE)
    target_link_libraries(${name} PRIVATE zorva_options fuzz_slowest_input ${fuzz_LIBRARIES})
    target_link_options(${name} PRIVATE -fsanitize=fuzzer -Wl,--wrap=LLVMFuzzerTestOneInput)
    set(options -runs=0)
    if(fuzz_DICTIONARY)
        list(APPEND options -dict=${CMAKE_CURRENT_SOURCE_DIR}/${fuzz_DICTIONARY})
    endif()
    add_test(NAME ${name}-seeds COMMAND ${name} ${options} ${fuzz_SEEDS})
    set_tests_properties(${name}-seeds PROPERTIES SKIP_RETURN_CODE 77 LABELS fuzz)
endfunction()
