// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/position_dialog.h"

#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/placement_commands.h"
#include "automation/command_file.h"
#include "ui/dialogs/dialog_buttons.h"
#include "ui/texts/captions.h"

namespace captoria {
namespace {

PlacementCommand CommandOf(const Placement& placement) {
  PlacementCommand command;
  command.toChangePos = placement.position.has_value();
  command.position = placement.position.value_or(0);
  command.toChangeAl = placement.alignment.has_value();
  if (placement.alignment) command.alignment = LetterOf(*placement.alignment);
  return command;
}

}  // namespace

Form3::Form3(Workspace& workspace, CommandMode mode, const PositionDialogStart& start, QWidget* parent)
    : QDialog(parent),
      workspace_(workspace),
      mode_(mode),
      cue_(start.cue),
      tag_(start.cue == nullptr ? std::string{} : start.cue->Tag) {
  setObjectName("Form3");
  setWindowTitle("Pos and alignment for selected subtitles");
  Build(start.maximum);
  if (cue_ != nullptr) ShowStart(start.position);
  ApplyCaptions(*this, workspace_.language.document);
}

void Form3::Build(int maximum) {
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(BuildPosition(maximum));
  layout->addLayout(BuildAlignment());
  layout->addStretch();
  layout->addLayout(DialogButtons(*this, {"cmdOk", "Ok"}, {"cmdCancel", "Cancel"}));
  resize(QFontMetrics(font()).averageCharWidth() * 60, sizeHint().height());
}

QLayout* Form3::BuildPosition(int maximum) {
  with_position_ = new QCheckBox("&Vertical position", this);
  with_position_->setObjectName("chkVer");
  with_position_->setToolTip("Check it if you want to set vertical position for selected subtitles");
  position_ = new QSlider(Qt::Horizontal, this);
  position_->setObjectName("Slider1");
  position_->setAccessibleName("Vertical position");
  position_->setLayoutDirection(Qt::LeftToRight);
  position_->setPageStep(5);
  position_->setMaximum(maximum);
  number_ = new QLabel("0", this);
  number_->setObjectName("lblPos");
  number_->setProperty(kShowsData, true);
  number_->setMinimumWidth(number_->fontMetrics().horizontalAdvance("0000"));
  number_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  connect(position_, &QSlider::valueChanged, this, [this](int value) {
    number_->setNum(value);
    with_position_->setChecked(true);
    Preview();
  });
  connect(with_position_, &QCheckBox::toggled, this, &Form3::Preview);
  auto* row = new QHBoxLayout;
  row->addWidget(with_position_);
  row->addWidget(position_, 1);
  row->addWidget(number_);
  return row;
}

QLayout* Form3::BuildAlignment() {
  with_alignment_ = new QCheckBox("&Inside Alignment", this);
  with_alignment_->setObjectName("chkIn");
  with_alignment_->setToolTip("Check it if you want to set inside alignment for selected subtitles");
  alignment_ = new QButtonGroup(this);
  auto* row = new QHBoxLayout;
  row->addWidget(with_alignment_);
  const QString captions[] = {"&Left", "&Center", "&Right"};
  for (int i = 0; i < 3; ++i) {
    auto* option = new QRadioButton(captions[i], this);
    option->setObjectName(QStringLiteral("Option%1").arg(i + 1));
    alignment_->addButton(option, i);
    row->addWidget(option);
  }
  row->addStretch();
  alignment_->button(1)->setChecked(true);
  connect(alignment_, &QButtonGroup::idClicked, this, [this] {
    with_alignment_->setChecked(true);
    Preview();
  });
  connect(with_alignment_, &QCheckBox::toggled, this, &Form3::Preview);
  return row;
}

// Leaves both boxes unchecked: only what the user touches is applied.
void Form3::ShowStart(int position) {
  const Placement own = ReadPlacement(tag_);
  const QSignalBlocker quiet(position_);
  position_->setValue(own.position.value_or(position));
  number_->setNum(position_->value());
  const Alignment alignment = own.alignment.value_or(workspace_.project.tracks.Current().style.InAlign);
  alignment_->button(static_cast<int>(alignment))->setChecked(true);
}

Placement Form3::Chosen() const {
  Placement chosen;
  if (with_position_->isChecked()) chosen.position = position_->value();
  if (with_alignment_->isChecked()) chosen.alignment = AlignmentOf(alignment_->checkedId());
  return chosen;
}

void Form3::Preview() {
  if (mode_ == CommandMode::ComposeOnly || cue_ == nullptr) return;
  const Placement chosen = Chosen();
  cue_->Tag = chosen.position || chosen.alignment ? WithPlacement(tag_, chosen) : tag_;
  emit Previewed();
}

void Form3::Restore() {
  if (mode_ == CommandMode::Apply && cue_ != nullptr) cue_->Tag = tag_;
}

void Form3::accept() {
  const Placement chosen = Chosen();
  if (!chosen.position && !chosen.alignment) {
    return workspace_.prompts.ShowMessage(kProgramTitle, workspace_.language.TextOf(messages::kSelectToUpdate));
  }
  Restore();  // the current cue may not be selected
  if (mode_ == CommandMode::ComposeOnly) {
    composed_ = ComposeCommand(CommandOf(chosen));
  } else {
    RunPosAlCommand(workspace_.project, CommandOf(chosen));
  }
  QDialog::accept();
}

void Form3::reject() {
  Restore();
  QDialog::reject();
}

}  // namespace captoria
