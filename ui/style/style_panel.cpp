// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/style/style_panel.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "localisation/language_tables.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr int kVerticalMaximum = 10;      // until a video is opened
constexpr int kFarthestBevel = 32767;     // limit of settings files
constexpr int kLeastDropDownWidth = 200;  // pixels
constexpr int kLettersOfClosedList = 16;  // longer entries are elided to keep the panel narrow
constexpr int kSpacing = 6;

QLabel* LabelFor(QWidget* field, const char* name, const QString& caption) {
  auto* label = new QLabel(caption, field->parentWidget());
  label->setObjectName(name);
  label->setBuddy(field);
  return label;
}

QComboBox* List(const char* name, std::span<const std::string_view> entries, QWidget* parent) {
  auto* list = new QComboBox(parent);
  list->setObjectName(name);
  for (const std::string_view entry : entries) list->addItem(ToQt(entry));
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(kLettersOfClosedList);
  list->setMaxVisibleItems(20);
  return list;
}

QLabel* NoteOf(const char* name, const QString& text, QWidget* parent) {
  auto* note = new QLabel(text, parent);
  note->setObjectName(name);
  QFont font = note->font();
  font.setItalic(true);
  note->setFont(font);
  note->setWordWrap(true);
  note->hide();
  return note;
}

}  // namespace

StylePanel::StylePanel(Workspace& workspace, QWidget* parent) : QWidget(parent), workspace_(workspace) {
  setObjectName("StylePanel");
  Build();
  horizontal_->SetRange(kHorPosMin, kHorPosMax);
  horizontal_->ComeHomeTo(0);
  SetVerticalMaximum(kVerticalMaximum);
  LoadCorrectValues();
  Connect();
}

void StylePanel::Build() {
  toolbar_ = new StyleToolBar(this);
  font_ = new QLabel(this);
  font_->setObjectName("lblFont");
  font_->setProperty(kShowsData, true);
  font_->setWordWrap(true);
  right_to_left_ = new QCheckBox("&Right to left", this);
  right_to_left_->setObjectName("chkRightToLeft");
  right_to_left_->setToolTip("Use it for right to left languages");
  vertical_ = new PositionSlider("VertPos", "Vertical &position", "Vertical pos", this);
  horizontal_ = new PositionSlider("HorPos", "H&orizontal position", "Horizontall pos", this);
  own_alignment_ = NoteOf("lblOwnAlign", "Selected subtitle has own alignment", this);
  own_position_ = NoteOf("lblOwnPos", "Selected subtitle has own position", this);
  outline_row_ = BuildOutline();
  alignment_row_ = BuildAlignment();
  KeepAlignmentOrder();

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(kSpacing);
  for (QWidget* row : std::initializer_list<QWidget*>{toolbar_, font_, outline_row_, alignment_row_, own_alignment_,
                                                      right_to_left_, vertical_, own_position_, horizontal_}) {
    layout->addWidget(row);
  }
  auto* stream = new QFormLayout;
  BuildStream(stream);
  layout->addLayout(stream);
  layout->addStretch(1);
}

QWidget* StylePanel::BuildOutline() {
  auto* row = new QWidget(this);
  outline_width_ = new QComboBox(row);
  outline_width_->setObjectName("Combo1");
  for (int width = 0; width <= kOutlineWidthMax; ++width) outline_width_->addItem(QString::number(width));
  bevel_ = new QSpinBox(row);
  bevel_->setObjectName("txtBevel");
  bevel_->setRange(-kFarthestBevel, kFarthestBevel);
  bevel_->setToolTip("Use positive or negative values");

  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  layout->setSpacing(kSpacing);
  layout->addWidget(LabelFor(outline_width_, "lblOutlineWidth", "O&utline width:"));
  layout->addWidget(outline_width_);
  layout->addStretch(1);
  layout->addWidget(LabelFor(bevel_, "lblBevel", "Be&vel:"));
  layout->addWidget(bevel_);
  return row;
}

QWidget* StylePanel::BuildAlignment() {
  struct Button {
    const char* name;
    const char* caption;
    const char* icon;
  };
  static constexpr Button kButtons[] = {{"optLeft", "Left", ":/icons/align-left.svg"},
                                        {"optCenter", "Center", ":/icons/align-center.svg"},
                                        {"optRight", "Right", ":/icons/align-right.svg"}};
  auto* group = new QWidget(this);
  alignment_buttons_ = new QHBoxLayout;
  alignment_buttons_->setSpacing(kSpacing);
  alignment_ = new QButtonGroup(this);
  for (const Button& made : kButtons) {
    auto* button = new QPushButton(QIcon(made.icon), made.caption, group);
    button->setObjectName(made.name);
    button->setCheckable(true);
    alignment_->addButton(button, static_cast<int>(alignment_->buttons().size()));
    alignment_buttons_->addWidget(button);
  }
  auto* layout = new QVBoxLayout(group);
  layout->setContentsMargins({});
  layout->setSpacing(2);
  layout->addWidget(LabelFor(alignment_->button(0), "lblInAlign", "Inside ali&gnment"), 0, Qt::AlignLeading);
  layout->addLayout(alignment_buttons_);
  return group;
}

