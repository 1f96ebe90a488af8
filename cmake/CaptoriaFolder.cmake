# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT

# The options that all our targets are compiled with. Headers of other libraries are exempt from our warnings.
add_library(captoria_options INTERFACE)
target_compile_options(captoria_options INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 reports an overlap in std::string's operator+ that does not exist (its bug 105651).
  # clang-tidy reads the same command lines but does not know that warning.
  target_compile_options(captoria_options INTERFACE -Wno-restrict -Wno-unknown-warning-option)
endif()
target_include_directories(captoria_options INTERFACE ${CMAKE_SOURCE_DIR})
# A program loads only the libraries that it uses, so the small tools start fast.
target_link_options(captoria_options INTERFACE -Wl,--as-needed)
if(CAPTORIA_SANITIZE)
  target_compile_options(captoria_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(captoria_options INTERFACE -fsanitize=address,undefined)
endif()

# A wrong include stops the build and names the file and line.
add_custom_target(include_direction ALL COMMAND ${CMAKE_SOURCE_DIR}/scripts/check_includes.py
                  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} COMMENT "" VERBATIM)

# No header may depend on what its users include first. A header NAME.h is included first by NAME.cpp, which proves that
# it compiles alone; scripts/check_includes.py checks the order. The target header_checks compiles the headers that have no
# such source.
add_custom_target(header_checks)

# captoria_folder(NAME [USES FOLDER...]): makes a static library of the folder NAME and links the folders that it may
# include.
function(captoria_folder name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${name}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")  # belongs to a program
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/${name}/*.h)
  list(TRANSFORM ARG_USES PREPEND captoria_)

  add_library(captoria_${name} STATIC ${sources})
  target_link_libraries(captoria_${name} PUBLIC captoria_options ${ARG_USES})
  add_dependencies(captoria_${name} include_direction)

  set(alone)
  foreach(header IN LISTS headers)
    string(REGEX REPLACE "\\.h$" "" stem ${header})
    string(REGEX REPLACE "([^/]+)$" "posix/\\1" system_stem ${stem})
    if(EXISTS ${CMAKE_SOURCE_DIR}/${stem}.cpp OR EXISTS ${CMAKE_SOURCE_DIR}/${system_stem}.cpp)
      continue()
    endif()
    string(REPLACE "/" "_" stem ${stem})
    set(source ${CMAKE_BINARY_DIR}/header_checks/${stem}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND alone ${source})
  endforeach()
  if(alone)
    add_library(header_checks_${name} OBJECT EXCLUDE_FROM_ALL ${alone})
    target_link_libraries(header_checks_${name} PRIVATE captoria_${name})
    add_dependencies(header_checks header_checks_${name})
  endif()
endfunction()

# captoria_program(NAME SOURCE... USES FOLDER...): a program in build/bin.
function(captoria_program name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  list(TRANSFORM ARG_USES PREPEND captoria_)
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE captoria_options ${ARG_USES})
  target_compile_definitions(${name} PRIVATE CAPTORIA_VERSION="${PROJECT_VERSION}")
endfunction()
