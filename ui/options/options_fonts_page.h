// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// "Fonts": the fonts of the tracks' cue lists.
#pragma once

#include <array>

#include "app/options_commands.h"
#include "app/workspace.h"
#include "ui/options/options_page.h"

namespace captoria {

class OptionsFontsPage final : public QWidget {
 public:
  // The workspace outlives the page.
  OptionsFontsPage(Workspace& workspace, QWidget* parent);

  // The fonts chosen for open tracks, to be applied to them. For a track that is not open, the font is written as soon
  // as it is chosen.
  const ListFonts& Chosen() const { return chosen_; }

 private:
  void Choose(int index, const QString& title);
  void ShowFont(int index);

  Workspace& workspace_;
  ListFonts chosen_;
  std::array<QLabel*, kMostTracks> shown_{};
};

}  // namespace captoria
