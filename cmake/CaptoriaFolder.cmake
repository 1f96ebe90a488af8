# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT

# What every target of ours is compiled with. Outside headers are not ours to warn about.
add_library(captoria_options INTERFACE)
target_compile_options(captoria_options INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees an overlap in std::string's operator+ that is not there (its bug 105651).
  # clang-tidy, which reads the same command lines, does not know that warning.
  target_compile_options(captoria_options INTERFACE -Wno-restrict -Wno-unknown-warning-option)
endif()
target_include_directories(captoria_options INTERFACE ${CMAKE_SOURCE_DIR})
# A program asks the system only for the libraries that it uses, so the small tools start at once.
target_link_options(captoria_options INTERFACE -Wl,--as-needed)
if(CAPTORIA_SANITIZE)
  target_compile_options(captoria_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                   -fno-omit-frame-pointer)
  target_link_options(captoria_options INTERFACE -fsanitize=address,undefined)
endif()

# A wrong include stops the build with the file and line that hold it.
add_custom_target(include_direction ALL COMMAND ${CMAKE_SOURCE_DIR}/scripts/check_includes.py
                  WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} COMMENT "" VERBATIM)

# Each header is compiled alone by the target header_checks, so none leans on what its users include first.
add_custom_target(header_checks)

# captoria_folder(NAME [USES FOLDER...]): the folder NAME as a static library that links the folders it may include.
function(captoria_folder name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${name}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")  # that of a program
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/${name}/*.h)
  list(TRANSFORM ARG_USES PREPEND captoria_)

  add_library(captoria_${name} STATIC ${sources})
  target_link_libraries(captoria_${name} PUBLIC captoria_options ${ARG_USES})
  add_dependencies(captoria_${name} include_direction)

  set(alone)
  foreach(header IN LISTS headers)
    string(REPLACE "/" "_" stem ${header})
    set(source ${CMAKE_BINARY_DIR}/header_checks/${stem}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND alone ${source})
  endforeach()
  add_library(header_checks_${name} OBJECT EXCLUDE_FROM_ALL ${alone})
  target_link_libraries(header_checks_${name} PRIVATE captoria_${name})
  add_dependencies(header_checks header_checks_${name})
endfunction()

# captoria_program(NAME SOURCE... USES FOLDER...): a program of the program folder, build/bin.
function(captoria_program name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  list(TRANSFORM ARG_USES PREPEND captoria_)
  add_executable(${name} ${ARG_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE captoria_options ${ARG_USES})
  target_compile_definitions(${name} PRIVATE CAPTORIA_VERSION="${PROJECT_VERSION}")
endfunction()
