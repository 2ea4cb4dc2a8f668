# The installed package: the libraries, the public headers under include/vrex.data3d/ with the spelling that they
# have under src/, the umbrella header beside them, the schemas of documents and reports under share/vrex.data3d/, the CMake package Vrex, a
# .pc file a library, and the tool with its manual page and its completion for bash.
include(CMakePackageConfigHelpers)

set(VREX_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/vrex.data3d)
set(VREX_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Vrex)

install(TARGETS vrex_data3d vrex_exchange vrex_solver vrex_tolvbase EXPORT VrexTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(header IN LISTS VREX_PUBLIC_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/src/${header} DESTINATION ${VREX_INCLUDE_DIR}/${folder})
endforeach()
install(FILES ${VREX_UMBRELLA} DESTINATION ${VREX_INCLUDE_DIR})
install(FILES ${PROJECT_SOURCE_DIR}/share/document.schema.json ${PROJECT_SOURCE_DIR}/share/report.schema.json
  DESTINATION ${CMAKE_INSTALL_DATADIR}/vrex.data3d)
install(TARGETS vrex RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${PROJECT_SOURCE_DIR}/tools/vrex/share/vrex.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/tools/vrex/share/vrex.bash
  DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME vrex)

install(EXPORT VrexTargets NAMESPACE Vrex:: DESTINATION ${VREX_PACKAGE_DIR})
configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/VrexConfig.cmake.in ${PROJECT_BINARY_DIR}/VrexConfig.cmake
  INSTALL_DESTINATION ${VREX_PACKAGE_DIR})
# Before 1.0 a minor version may change the interface.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/VrexConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/VrexConfig.cmake ${PROJECT_BINARY_DIR}/VrexConfigVersion.cmake
  DESTINATION ${VREX_PACKAGE_DIR})

# vrex_install_pc(library DESCRIPTION text [REQUIRES other.pc] [CFLAGS flags]): the prefix is found from where the .pc file lies, so
# that the installed tree can be moved.
function(vrex_install_pc library)
  cmake_parse_arguments(PC "" "DESCRIPTION;REQUIRES;CFLAGS" "" ${ARGN})
  set(PC_NAME ${library})
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX} OUTPUT_VARIABLE PC_LIBDIR)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
    OUTPUT_VARIABLE PC_PREFIX)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
vrex_install_pc(tolvbase DESCRIPTION "Logging, formatting, timing and JSON values")
vrex_install_pc(vrex.data3d DESCRIPTION "${PROJECT_DESCRIPTION}" REQUIRES tolvbase CFLAGS " -ffp-contract=off")
vrex_install_pc(vrex.exchange DESCRIPTION "Robot descriptions to systems of vrex.data3d" REQUIRES vrex.data3d)
vrex_install_pc(vrex.solver DESCRIPTION "Solver of systems of vrex.data3d" REQUIRES vrex.data3d)
