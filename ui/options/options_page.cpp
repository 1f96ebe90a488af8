// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_page.h"

#include <QHBoxLayout>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr double kNoteSize = 0.9;    // relative to the size of other text
constexpr double kNoteColor = 0.75;  // opacity, relative to other text

}  // namespace

QLabel* FieldLabel(QWidget* field, const char* name, const QString& text) {
  auto* label = Named(new QLabel(text, field->parentWidget()), name);
  label->setBuddy(field);
  return label;
}

QLabel* Note(const char* name, const QString& text, QWidget* parent) {
  auto* note = Named(new QLabel(text, parent), name);
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  QFont font = note->font();
  font.setPointSizeF(font.pointSizeF() * kNoteSize);
  note->setFont(font);
  QPalette palette = note->palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    QColor color = palette.color(group, QPalette::WindowText);
    color.setAlphaF(kNoteColor);
    palette.setColor(group, QPalette::WindowText, color);
  }
  note->setPalette(palette);
  return note;
}

QAbstractButton* SmallButton(const QString& name, const QString& sign, const QString& what, QWidget* parent) {
  auto* button = Named(new QToolButton(parent), name);
  button->setText(sign);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setAccessibleName(what);
  button->setToolTip(what);
  return button;
}

QAbstractButton* HelpButton(const char* name, const QString& about, const std::string& help, Prompts& prompts,
                            QWidget* parent) {
  auto* button = SmallButton(name, "?", about, parent);
  QObject::connect(button, &QAbstractButton::clicked, button,
                   [button, help, &prompts] { prompts.ShowMessage(FromQt(button->window()->windowTitle()), help); });
  return button;
}

QLayout* Indented(QWidget* part, Qt::Alignment alignment) {
  auto* row = new QHBoxLayout;
  const QStyle* style = part->style();
  row->addSpacing(style->pixelMetric(QStyle::PM_IndicatorWidth) + style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));
  row->addWidget(part, 1, alignment);
  return row;
}

void ShowNumber(QSpinBox* field, int number) {
  field->setRange(std::min(field->minimum(), number), std::max(field->maximum(), number));
  field->setValue(number);
}

void PathEdit::SetPath(const std::string& path) {
  shown_ = path;
  setText(PathToQt(path));
}

std::string PathEdit::Path() const { return text() == PathToQt(shown_) ? shown_ : PathFromQt(text()); }

FolderOption::FolderOption(const QString& name, const QString& caption, Prompts& prompts, QWidget* parent)
    : QWidget(parent),
      prompts_(prompts),
      box_(Named(new QCheckBox(caption, this), "chk" + name)),
      folder_(Named(new PathEdit(this), "txt" + name)),
      browse_(SmallButton("cmd" + name, "...", "Choose a folder", this)) {
  folder_->setAccessibleName("Folder");
  connect(browse_, &QAbstractButton::clicked, this, &FolderOption::Browse);
  auto* row = new QWidget(this);
  auto* fields = new QHBoxLayout(row);
  fields->setContentsMargins({});
  fields->addWidget(folder_, 1);
  fields->addWidget(browse_);
  row->setEnabled(false);
  connect(box_, &QCheckBox::toggled, row, &QWidget::setEnabled);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(box_);
  layout->addLayout(Indented(row));
}

void FolderOption::Browse() {
  const auto chosen = prompts_.AskFolder(FromQt(browse_->toolTip()), folder_->Path());
  if (chosen) folder_->SetPath(*chosen);
}

}  // namespace captoria
