# Tests: one executable a folder of tests, one line a file.
#
# vrex_add_tests(name SOURCES a.cpp ... [LIBRARIES ...]) links the object files of both libraries.

# What the sanitizers found ends a test. The same variables serve a program that is started by hand.
set(VREX_SANITIZER_OPTIONS
  "ASAN_OPTIONS=detect_leaks=1:halt_on_error=1:detect_stack_use_after_return=1:strict_string_checks=1"
  "UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1"
  "TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1")

# Every test reads the same big headers, which take longer than the tests themselves: they are compiled once, with
# the first test program, and the others borrow them, but for those with a further library, which may bring flags of
# its own. The tidy preset goes without, so that no test forgets an include.
function(vrex_precompile_test_headers name further_libraries)
  set(headers <random> <gmock/gmock.h> <gtest/gtest.h>)
  get_property(owner GLOBAL PROPERTY VREX_TEST_HEADERS_OWNER)
  if(further_libraries)
    target_precompile_headers(${name} PRIVATE ${headers})
  elseif(owner)
    target_precompile_headers(${name} REUSE_FROM ${owner})
  else()
    target_precompile_headers(${name} PRIVATE ${headers})
    set_property(GLOBAL PROPERTY VREX_TEST_HEADERS_OWNER ${name})
  endif()
endfunction()

function(vrex_add_tests name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  find_package(GTest REQUIRED)
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vrex_flags vrex_test_support ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  # The lint is for the libraries; the macros of the test framework do not pass it.
  set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "")
  if(VREX_SANITIZE)
    # The libraries are what is watched. Their tests compile in half the time this way.
    target_compile_options(${name} PRIVATE -O0)
  endif()
  vrex_precompile_test_headers(${name} "${ARG_LIBRARIES}")
  add_test(NAME ${name} COMMAND ${name})
  # Of a program that fails, the cases that passed stay out of the report.
  set(environment GTEST_BRIEF=1)
  if(VREX_SANITIZE)
    list(APPEND environment ${VREX_SANITIZER_OPTIONS})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "${environment}")
endfunction()
