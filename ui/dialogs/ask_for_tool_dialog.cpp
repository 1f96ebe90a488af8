// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/ask_for_tool_dialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialogs/dialog_buttons.h"
#include "ui/dialogs/link_label.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

AskForToolDialog::AskForToolDialog(Workspace& workspace, Tool tool, DocumentOpener& opener, QWidget* parent)
    : QDialog(parent), workspace_(workspace), tool_(tool), path_(new QLineEdit(this)) {
  setObjectName(tool == Tool::DivXMux ? "frmAskForDivXMux" : "frmAskForbmptoxsub");
  setWindowTitle("File not found");
  auto* layout = new QVBoxLayout(this);
  AddTexts(layout, opener);
  layout->addStretch();
  layout->addLayout(DialogButtons(*this, {"OKButton", "OK"}, {"CancelButton", "Cancel"}));
  path_->setFocus();
  ApplyCaptions(*this, workspace_.language.document);
}

QLabel* AskForToolDialog::AddLabel(QVBoxLayout* layout, const char* name, const QString& text) {
  auto* label = new QLabel(text, this);
  label->setObjectName(name);
  label->setWordWrap(true);
  layout->addWidget(label);
  return label;
}

void AskForToolDialog::AddLink(QVBoxLayout* layout, const char* name, DocumentOpener& opener) {
  auto* link = new LinkLabel(opener, LinkLabel::AddressIn::Caption, this);
  link->setObjectName(name);
  connect(link, &LinkLabel::NotOpened, this,
          [this](const QString& reason) { workspace_.prompts.ShowMessage(kProgramTitle, FromQt(reason)); });
  layout->addWidget(link, 0, Qt::AlignLeading);
}

void AskForToolDialog::AddTexts(QVBoxLayout* layout, DocumentOpener& opener) {
  const QString file = ToQt(FileNameOf(tool_));
  AddLabel(layout, "Label1", QStringLiteral("File %1 not found. Please, set the path for this file").arg(file))
      ->setBuddy(path_);
  path_->setAccessibleName(QStringLiteral("Path of %1").arg(file));
  AddPath(layout);
  AddLabel(layout, "Label2", "You can found this file at this link");
  AddLink(layout, "Label3", opener);
  if (tool_ == Tool::DivXMux) {
    AddLabel(layout, "Label4", "Direct link");
    AddLink(layout, "Label5", opener);
    AddLabel(layout, "Label6", "or just download the required DivXMux.exe file from my page");
    AddLink(layout, "Label7", opener);
  } else {
    AddLabel(layout, "Label4", "A working copy for this file can be download from my site");
    AddLink(layout, "Label5", opener);
  }
}

void AskForToolDialog::AddPath(QVBoxLayout* layout) {
  path_->setObjectName("Text1");
  path_->setMinimumWidth(QFontMetrics(font()).averageCharWidth() * 55);
  auto* browse = new QPushButton("&Browse...", this);
  browse->setObjectName("Command1");
  browse->setAutoDefault(false);
  connect(browse, &QPushButton::clicked, this, &AskForToolDialog::Browse);
  auto* row = new QHBoxLayout;
  row->addWidget(path_, 1);
  row->addWidget(browse);
  layout->addLayout(row);
}

// Hides empty links before the dialog gets its size.
void AskForToolDialog::setVisible(bool visible) {
  for (auto* link : findChildren<LinkLabel*>()) {
    const int number = link->objectName().mid(5).toInt();
    auto* words = findChild<QLabel*>("Label" + QString::number(number - 1));
    link->setHidden(link->Address().isEmpty());
    words->setHidden(link->Address().isEmpty());
  }
  QDialog::setVisible(visible);
}

void AskForToolDialog::Browse() {
  const std::string name = FileNameOf(tool_);
  const auto chosen =
      workspace_.prompts.AskFileToOpen(FromQt(windowTitle()), {{name, name}}, PathFromQt(path_->text()));
  if (chosen) path_->setText(PathToQt(*chosen));
}

void AskForToolDialog::accept() {
  const auto refused = AcceptToolPath(workspace_, tool_, PathFromQt(path_->text()));
  if (!refused) return QDialog::accept();
  workspace_.prompts.ShowMessage(kProgramTitle, *refused);
  path_->setFocus();
  path_->selectAll();
}

bool AskForToolDialog::Ask(Workspace& workspace, Tool tool, QWidget* parent) {
  DesktopOpener opener;
  return AskForToolDialog(workspace, tool, opener, parent).exec() == QDialog::Accepted;
}

}  // namespace captoria
