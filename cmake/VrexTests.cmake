# Tests: one executable a folder of tests, one line a file.
#
# vrex_add_tests(name SOURCES a.cpp ... [LIBRARIES ...]) links the object files of both libraries.

function(vrex_add_tests name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES" ${ARGN})
  find_package(GTest REQUIRED)
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE vrex_flags vrex_test_support ${ARG_LIBRARIES} GTest::gmock GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600)
endfunction()
