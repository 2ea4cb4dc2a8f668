# Targets of the project: common flags, sanitizers, and the shape of a library.
#
# A library is compiled once as objects; the shared library and the tests link those objects, so that
# tests reach what is hidden. Examples, tools and benchmarks link the shared library, which proves the exports.

find_program(VREX_CCACHE ccache)
if(VREX_CCACHE)
  # The sloppiness is what ccache asks for where precompiled headers are used: the names that a header defines are part
  # of the precompiled file, whose content is compared.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${VREX_CCACHE})
endif()

add_library(vrex_flags INTERFACE)
target_compile_features(vrex_flags INTERFACE cxx_std_20)
# Contraction is off: formulas fix their floating-point order, and a fused multiply-add would round otherwise.
target_compile_options(vrex_flags INTERFACE
  -ffp-contract=off -fno-semantic-interposition -Wall -Wextra -Wpedantic -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wformat=2 -Wcast-align -Wdouble-promotion -Wimplicit-fallthrough)
if(VREX_SANITIZE)
  target_compile_options(vrex_flags INTERFACE
    -fsanitize=${VREX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
    # GCC takes its own instrumentation for a use of what is not set, in the standard headers too.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(vrex_flags INTERFACE -fsanitize=${VREX_SANITIZE})
endif()
if(VREX_COVERAGE)
  target_compile_options(vrex_flags INTERFACE --coverage)
  target_link_options(vrex_flags INTERFACE --coverage)
endif()

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# Half of the time of a watched build goes into these. The plain builds go without, so that no source forgets an include.
# They are compiled in a target of their own: what links the objects of a library would take them for one.
function(vrex_precompile_library_headers name)
  if(NOT TARGET vrex_library_headers)
    file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/library_headers.cpp CONTENT "")
    add_library(vrex_library_headers OBJECT ${PROJECT_BINARY_DIR}/library_headers.cpp)
    target_link_libraries(vrex_library_headers PRIVATE vrex_flags)
    target_precompile_headers(vrex_library_headers PRIVATE
      <algorithm> <cmath> <functional> <memory> <string> <unordered_map> <vector>)
  endif()
  target_precompile_headers(${name} REUSE_FROM vrex_library_headers)
endfunction()

# vrex_add_library(name OUTPUT file-name EXPORT exported-name)
# Makes the targets <name>_objects and <name>, with the alias Vrex::<exported-name>.
function(vrex_add_library name)
  cmake_parse_arguments(ARG "" "OUTPUT;EXPORT" "" ${ARGN})
  add_library(${name}_objects OBJECT)
  target_link_libraries(${name}_objects PRIVATE vrex_flags)
  target_include_directories(${name}_objects PUBLIC ${PROJECT_SOURCE_DIR}/src)
  if(VREX_SANITIZE OR VREX_COVERAGE)
    vrex_precompile_library_headers(${name}_objects)
  endif()
  add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
  add_library(Vrex::${ARG_EXPORT} ALIAS ${name})
  target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:vrex_flags>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/vrex.data3d>)
  set_target_properties(${name} PROPERTIES
    OUTPUT_NAME ${ARG_OUTPUT} EXPORT_NAME ${ARG_EXPORT} VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}
    # Installed libraries find each other in their own folder.
    INSTALL_RPATH "$ORIGIN")
endfunction()

# vrex_sources(name HEADERS ... SOURCES ...): the files of one folder, both lists sorted. HEADERS are public: installed,
# part of the umbrella header, and compiled alone (tables, *.def, are only installed). Hidden headers go with SOURCES.
function(vrex_sources name)
  cmake_parse_arguments(ARG "" "" "HEADERS;SOURCES" ${ARGN})
  if(ARG_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "vrex_sources(${name}): neither header nor source: ${ARG_UNPARSED_ARGUMENTS}")
  endif()
  foreach(list IN ITEMS ARG_HEADERS ARG_SOURCES)
    set(sorted ${${list}})
    list(SORT sorted)
    if(NOT "${sorted}" STREQUAL "${${list}}")
      message(FATAL_ERROR "vrex_sources(${name}): keep the list sorted: ${sorted}")
    endif()
    list(TRANSFORM ${list} PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
  endforeach()
  target_sources(${name}_objects PRIVATE ${ARG_SOURCES})
  set_property(GLOBAL APPEND PROPERTY VREX_PUBLIC_HEADERS ${ARG_HEADERS})
  set_property(GLOBAL APPEND PROPERTY VREX_LISTED_FILES ${ARG_HEADERS} ${ARG_SOURCES})
endfunction()
