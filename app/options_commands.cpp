// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/options_commands.h"

namespace captoria {

OptionsEffect ApplyOptions(Preferences& preferences, Project& project, const Settings& edited, const ListFonts& fonts) {
  OptionsEffect effect;
  const Settings before = preferences.settings;
  effect.saved = preferences.StoreOptions(edited);
  for (int i = 0; i < project.tracks.Count(); ++i) {
    const auto index = static_cast<std::size_t>(i);
    if (!fonts.at(index)) continue;
    project.tracks.Open()[index].list_font = *fonts.at(index);
    effect.list_fonts_changed = true;
  }
  const Settings& now = preferences.settings;
  effect.frame_changed = now.FrameForPreview != before.FrameForPreview;
  effect.back_color_or_width_changed = now.BackColor != before.BackColor || now.UseBmpToXSub != before.UseBmpToXSub;
  return effect;
}

Font ListFontOf(const Preferences& preferences, const Project& project, int index) {
  if (IsOpen(project, index)) return project.tracks.Open()[static_cast<std::size_t>(index)].list_font;
  return preferences.TrackAt(index).list_font;
}

}  // namespace captoria
