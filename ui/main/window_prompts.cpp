// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/main/window_prompts.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <cstdio>

#include "ui/jobs/on_gui_thread.h"
#include "ui/texts/qt_font.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

// With more lines a message box could exceed the height of the screen.
constexpr int kLinesShown = 15;

QMessageBox::StandardButton Show(QMessageBox& box, const std::string& text) {
  const QString whole = ToQt(text).trimmed().replace("\r\n", "\n");
  box.setTextFormat(Qt::PlainText);  // messages may contain tags
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  if (whole.count('\n') < kLinesShown) {
    box.setText(whole);
  } else {
    box.setText(whole.section('\n', 0, kLinesShown - 1) + QStringLiteral("\n\u2026"));
    box.setDetailedText(whole);
  }
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

QStringList NameFilters(const std::vector<FileFilter>& filters) {
  QStringList names;
  for (const FileFilter& filter : filters) {
    const QString patterns = ToQt(filter.patterns).replace(';', ' ');
    names += filter.description == filter.patterns ? patterns : ToQt(filter.description) + " (" + patterns + ")";
  }
  return names;
}

// A file dialog that starts at `start`: a file or a folder, which may be missing.
class FileQuestion {
 public:
  FileQuestion(QWidget* parent, const std::string& title, const std::string& start) : dialog_(parent, ToQt(title)) {
    const QString path = PathToQt(start);
    if (path.isEmpty()) return;
    const QFileInfo info(path);
    if (info.isDir()) {
      dialog_.setDirectory(path);
    } else {
      dialog_.setDirectory(info.absolutePath());
      dialog_.selectFile(info.fileName());
    }
  }

  QFileDialog& Dialog() { return dialog_; }

  std::vector<std::string> Answer() {
    std::vector<std::string> paths;
    if (dialog_.exec() != QDialog::Accepted) return paths;
    for (const QString& path : dialog_.selectedFiles()) paths.push_back(PathFromQt(path));
    return paths;
  }

  std::optional<std::string> OneAnswer() {
    const auto paths = Answer();
    return paths.empty() ? std::nullopt : std::optional(paths.front());
  }

 private:
  QFileDialog dialog_;
};

QColor ToQColor(std::uint32_t color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF), static_cast<int>(color >> 16 & 0xFF)};
}

Font FromQFont(const QFont& font, Font choice) {
  choice.name = FromQt(font.family());
  if (font.pointSize() != qRound(choice.size)) choice.size = font.pointSizeF();
  choice.bold = font.bold();
  choice.italic = font.italic();
  return choice;
}

// Runs `ask` on the GUI thread and returns its answer.
template <typename Ask>
auto Answered(Ask ask) {
  decltype(ask()) answer{};
  OnGuiThread(qApp, [&] { answer = ask(); });
  return answer;
}

}  // namespace

QWidget* WindowPrompts::Parent() const {
  if (QWidget* dialog = QApplication::activeModalWidget()) return dialog;
  return parent_;
}

void WindowPrompts::ShowMessage(const std::string& title, const std::string& text) {
  OnGuiThread(qApp, [&] {
    QMessageBox box(QMessageBox::Information, ToQt(title), QString(), QMessageBox::Ok, Parent());
    Show(box, text);
  });
}

bool WindowPrompts::AskYesNo(const std::string& title, const std::string& question) {
  return Answered([&] {
    QMessageBox box(QMessageBox::Question, ToQt(title), QString(), QMessageBox::Yes | QMessageBox::No, Parent());
    box.setEscapeButton(QMessageBox::No);
    return Show(box, question) == QMessageBox::Yes;
  });
}

std::optional<std::string> WindowPrompts::AskText(const std::string& title, const std::string& question,
                                                  const std::string& proposal) {
  return Answered([&]() -> std::optional<std::string> {
    bool accepted = false;
    const QString text =
        QInputDialog::getText(Parent(), ToQt(title), ToQt(question), QLineEdit::Normal, ToQt(proposal), &accepted);
    if (!accepted) return std::nullopt;
    return FromQt(text);
  });
}

std::optional<std::string> WindowPrompts::AskFileToOpen(const std::string& title,
                                                        const std::vector<FileFilter>& filters,
                                                        const std::string& start) {
  return Answered([&] {
    FileQuestion question(Parent(), title, start);
    question.Dialog().setFileMode(QFileDialog::ExistingFile);
    question.Dialog().setNameFilters(NameFilters(filters));
    return question.OneAnswer();
  });
}

std::vector<std::string> WindowPrompts::AskFilesToOpen(const std::string& title, const std::vector<FileFilter>& filters,
                                                       const std::string& start) {
  return Answered([&] {
    FileQuestion question(Parent(), title, start);
    question.Dialog().setFileMode(QFileDialog::ExistingFiles);
    question.Dialog().setNameFilters(NameFilters(filters));
    return question.Answer();
  });
}

std::optional<std::string> WindowPrompts::AskFileToSave(const std::string& title,
                                                        const std::vector<FileFilter>& filters,
                                                        const std::string& start) {
  return Answered([&] {
    FileQuestion question(Parent(), title, start);
    question.Dialog().setAcceptMode(QFileDialog::AcceptSave);
    question.Dialog().setNameFilters(NameFilters(filters));
    // Completes a name without an extension, so that the dialog asks before it replaces that file.
    if (!filters.empty()) {
      const QString first = ToQt(filters.front().patterns).section(';', 0, 0);
      if (first.startsWith("*.") && first != "*.*") question.Dialog().setDefaultSuffix(first.mid(2));
    }
    return question.OneAnswer();
  });
}

std::optional<std::string> WindowPrompts::AskFolder(const std::string& title, const std::string& start) {
  return Answered([&] {
    FileQuestion question(Parent(), title, start);
    question.Dialog().setFileMode(QFileDialog::Directory);
    question.Dialog().setOption(QFileDialog::ShowDirsOnly);
    return question.OneAnswer();
  });
}

std::optional<std::uint32_t> WindowPrompts::AskColor(const std::string& title, std::uint32_t current) {
  return Answered([&]() -> std::optional<std::uint32_t> {
    const QColor color = QColorDialog::getColor(ToQColor(current), Parent(), ToQt(title));
    if (!color.isValid()) return std::nullopt;
    return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
  });
}

std::optional<Font> WindowPrompts::AskFont(const std::string& title, const Font& current) {
  return Answered([&]() -> std::optional<Font> {
    bool accepted = false;
    const QFont font = QFontDialog::getFont(&accepted, ToQFont(current), Parent(), ToQt(title));
    if (!accepted) return std::nullopt;
    return FromQFont(font, current);
  });
}

}  // namespace captoria
