# zorva_add_unit_test(NAME SOURCES... [LIBRARIES ...]): one GoogleTest program, one ctest entry.
#
# One entry per program, not per test case: a program starts in milliseconds, discovery of each
# case would cost more than the tests.
function(zorva_add_unit_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LIBRARIES")
    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE tests_headers ${test_LIBRARIES} GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name})
endfunction()
