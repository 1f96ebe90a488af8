# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT

# Where files are installed, and the Debian package. scripts/package.sh makes and checks the package.
#
# The programs find each other and the shipped files from their own folder (platform/program_folder.h), so this folder has
# the same place below the prefix on every system.
set(programs_folder lib/captoria)
set(id org.captoria.Captoria)

install(TARGETS Captoria captoria-cli bmptoxsub.exe DivXMux.exe captoria-run RUNTIME DESTINATION ${programs_folder})
install(FILES ${languages} DESTINATION share/captoria/languages)

set(desktop ${CMAKE_SOURCE_DIR}/assets/desktop)
install(FILES ${desktop}/${id}.desktop DESTINATION share/applications)
install(FILES ${desktop}/${id}.metainfo.xml DESTINATION share/metainfo)
install(FILES ${desktop}/${id}.mime.xml DESTINATION share/mime/packages RENAME ${id}.xml)
install(FILES ${CMAKE_SOURCE_DIR}/assets/icons/captoria.svg DESTINATION share/icons/hicolor/scalable/apps
        RENAME ${id}.svg)

set(completions ${CMAKE_SOURCE_DIR}/assets/completions)
install(FILES ${completions}/captoria-cli.bash DESTINATION share/bash-completion/completions RENAME captoria-cli)
install(FILES ${completions}/captoria-cli.zsh DESTINATION share/zsh/vendor-completions RENAME _captoria-cli)
install(FILES ${completions}/captoria-cli.fish DESTINATION share/fish/vendor_completions.d)

install(FILES ${CMAKE_SOURCE_DIR}/assets/debian/copyright DESTINATION share/doc/captoria)

# The rest is made during installation: links, compressed texts, icons as PNG.
install(CODE "set(source [[${CMAKE_SOURCE_DIR}]])\nset(programs_folder ${programs_folder})\nset(id ${id})")
install(SCRIPT ${CMAKE_SOURCE_DIR}/cmake/InstallDerived.cmake)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME captoria)
set(CPACK_PACKAGE_CONTACT "Captoria contributors <maintainers@captoria.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://captoria.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "put text subtitles into DivX films as pictures")
set(CPACK_PACKAGE_DESCRIPTION
    "Many DivX players show no text subtitles, or show them in the wrong
letters. Captoria draws SubRip text as four-colour pictures and puts them, as
XSUB streams, into a .divx beside the untouched picture and sound of an .avi.

It has a window with a preview of every subtitle, and a command line that
needs no display.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Packages that the linker does not see: the reader of the icons, the program that opens a finished film, the toolkit's
# translations, a terminal window for the tools, fonts for more scripts.
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6svg6)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-dejavu-core, qt6-translations-l10n, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-noto-cjk, fonts-noto-core, xterm | x-terminal-emulator")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
