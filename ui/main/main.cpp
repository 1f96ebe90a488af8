// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Captoria: the window. With "/AUTO" and a path it converts that video and closes.
#include <QApplication>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>
#include <string>

#include "app/unattended.h"
#include "platform/exit_status.h"
#include "platform/program_folder.h"
#include "ui/main/main_window.h"
#include "ui/main/window_prompts.h"
#include "ui/main/window_view.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr const char* kHelp =
    R"(Captoria puts text subtitles into DivX files as pictures.

  Captoria [--data DIR] [--open FILE...]     opens its window, with a video and subtitle files
  Captoria [--data DIR] /AUTO VIDEO          makes the .divx of a video and the subtitle files of its name, and closes

  --data DIR     the folder of the settings, instead of the program's own
  -h, --help
  -V, --version

These options stand first. captoria-cli does the same without a window.
)";

// The tools work in a folder of their own, so names cannot stay relative to ours.
QString Absolute(const QString& path) { return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath(); }

struct Options {
  std::string data;
  QStringList files;
  std::string arguments;  // what is left, as one text
  int status = -1;        // not below 0: end with it
};

Options Parse(const std::vector<std::string>& words) {
  Options options;
  std::size_t i = 0;
  for (; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "-h" || word == "--help" || word == "-V" || word == "--version") {
      std::fputs(word == "-h" || word == "--help" ? kHelp : "Captoria " CAPTORIA_VERSION "\n", stdout);
      options.status = kExitDone;
      return options;
    }
    if (word == "--data") {
      if (++i == words.size()) {
        std::fputs("Captoria: --data needs a folder; see --help\n", stderr);
        options.status = kExitUsage;
        return options;
      }
      options.data = words[i];
    } else if (word == "--open") {
      for (++i; i < words.size(); ++i) options.files.append(Absolute(PathToQt(words[i])));
    } else {
      break;
    }
  }
  for (; i < words.size(); ++i) options.arguments += (options.arguments.empty() ? "" : " ") + words[i];
  return options;
}

void Complain(const std::string& message) { std::fprintf(stderr, "Captoria: %s\n", message.c_str()); }

int Run(QApplication& application, const Options& options) {
  QApplication::setApplicationName("Captoria");
  QApplication::setApplicationVersion(CAPTORIA_VERSION);
  QApplication::setDesktopFileName("org.captoria.Captoria");
  const CommandLine line = ParseCommandLine(options.arguments);
  WindowPrompts prompts(nullptr);  // settings that cannot be used are reported before there is a window
  WindowView view;
  if (line.unattended) {
    QObject::connect(&view, &WindowView::Warned, [](const QString& text) { Complain(FromQt(text)); });
  }
  Workspace workspace(FindProgramFolders(options.data, ExecutableFolder(), ProcessEnvironment()), prompts, view,
                      line.unattended ? Attendance::Nobody : Attendance::Person);
  Form1 window(workspace, view);
  prompts.SetParent(&window);
  window.show();

  int status = kExitDone;
  QTimer::singleShot(0, &window, [&] {
    if (line.unattended) {
      const Outcome outcome = window.Commands().RunUnattended(Absolute(PathToQt(line.path)));
      if (!outcome.film) Complain(outcome.film.error().message);
      status = outcome.film ? kExitDone : kExitFailed;
      window.close();
      return;
    }
    window.Welcome();
    if (!options.files.isEmpty()) window.Commands().OpenFiles(options.files);
  });
  const int ended = application.exec();
  return ended != 0 ? ended : status;
}

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) {
  // Help needs no display, and so no application.
  const captoria::Options options = captoria::Parse({argv + 1, argv + argc});
  if (options.status >= 0) return options.status;
  QApplication application(argc, argv);
  return captoria::Run(application, options);
}
