// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Pictures of the window for people to look at: screenshots FILM FOLDER [track-2x]. With a third word there is one
// picture, of that name; QT_SCALE_FACTOR makes it fit the name.
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <cstdio>

#include "app/language_commands.h"
#include "app/open_video.h"
#include "cli/unattended_prompts.h"
#include "localisation/language_files.h"
#include "platform/program_folder.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/ask_for_tool_dialog.h"
#include "ui/dialogs/batch_dialog.h"
#include "ui/dialogs/position_dialog.h"
#include "ui/dialogs/select_subs_dialog.h"
#include "ui/dialogs/welcome_dialog.h"
#include "ui/language_editor/create_lang_dialog.h"
#include "ui/main/main_window.h"
#include "ui/options/options_dialog.h"

namespace captoria {
namespace {

QPalette Dark() {
  QPalette palette(QColor(45, 45, 48));
  palette.setColor(QPalette::Base, QColor(30, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
  palette.setColor(QPalette::Highlight, QColor(38, 110, 190));
  return palette;
}

// Lets the decoder's frame arrive.
void Settle() {
  const auto end = QDeadlineTimer(700);
  while (!end.hasExpired()) QApplication::processEvents(QEventLoop::AllEvents, 20);
}

class Shots {
 public:
  Shots(QString film, QDir folder) : film_(std::move(film)), folder_(std::move(folder)) {}

  void TakeTracks(const char* name) {
    Window(name, true, [this](Form1& window) {
      window.Commands().OpenFiles(
          {QString(film_).replace(".avi", ".en.srt"), QString(film_).replace(".avi", ".ar.srt")});
      window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(1);
      SelectCue(window, 1);
    });
  }

  void Take() {
    Window("empty", false, [](Form1&) {});
    TakeTracks("track");
    Window("streams", true, [](Form1& window) { window.findChild<QAction*>("AviInfo")->trigger(); });
    Window("outside", true, [](Form1& window) { window.findChild<QAction*>("mnuOnlyOut")->trigger(); });
    const QPalette light = QApplication::palette();
    QApplication::setPalette(Dark());
    Window("dark", true, [](Form1& window) { SelectCue(window, 3); });
    QApplication::setPalette(light);
    Dialogs();
    Options("English", "");
    for (const char* language : {"German", "Greek", "Arabic", "Japanese"}) {
      const QString name = QString("-") + QString(language).toLower();
      Window("track" + name, true, [language](Form1& window) {
        for (QAction* entry : window.findChildren<QAction*>("mnuLangDef")) {
          if (entry->text() == language) entry->trigger();
        }
        SelectCue(window, 1);
      });
      Options(language, name);
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
  }

 private:
  ProgramFolders Folders() const {
    return {.executable = ExecutableFolder(), .data = folder_.filePath("data").toStdString()};
  }

  static void SelectCue(Form1& window, int row) {
    auto* list = window.findChild<QTreeView*>("ListView1");
    list->setCurrentIndex(list->model()->index(row, 0));
  }

  template <typename Act>
  void Window(const QString& name, bool with_film, Act act) {
    UnattendedPrompts prompts(false);
    WindowView view;
    Workspace workspace(Folders(), prompts, view);
    workspace.preferences.remembers = false;
    Form1 window(workspace, view);
    window.resize(1024, 600);  // the smallest screen we care for
    window.show();
    if (with_film) window.Commands().OpenVideo(film_);
    act(window);
    Settle();
    Save(window, name);
  }

  void Options(const char* language, const QString& ending) {
    UnattendedPrompts prompts(false);
    WindowView view;
    Workspace workspace(Folders(), prompts, view);
    (void)LoadNewLang(workspace, LanguageBase(language));
    FileRegistry registry(folder_.filePath("data/registry").toStdString());
    ContextMenuEntry entry(registry, FileActions(ProcessEnvironment()), VerbProgram(ExecutableFolder()));
    Form2 options(workspace, entry, {}, nullptr);
    auto* pages = options.findChild<QTabWidget*>();
    for (int i = 0; i < pages->count(); ++i) {
      pages->setCurrentIndex(i);
      Save(options, "options-" + QString::number(i + 1) + ending);
    }
  }

  void Dialogs() {
    UnattendedPrompts prompts(false);
    DesktopOpener opener;
    WindowView view;
    Workspace workspace(Folders(), prompts, view);
    AskForToolDialog mux(workspace, Tool::DivXMux, opener, nullptr);
    Save(mux, "ask-for-divxmux");
    AskForToolDialog converter(workspace, Tool::BmpToXSub, opener, nullptr);
    Save(converter, "ask-for-bmptoxsub");
    frmSelectSubs select(workspace, CommandMode::ComposeOnly, nullptr);
    select.findChild<QComboBox*>("cmbStart")->setCurrentIndex(2);
    select.findChild<QLineEdit*>("txtStart")->setText("-");
    Save(select, "select-subtitles");
    Form3 position(workspace, CommandMode::ComposeOnly, {nullptr, 0, 500}, nullptr);
    position.findChild<QSlider*>("Slider1")->setValue(120);
    Save(position, "position");
    frmCreateLang editor(workspace, "3.5.0", nullptr);
    editor.findChild<QComboBox*>("Combo2")->setCurrentText("German.Captoria.exe.xml");
    Save(editor, "language-editor");
    frmWelcome welcome({}, nullptr);
    Save(welcome, "welcome");
    frmAbout about({.version = "3.5.0"}, prompts, opener, nullptr);
    Save(about, "about");
    frmBatch batch(prompts, {}, nullptr);
    Save(batch, "batch");
  }

  void Save(QWidget& widget, const QString& name) {
    widget.show();
    Settle();
    if (!widget.grab().save(folder_.filePath(name + ".png"))) std::fprintf(stderr, "%s: not saved\n", qPrintable(name));
  }

  QString film_;
  QDir folder_;
};

}  // namespace
}  // namespace captoria

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc != 3 && argc != 4) {
    std::fputs("screenshots FILM FOLDER [NAME]\n", stderr);
    return 2;
  }
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  const QDir folder(argv[2]);
  folder.mkpath(".");
  captoria::Shots shots(argv[1], folder);
  argc == 4 ? shots.TakeTracks(argv[3]) : shots.Take();
  return 0;
}
