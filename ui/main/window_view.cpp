// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_view.h"

#include "ui/texts/qt_text.h"

namespace captoria {

void WindowView::ShowCommandsRun(const std::string& file_name, std::size_t selected) {
  emit CommandsRun(PathToQt(file_name), static_cast<int>(selected));
}

void WindowView::ShowFinding(const Finding& finding) { emit Warned(ToQt(Describe(finding))); }

}  // namespace captoria
