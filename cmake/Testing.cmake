# Every test bears its room in its name, the folder below tests/ with underscores in place of slashes
# (wire_http_test), and as a ctest label (wire/http), so that `ctest -L` and `./test ROOM` find it.

# zorva_add_test(NAME COMMAND ... [LABELS ...]): add_test() with the label of the room.
function(zorva_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "COMMAND;LABELS")
    file(RELATIVE_PATH room ${PROJECT_SOURCE_DIR}/tests ${CMAKE_CURRENT_SOURCE_DIR})
    string(REPLACE "/" "_" prefix ${room})
    if(NOT name MATCHES "^${prefix}_")
        message(FATAL_ERROR "The name of the test ${name} has to begin with its room: ${prefix}_")
    endif()
    add_test(NAME ${name} COMMAND ${test_COMMAND})
    list(PREPEND test_LABELS ${room})
    set_tests_properties(${name} PROPERTIES LABELS "${test_LABELS}")
endfunction()

# zorva_add_unit_test(NAME SOURCES... [LIBRARIES ...] [LABELS ...]): one GoogleTest program, one ctest
# entry of the same name, labelled "unit". NAME is that of the room, what it tests there if the room has
# several, and _test.
#
# One entry per program, not per test case: a program starts in milliseconds, discovery of each
# case would cost more than the tests.
function(zorva_add_unit_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LIBRARIES;LABELS")
    if(NOT name MATCHES "_test$")
        message(FATAL_ERROR "The name of the test program ${name} has to end with _test")
    endif()
    add_executable(${name} ${test_SOURCES})
    target_link_libraries(${name} PRIVATE tests_headers ${test_LIBRARIES} GTest::gtest_main)
    zorva_add_test(${name} COMMAND ${name} LABELS unit ${test_LABELS})
endfunction()
