// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "app/options_commands.h"

#include <variant>

#include "settings/key_table.h"

namespace captoria {

OptionsEffect ApplyOptions(Session& session, const Settings& edited, const ListFonts& fonts) {
  OptionsEffect effect;
  const Settings before = session.settings;
  Settings source = edited;
  for (const GlobalKey* key : OptionKeys()) {
    std::visit([&](auto field) { field(session.settings) = field(source); }, key->field);
  }
  for (int i = 0; i < session.tracks.Count(); ++i) {
    const auto index = static_cast<std::size_t>(i);
    if (!fonts.at(index)) continue;
    session.tracks.Open()[index].list_font = *fonts.at(index);
    effect.list_fonts_changed = true;
  }
  effect.frame_changed = session.settings.FrameForPreview != before.FrameForPreview;
  effect.back_color_or_width_changed =
      session.settings.BackColor != before.BackColor || session.settings.UseBmpToXSub != before.UseBmpToXSub;
  effect.saved = session.SaveOptions();
  return effect;
}

Font ListFontOf(const Session& session, int index) {
  if (IsOpen(session, index)) return session.tracks.Open()[static_cast<std::size_t>(index)].list_font;
  return session.StoredListFont(index);
}

}  // namespace captoria