void StylePanel::BuildStream(QFormLayout* form) {
  language_ = List("Combo2", Languages(), this);
  type_ = List("cmbType", SubtitleTypes(), this);
  type_->setToolTip("Subtitle's type");
  for (const QComboBox* list : {language_, type_}) {
    list->view()->setMinimumWidth(std::max(kLeastDropDownWidth, list->view()->sizeHintForColumn(0)));
  }
  form->setSpacing(kSpacing);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  form->addRow(LabelFor(language_, "lblLang", "&Lang:"), language_);
  form->addRow(LabelFor(type_, "lblType", "T&ype:"), type_);
}

void StylePanel::Connect() {
  // Each control writes its own field and sends StyleChanged. LoadCorrectValues blocks their signals.
  const auto writes = [this](auto* control, auto signal, auto write) {
    connect(control, signal, this, [this, write](auto value) {
      write(Style(), value);
      emit StyleChanged();
    });
  };
  connect(toolbar_, &StyleToolBar::FontAsked, this, &StylePanel::ChooseFont);
  connect(toolbar_, &StyleToolBar::ColorAsked, this, &StylePanel::ChooseColor);
  connect(toolbar_, &StyleToolBar::OutlineWidthAsked, this, &StylePanel::SetOutlineWidth);
  connect(outline_width_, &QComboBox::currentIndexChanged, this, &StylePanel::SetOutlineWidth);
  writes(bevel_, &QSpinBox::valueChanged, [](TrackStyle& style, int bevel) { style.ShadowBevel = bevel; });
  writes(alignment_, &QButtonGroup::idClicked,
         [](TrackStyle& style, int number) { style.InAlign = AlignmentOf(number); });
  writes(right_to_left_, &QCheckBox::toggled, [](TrackStyle& style, bool on) { style.RightToLeft = on; });
  writes(vertical_, &PositionSlider::Moved, [](TrackStyle& style, int position) { style.VertPos = position; });
  writes(horizontal_, &PositionSlider::Moved, [](TrackStyle& style, int position) { style.HorPos = position; });
  writes(language_, &QComboBox::currentTextChanged,
         [](TrackStyle& style, const QString& entry) { style.Language = FromQt(entry); });
  writes(type_, &QComboBox::currentIndexChanged, [](TrackStyle& style, int index) { style.SubType = index + 1; });
}

void StylePanel::LoadCorrectValues() {
  const QSignalBlocker quiet[] = {QSignalBlocker(outline_width_), QSignalBlocker(bevel_),
                                  QSignalBlocker(right_to_left_), QSignalBlocker(language_), QSignalBlocker(type_)};
  TrackStyle& style = Style();
  if (language_->findText(ToQt(style.Language), Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0) {
    style.Language = kDefaultLanguage;
  }
  language_->setCurrentText(ToQt(style.Language));
  type_->setCurrentIndex(style.SubType - 1);
  toolbar_->ShowStyle(style);
  font_->setText(FontText(style.font));
  outline_width_->setCurrentIndex(style.OutlineWidth);
  bevel_->setValue(style.ShadowBevel);
  alignment_->button(static_cast<int>(style.InAlign))->setChecked(true);
  right_to_left_->setChecked(style.RightToLeft);
  vertical_->SetRange(0, std::max(VerticalMaximum(), style.VertPos));
  vertical_->ShowValue(style.VertPos);
  horizontal_->ShowValue(style.HorPos);
}

// Left and right refer to the video frame, which no language mirrors.
void StylePanel::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange) KeepAlignmentOrder();
  QWidget::changeEvent(event);
}

void StylePanel::KeepAlignmentOrder() {
  alignment_buttons_->setDirection(isRightToLeft() ? QBoxLayout::RightToLeft : QBoxLayout::LeftToRight);
}

void StylePanel::EnableButtons(bool enable) {
  for (QAction* action : StyleActions()) action->setEnabled(enable);
  for (QWidget* part :
       std::initializer_list<QWidget*>{font_, outline_row_, alignment_row_, right_to_left_, vertical_, horizontal_}) {
    part->setEnabled(enable);
  }
}

void StylePanel::ShowOwn(const Placement& placement) {
  own_alignment_->setVisible(placement.alignment.has_value());
  own_position_->setVisible(placement.position.has_value());
}

void StylePanel::SetVerticalMaximum(int maximum) { vertical_->SetRange(0, std::max(maximum, 0)); }

void StylePanel::ChooseFont() {
  const auto chosen =
      workspace_.prompts.AskFont(TextOf(workspace_.language.document, window_texts::kFont), Style().font);
  if (!chosen) return;
  Style().font = *chosen;
  LoadCorrectValues();
  emit FontChanged();
}

void StylePanel::ChooseColor(int palette_entry) {
  const StyleColor& asked = kStyleColors.at(static_cast<std::size_t>(palette_entry - 1));
  Color& color = Style().*asked.color;
  const auto chosen = workspace_.prompts.AskColor(TextOf(workspace_.language.document, asked.title),
                                                  static_cast<std::uint32_t>(ColorNumber(color)));
  if (!chosen) return;
  color = SplitColour(static_cast<std::int32_t>(*chosen));
  LoadCorrectValues();
  emit StyleChanged();
}

void StylePanel::SetOutlineWidth(int width) {
  Style().OutlineWidth = std::clamp(width, 0, kOutlineWidthMax);
  LoadCorrectValues();
  emit StyleChanged();
}

}  // namespace captoria
