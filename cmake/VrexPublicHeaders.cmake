# What follows from the lists of all folders; included after the last of them.
#
#   vrex.data3d.h           the umbrella header, in the build folder
#   public_headers.txt      the public headers and tables, by their include paths
#   listed_files.txt        all files of src/ that a list names, by their paths from the root
#   public_headers_alone    part of all: each public header compiles with nothing before it

# Headers that the umbrella leaves out: each needs a library of its own, and is included by those who have it.
set(VREX_UMBRELLA_EXCEPT tolvbase/TolvSpdlogSink.h)

get_property(VREX_PUBLIC_HEADERS GLOBAL PROPERTY VREX_PUBLIC_HEADERS)
get_property(listed GLOBAL PROPERTY VREX_LISTED_FILES)
list(TRANSFORM VREX_PUBLIC_HEADERS REPLACE "^${PROJECT_SOURCE_DIR}/src/" "")
list(TRANSFORM listed REPLACE "^${PROJECT_SOURCE_DIR}/" "")
list(SORT VREX_PUBLIC_HEADERS)
set(headers ${VREX_PUBLIC_HEADERS})
list(FILTER headers INCLUDE REGEX "\\.h$")

list(JOIN VREX_PUBLIC_HEADERS "\n" text)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/public_headers.txt CONTENT "${text}\n" @ONLY)
list(JOIN listed "\n" text)
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/listed_files.txt CONTENT "${text}\n" @ONLY)

set(in_umbrella ${headers})
list(REMOVE_ITEM in_umbrella ${VREX_UMBRELLA_EXCEPT})
list(FILTER in_umbrella EXCLUDE REGEX "^(exchange|solver)/")
list(TRANSFORM in_umbrella REPLACE "(.+)" "#include \"\\1\"")
list(JOIN in_umbrella "\n" text)
set(VREX_UMBRELLA ${PROJECT_BINARY_DIR}/vrex.data3d.h)
file(CONFIGURE OUTPUT ${VREX_UMBRELLA} @ONLY CONTENT
  "#pragma once\n\n/// All public headers, those that need a further library left out.\n\n${text}\n")

if(VREX_REPOSITORY_CHECKS)
  set(alone)
  foreach(header IN LISTS headers)
    string(REGEX REPLACE "\\.h$" ".cpp" source ${PROJECT_BINARY_DIR}/alone/${header})
    file(CONFIGURE OUTPUT ${source} @ONLY CONTENT "#include \"${header}\"\n")
    list(APPEND alone ${source})
  endforeach()
  add_library(public_headers_alone OBJECT ${alone})
  target_link_libraries(public_headers_alone PRIVATE vrex_flags)
  target_include_directories(public_headers_alone PRIVATE ${PROJECT_SOURCE_DIR}/src)
  # Only whether they compile matters.
  target_compile_options(public_headers_alone PRIVATE -O0 -g0)
  set_target_properties(public_headers_alone PROPERTIES EXPORT_COMPILE_COMMANDS OFF)
endif()
