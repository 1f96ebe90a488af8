// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/select_subs_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "app/run_commands.h"
#include "automation/command_file.h"
#include "base/text_case.h"
#include "ui/dialogs/dialog_buttons.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

frmSelectSubs::frmSelectSubs(Workspace& workspace, CommandMode mode, QWidget* parent)
    : QDialog(parent), workspace_(workspace), mode_(mode), lines_(new QComboBox(this)) {
  setObjectName("frmSelectSubs");
  setWindowTitle("Select subtitles that have");
  lines_->setObjectName("cmbNumOfLines");
  lines_->addItems({"<any number>", "1", "2", "3"});
  auto* form = new QFormLayout;
  auto* label = new QLabel("&Number of lines", this);
  label->setObjectName("Label1");
  label->setBuddy(lines_);
  form->addRow(label, lines_);
  start_ = AddCondition(form, "Label2", "&Start with", "cmbStart", "txtStart");
  end_ = AddCondition(form, "Label3", "&End with", "cmbEnd", "txtEnd");
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addStretch();
  layout->addLayout(DialogButtons(*this, {"OKButton", "OK"}, {"CancelButton", "Cancel"}));
  ApplyCaptions(*this, workspace_.language.document);
}

frmSelectSubs::Condition frmSelectSubs::AddCondition(QFormLayout* form, const char* label_name, const QString& label,
                                                     const char* where_name, const char* characters_name) {
  const Condition condition{new QComboBox(this), new QLineEdit(this)};
  condition.where->setObjectName(where_name);
  condition.where->addItems({"<anything>", "These chars", "All lines with these chars"});
  condition.characters->setObjectName(characters_name);
  condition.characters->setAccessibleName("Characters");
  QSizePolicy keeps_its_place = condition.characters->sizePolicy();
  keeps_its_place.setRetainSizeWhenHidden(true);
  condition.characters->setSizePolicy(keeps_its_place);
  condition.characters->hide();
  connect(condition.where, &QComboBox::currentIndexChanged, condition.characters,
          [condition] { condition.characters->setVisible(condition.IsSet()); });
  auto* caption = new QLabel(label, this);
  caption->setObjectName(label_name);
  caption->setBuddy(condition.where);
  auto* row = new QHBoxLayout;
  row->addWidget(condition.where);
  row->addWidget(condition.characters, 1);
  form->addRow(caption, row);
  return condition;
}

std::string frmSelectSubs::CharactersOf(const Condition& condition) const {
  if (!condition.IsSet()) return {};
  return LowerCase(FromQt(condition.characters->text()), CaseRuleOf(ProcessEnvironment()));
}

SelectRule frmSelectSubs::Rule() const {
  return {.NumOfLines = lines_->currentText().toInt(),
          .txtToStart = CharactersOf(start_),
          .txtToStartForAll = start_.ForAllLines(),
          .txtToEnd = ReversedCharacters(CharactersOf(end_)),
          .txtToEndForAll = end_.ForAllLines()};
}

void frmSelectSubs::accept() {
  if (lines_->currentIndex() == 0 && !start_.IsSet() && !end_.IsSet()) {
    return workspace_.prompts.ShowMessage(kProgramTitle, workspace_.language.TextOf(messages::kSetSomething));
  }
  if (mode_ == CommandMode::ComposeOnly) {
    composed_ = ComposeCommand(Rule());
  } else {
    const std::size_t selected = RunSelectCommand(workspace_.project, Rule());
    workspace_.prompts.ShowMessage(kProgramTitle,
                                   std::to_string(selected) + workspace_.language.TextOf(messages::kSubtitlesSelected));
  }
  QDialog::accept();
}

}  // namespace captoria
