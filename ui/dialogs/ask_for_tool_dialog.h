// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Asks where a missing tool is. OK accepts only the path of an existing file.
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
  // `workspace` and `opener` outlive the dialog. Links are empty unless the language file fills them; an empty link and
  // its caption are hidden.
  AskForToolDialog(Workspace& workspace, Tool tool, DocumentOpener& opener, QWidget* parent);

  // Asks until there is a path, which is then in the settings. False: the user gave up.
  static bool Ask(Workspace& workspace, Tool tool, QWidget* parent);

  void accept() override;
  void setVisible(bool visible) override;

 private:
  QLabel* AddLabel(QVBoxLayout* layout, const char* name, const QString& text);
  void AddLink(QVBoxLayout* layout, const char* name, DocumentOpener& opener);
  void AddTexts(QVBoxLayout* layout, DocumentOpener& opener);
  void AddPath(QVBoxLayout* layout);
  void Browse();

  Workspace& workspace_;
  Tool tool_;
  QLineEdit* path_;
};

}  // namespace captoria
