# SPDX-FileCopyrightText: Captoria contributors
# SPDX-License-Identifier: MIT

# Each outside library as a target named captoria_NAME, if it has no target of its own. scripts/setup.sh installs the
# packages.
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(tl-expected REQUIRED)
find_package(Qt6 REQUIRED COMPONENTS Widgets)

# captoria_pkg(NAME PKGCONFIG...): the target captoria_NAME for pkg-config modules. Their headers are exempt from our
# warnings.
function(captoria_pkg name)
  pkg_check_modules(${name} REQUIRED IMPORTED_TARGET GLOBAL ${ARGN})
  add_library(captoria_${name} INTERFACE)
  target_include_directories(captoria_${name} SYSTEM INTERFACE ${${name}_INCLUDE_DIRS})
  target_link_libraries(captoria_${name} INTERFACE PkgConfig::${name})
endfunction()

captoria_pkg(uchardet uchardet)
captoria_pkg(glib glib-2.0)
captoria_pkg(cli11 CLI11)
captoria_pkg(json nlohmann_json)
captoria_pkg(pugixml pugixml)
captoria_pkg(ffmpeg libavformat libavcodec libavutil libswscale)
captoria_pkg(pango pangoft2 freetype2 fontconfig)
