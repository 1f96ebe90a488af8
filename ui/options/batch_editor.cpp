// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/batch_editor.h"

#include <QAction>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/options/options_page.h"
#include "ui/texts/qt_text.h"

namespace captoria {

BatchEditor::BatchEditor(int index, const Captions& captions, QPushButton* finish, QWidget* parent)
    : QWidget(parent),
      index_(index),
      commands_(Part(new QListWidget(this), "lstCommands")),
      comment_(Part(new QLineEdit(this), "txtComment")),
      add_(Part(new QPushButton(captions.add, this), "cmdAddComm")),
      delete_(Part(new QPushButton(captions.del, this), "cmdDel")) {
  commands_->setUniformItemSizes(true);
  commands_->setLayoutDirection(Qt::LeftToRight);  // commands look the same in every language
  auto* remove = new QAction(commands_);
  remove->setShortcut(QKeySequence::Delete);
  remove->setShortcutContext(Qt::WidgetShortcut);
  commands_->addAction(remove);
  connect(remove, &QAction::triggered, this, &BatchEditor::Delete);
  connect(add_, &QPushButton::clicked, this, &BatchEditor::CommandWanted);
  connect(delete_, &QPushButton::clicked, this, &BatchEditor::Delete);
  connect(comment_, &QLineEdit::textChanged, this, &BatchEditor::CommentChanged);

  auto* comment = new QHBoxLayout;
  comment->addWidget(Part(FieldLabel(comment_, "lblComment", captions.comment), "lblComment"));
  comment->addWidget(comment_, 1);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* button : {add_, delete_}) {
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  buttons->addStretch();
  finish->setAutoDefault(false);
  buttons->addWidget(finish);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addLayout(comment);
  layout->addWidget(Part(FieldLabel(commands_, "lblCommands", captions.commands), "lblCommands"), 0, Qt::AlignLeading);
  layout->addWidget(commands_, 1);
  layout->addLayout(buttons);
}

template <typename Widget>
Widget* BatchEditor::Part(Widget* part, const char* name) {
  parts_.push_back(part);
  part->setProperty("Index", index_);
  return Named(part, name);
}

void BatchEditor::SetFile(const CommandFileText& file) {
  commands_->clear();
  comment_->setText(ToQt(file.comment));
  for (const std::string& line : file.lines) commands_->addItem(ToQt(line));
}

CommandFileText BatchEditor::File() const {
  CommandFileText file{.comment = FromQt(comment_->text()), .lines{}};
  for (int i = 0; i < commands_->count(); ++i) file.lines.push_back(FromQt(commands_->item(i)->text()));
  return file;
}

void BatchEditor::AddCommand(const std::string& line) {
  commands_->addItem(ToQt(line));
  commands_->setCurrentRow(commands_->count() - 1);
  emit CommandsChanged();
}

void BatchEditor::SetUsable(bool usable) {
  for (QWidget* part : parts_) part->setEnabled(usable);
}

void BatchEditor::Delete() {
  const QList<QListWidgetItem*> selected = commands_->selectedItems();
  if (selected.isEmpty()) return;
  qDeleteAll(selected);
  emit CommandsChanged();
}

}  // namespace captoria
