// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_view.h"

#include "ui/jobs/on_gui_thread.h"
#include "ui/texts/qt_text.h"

namespace captoria {

void WindowView::ShowVideo() {
  OnGuiThread(this, [this] { emit VideoChanged(); });
}

void WindowView::BringUpStreams() {
  OnGuiThread(this, [this] { emit StreamsWanted(); });
}

void WindowView::ShowTracks() {
  OnGuiThread(this, [this] { emit TracksChanged(); });
}

void WindowView::ShowLanguage() {
  OnGuiThread(this, [this] { emit LanguageChanged(); });
}

void WindowView::ShowCommandsRun(const std::string& file_name, std::size_t selected) {
  OnGuiThread(this, [&] { emit CommandsRun(PathToQt(file_name), static_cast<int>(selected)); });
}

void WindowView::Warn(const std::string& text) {
  OnGuiThread(this, [this, line = ToQt(text)] { emit Warned(line); });
}

std::unique_ptr<JobProgress> WindowView::BeginWork(Work work) {
  if (bar_ == nullptr) return std::make_unique<NoProgress>();
  return bar_->BeginWork(work);
}

}  // namespace captoria
