# docs: the reference pages, in build/docs/html of the build folder; what Doxygen finds wrong is in build/docs/warnings.
# coverage_report: what the tests of a coverage build reached, as pages and as a summary on the terminal.

find_package(Doxygen)
if(DOXYGEN_FOUND)
  set(DOCS_OUTPUT ${PROJECT_SOURCE_DIR}/build/docs)
  configure_file(${PROJECT_SOURCE_DIR}/docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
  add_custom_target(docs
    COMMAND ${CMAKE_COMMAND} -E make_directory ${DOCS_OUTPUT}
    COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    COMMAND ${CMAKE_COMMAND} -E cat ${DOCS_OUTPUT}/warnings
    COMMAND ${CMAKE_COMMAND} -E echo "docs: ${DOCS_OUTPUT}/html/index.html"
    COMMENT "Writing the reference pages" VERBATIM)
endif()

if(VREX_COVERAGE)
  find_program(VREX_GCOVR gcovr REQUIRED)
  add_custom_target(coverage_report
    COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${PROJECT_BINARY_DIR} --output-on-failure
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PROJECT_BINARY_DIR}/coverage
    COMMAND ${VREX_GCOVR} -j 2 --root ${PROJECT_SOURCE_DIR} --filter ${PROJECT_SOURCE_DIR}/src/ ${PROJECT_BINARY_DIR}
      --exclude-throw-branches --print-summary --html-details ${PROJECT_BINARY_DIR}/coverage/index.html
    COMMAND ${CMAKE_COMMAND} -E echo "coverage: ${PROJECT_BINARY_DIR}/coverage/index.html"
    USES_TERMINAL COMMENT "Running the tests and collecting what they reached" VERBATIM)
endif()
