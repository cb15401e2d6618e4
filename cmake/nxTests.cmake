# SPDX-FileCopyrightText: The XMLFramework authors
# SPDX-License-Identifier: Apache-2.0

# How a test program, an example or a script becomes a ctest entry.

include(GoogleTest)

set(NX_TEST_ENVIRONMENT
    "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1"
    "UBSAN_OPTIONS=print_stacktrace=1"
    "TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tsan.supp:second_deadlock_stack=1")

# nx_add_test(<name> SOURCES <file>... [LIBS <target>...] [LABELS <label>...] [TIMEOUT <seconds>])
#
# A GoogleTest program, linked to the shared library as any user's program is; each of its cases is a ctest entry
# "<name>.<Suite>.<case>" with the program's name among its labels.
function(nx_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "SOURCES;LIBS;LABELS")
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    add_executable(${name} ${arg_SOURCES})
    nx_configure_target(${name})
    target_compile_definitions(${name} PRIVATE
        NX_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
        NX_SHARED_DATA="${PROJECT_SOURCE_DIR}/../shared/data"
        NX_TOOL_PATH="$<TARGET_FILE:xmlframework-tool>")
    target_link_libraries(${name} PRIVATE XMLFramework ${arg_LIBS} GTest::gtest GTest::gtest_main)
    add_dependencies(${name} xmlframework-tool)
    gtest_discover_tests(${name} TEST_PREFIX "${name}." DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60)

    # Properties that are lists do not survive gtest_discover_tests, so they are set by a file that ctest reads after
    # the discovered tests. GoogleTest is content when a filter leaves no case to run; we are not.
    set(labels ${name} ${arg_LABELS})
    set(properties "${CMAKE_CURRENT_BINARY_DIR}/${name}_properties.cmake")
    file(WRITE "${properties}" "set_tests_properties(\${${name}_TESTS} PROPERTIES
    LABELS \"${labels}\"
    TIMEOUT ${arg_TIMEOUT}
    FAIL_REGULAR_EXPRESSION \"Running 0 tests from 0 test suites\"
    ENVIRONMENT \"${NX_TEST_ENVIRONMENT}\")
")
    set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${properties}")
endfunction()

# nx_add_script_test(<name> COMMAND <command>... [LABELS <label>...] [FIXTURE <name>])
function(nx_add_script_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "FIXTURE" "COMMAND;LABELS")
    add_test(NAME ${name} COMMAND ${arg_COMMAND})
    set_tests_properties(${name} PROPERTIES
        LABELS "${arg_LABELS}"
        TIMEOUT 300
        ENVIRONMENT "${NX_TEST_ENVIRONMENT}"
        FIXTURES_REQUIRED "${arg_FIXTURE}")
endfunction()
