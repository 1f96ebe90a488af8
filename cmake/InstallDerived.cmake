# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT

# Runs during installation. cmake/Packaging.cmake sets `source`, `programs_folder` and `id` first.
set(prefix $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX})

file(MAKE_DIRECTORY ${prefix}/bin)
file(CREATE_LINK ../${programs_folder}/Captoria ${prefix}/bin/captoria SYMBOLIC)
file(CREATE_LINK ../${programs_folder}/captoria-cli ${prefix}/bin/captoria-cli SYMBOLIC)

# gzip -n leaves out the time, so the same text gives the same file.
function(install_compressed file target)
  execute_process(COMMAND gzip -9nc ${file} OUTPUT_FILE ${target} COMMAND_ERROR_IS_FATAL ANY)
  file(CHMOD ${target} PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
  message(STATUS "Installing: ${target}")
endfunction()

file(MAKE_DIRECTORY ${prefix}/share/man/man1 ${prefix}/share/doc/captoria)
file(GLOB pages ${source}/docs/man/*.1)
foreach(page IN LISTS pages)
  get_filename_component(name ${page} NAME)
  install_compressed(${page} ${prefix}/share/man/man1/${name}.gz)
endforeach()
install_compressed(${source}/assets/debian/changelog ${prefix}/share/doc/captoria/changelog.gz)

find_program(rsvg_convert rsvg-convert)
if(NOT rsvg_convert)
  message(FATAL_ERROR "rsvg-convert, which draws the icon, is not installed (package librsvg2-bin)")
endif()
foreach(size 16 22 24 32 48 64 128 256)
  set(folder ${prefix}/share/icons/hicolor/${size}x${size}/apps)
  file(MAKE_DIRECTORY ${folder})
  execute_process(COMMAND ${rsvg_convert} -w ${size} -h ${size} -o ${folder}/${id}.png
                          ${source}/assets/icons/captoria.svg COMMAND_ERROR_IS_FATAL ANY)
  message(STATUS "Installing: ${folder}/${id}.png")
endforeach()
