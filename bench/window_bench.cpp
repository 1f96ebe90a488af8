// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Measures the window: prints a line "NAME MILLISECONDS" for each measurement, for bench/window.py.
//
//   window_bench bare STARTED        an empty window of Qt
//   window_bench start STARTED DATA  ours, on an empty data folder
//   window_bench cues DATA FILM SRT  a long list: scrolling through it, selecting in it, clicking cues
//   window_bench frames FILM         single frames from the whole film
//
// STARTED is the monotonic clock, in nanoseconds, at the start of the process.
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMainWindow>
#include <QScrollBar>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "app/load_subtitle.h"
#include "app/open_video.h"
#include "cli/unattended_prompts.h"
#include "media/video/frame_decoder.h"
#include "platform/program_folder.h"
#include "ui/main/main_window.h"

namespace captoria {
namespace {

using Clock = std::chrono::steady_clock;

void Tell(const char* name, Clock::duration time) {
  std::printf("%s %.3f\n", name, std::chrono::duration<double, std::milli>(time).count());
}

// Returns when no event is left: everything is painted, and the window reacts to a click.
void Settle() {
  auto* events = QAbstractEventDispatcher::instance();
  while (events->processEvents(QEventLoop::AllEvents)) {
  }
}

void TellStart(const char* started) {
  Settle();
  Tell("start", Clock::now() - Clock::time_point(std::chrono::nanoseconds(std::strtoll(started, nullptr, 10))));
}

template <typename Act>
void Measure(const char* name, Act act) {
  const auto begin = Clock::now();
  act();
  QApplication::processEvents();
  Tell(name, Clock::now() - begin);
}

void MeasureCues(Form1& window) {
  auto* list = window.findChild<QTreeView*>("ListView1");
  const int rows = list->model()->rowCount();
  const auto at = [&](int row) { return list->model()->index(row, 0); };
  for (int row = 0; row < rows; row += 97) {
    Measure("scroll", [&] { list->scrollTo(at(row), QAbstractItemView::PositionAtTop); });
  }
  for (int i = 1; i < 300; ++i) {
    const int row = static_cast<int>(static_cast<long long>(i) * 7919 % rows);
    Measure("click", [&] { list->setCurrentIndex(at(row)); });
  }
  for (int i = 0; i < 10; ++i) {
    Measure("select all", [&] { list->selectAll(); });
    Measure("select one", [&] { list->setCurrentIndex(at(i)); });
  }
}

int MeasureFrames(const char* film) {
  NoProgress progress;
  auto decoder = FrameDecoder::Open(film, progress);
  if (!decoder) return 1;
  for (std::int64_t i = 1; i <= 100; ++i) {
    const auto begin = Clock::now();
    if (!decoder->Frame(i * 104729 % decoder->FrameCount(), progress)) return 1;
    Tell("frame", Clock::now() - begin);
  }
  return 0;
}

int Run(int argc, char** argv) {
  const std::string mode = argc > 2 ? argv[1] : "";
  if (mode == "frames") return MeasureFrames(argv[2]);
  QApplication application(argc, argv);
  if (mode == "bare") {
    QMainWindow window;
    window.resize(1024, 700);
    window.show();
    TellStart(argv[2]);
    return 0;
  }
  const bool start = mode == "start" && argc == 4;
  if (!start && !(mode == "cues" && argc == 5)) return 2;
  UnattendedPrompts prompts(false);
  WindowView view;
  Workspace workspace({.executable = ExecutableFolder(), .data = start ? argv[3] : argv[2]}, prompts, view);
  workspace.preferences.remembers = false;
  Form1 window(workspace, view);
  window.resize(1024, 700);
  window.show();
  if (start) {
    TellStart(argv[2]);
    return 0;
  }
  std::string film = argv[3];
  workspace.preferences.settings.Preview = true;
  const bool opened = OpenAnAviFile(workspace, film, {.ignore_auto_srt = true}).has_value() &&
                      LoadFileToList(workspace, argv[4], {.encoding{}, .find_video = false}).has_value();
  if (!opened) return 1;
  Settle();
  MeasureCues(window);
  return 0;
}

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) { return captoria::Run(argc, argv); }
