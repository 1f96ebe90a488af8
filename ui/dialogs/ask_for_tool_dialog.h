// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks for the place of a tool that is nowhere to be found. It is left with the path of a file that is there, or not at
// all.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <optional>
#include <string>

#include "app/locate_tool.h"
#include "platform/document_opener.h"

class QLabel;
class QVBoxLayout;

namespace captoria {

// The object's name is "frmAskForDivXMux" or "frmAskForbmptoxsub".
class AskForToolDialog final : public QDialog {
 public:
  // `session` and `opener` outlive the dialog. Link labels begin empty; one that is empty when the dialog is shown is
  // hidden, and so are the words that lead to it.
  AskForToolDialog(Session& session, Tool tool, DocumentOpener& opener, QWidget* parent);

  // The path, which is then in the settings as well; nothing when the user gave up. On any thread.
  static std::optional<std::string> Ask(Session& session, Tool tool, QWidget* parent);

  void accept() override;
  void setVisible(bool visible) override;

 private:
  QLabel* AddLabel(QVBoxLayout* layout, const char* name, const QString& text);
  void AddLink(QVBoxLayout* layout, const char* name, DocumentOpener& opener);
  void AddTexts(QVBoxLayout* layout, DocumentOpener& opener);
  void AddPath(QVBoxLayout* layout);
  void Browse();

  Session& session_;
  Tool tool_;
  QLineEdit* path_;
};

}  // namespace captoria
