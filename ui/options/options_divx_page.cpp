// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_divx_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "localisation/window_texts.h"

namespace captoria {
namespace {

constexpr int kProposedHeight = 570;  // pixels; almost the height of a PAL frame
constexpr int kHighest = 4096;        // pixels

QCheckBox* Check(const char* name, const QString& caption, QWidget* frame) {
  auto* box = Named(new QCheckBox(caption, frame), name);
  frame->layout()->addWidget(box);
  return box;
}

QRadioButton* Option(const char* name, const QString& caption, QWidget* frame) {
  return Named(new QRadioButton(caption, frame), name);
}

// An option, its note and the controls that depend on it.
QLayout* OptionWithParts(QRadioButton* option, QLabel* what, QWidget* part) {
  auto* layout = new QVBoxLayout;
  layout->addWidget(option);
  layout->addLayout(Indented(what));
  layout->addLayout(Indented(part));
  layout->addStretch();
  return layout;
}

}  // namespace

OptionsDivXPage::OptionsDivXPage(const LanguageDocument& language, Prompts& prompts, QWidget* parent)
    : OptionsPage(parent), language_(language), prompts_(prompts) {
  auto* layout = new QGridLayout(this);
  layout->addWidget(BuildMethod(), 0, 0, 1, 2);
  layout->addWidget(BuildConsole(), 1, 0);
  layout->addWidget(BuildTemporaryFiles(), 1, 1);
  layout->addWidget(BuildOutput(), 2, 0, 1, 2);
  layout->setColumnStretch(0, 1);
  layout->setColumnStretch(1, 1);
  layout->setRowStretch(3, 1);
  Connect();
}

QWidget* OptionsDivXPage::BuildMethod() {
  auto* frame = Named(new QGroupBox("Method", this), "FrameMethod");
  auto* layout = new QHBoxLayout(frame);
  layout->addLayout(BuildMuxerAlone(frame), 1);
  layout->addLayout(BuildConverter(frame), 1);
  return frame;
}

QLayout* OptionsDivXPage::BuildMuxerAlone(QGroupBox* frame) {
  muxer_alone_ = Option("optDivXMux", "Use only &DivXMux (Res 640x480)", frame);
  auto* what =
      Note("lblDivXMux", "Program will create bitmaps and use DivXMux only to put them in final DivX file", frame);
  auto* part = new QWidget(frame);
  force_height_ = Named(new QCheckBox("Force &video height to", part), "chkForceVideoHeight");
  height_ = Named(new QSpinBox(part), "txtForceVideoHeight");
  height_->setRange(0, kHighest);
  height_->setAccessibleName("Video height in pixels");
  auto* row = new QHBoxLayout;
  row->addWidget(force_height_);
  row->addWidget(height_);
  row->addWidget(HelpButton("cmdForceVideoHeightHelp", "What forcing the video height is for",
                            TextOf(language_, window_texts::kForceVideoHeightHelp), prompts_, part));
  row->addStretch();
  auto* below = new QVBoxLayout(part);
  below->setContentsMargins({});
  below->addLayout(row);
  below->addLayout(Indented(Note("lblForceVideoHeightNote", "Usually this is your's TV height", part)));
  return OptionWithParts(muxer_alone_, what, part);
}

QLayout* OptionsDivXPage::BuildConverter(QGroupBox* frame) {
  converter_ = Option("optBmpToXSub", "Use &BmpToxSub (Res 720x480)", frame);
  auto* what = Note("lblBmpToXSub",
                    "Program will create bitmaps, use BmpToxSub to make them an xSub file and after DivXMux to put "
                    "them in final DivX file",
                    frame);
  auto* part = new QWidget(frame);
  pal_mode_ = Named(new QCheckBox("Use &PALMODE1", part), "chkUsePalMode1");
  auto* row = new QHBoxLayout(part);
  row->setContentsMargins({});
  row->addWidget(pal_mode_);
  row->addWidget(HelpButton("cmdUsePalMode1Help", "What PALMODE1 does",
                            TextOf(language_, window_texts::kUsePalMode1Help), prompts_, part));
  row->addStretch();
  return OptionWithParts(converter_, what, part);
}

QWidget* OptionsDivXPage::BuildConsole() {
  auto* frame = Named(new QGroupBox("DOS window", this), "FrameDos");
  new QVBoxLayout(frame);
  show_console_ = Check("chkShowDos", "&Show the DOS window", frame);
  console_style_ = Named(new QComboBox(frame), "cmbShowDos");
  console_style_->setAccessibleName("Style of the DOS window");
  console_style_->addItems(
      {"Normal with focus", "Minimized with focus", "Maximized with focus", "Normal no focus", "Minimized no focus"});
  static_cast<QVBoxLayout*>(frame->layout())->addLayout(Indented(console_style_, Qt::AlignLeading));
  pause_ = Check("chkShowDosPause", "Add a pa&use at end (to check for errors)", frame);
  wait_ = Check("chkWaitToEndDos", "Captoria will &wait until DOS window ends and show a message", frame);
  static_cast<QVBoxLayout*>(frame->layout())->addStretch();
  return frame;
}

QWidget* OptionsDivXPage::BuildTemporaryFiles() {
  auto* frame = Named(new QGroupBox("Temporary files", this), "FrameTemp");
  auto* layout = new QVBoxLayout(frame);
  delete_all_ = Check("chkDeleteTemp", "Delete &all temp files at \"<program's folder>\\tmp\"", frame);
  delete_bitmaps_ = Check("chkDeleteBmp", "Delete *.b&mp files at \"<program's folder>\\tmp\"", frame);
  delete_other_ = Check("chkDeleteOther", "Delete all &other files at \"<program's folder>\\tmp\"", frame);
  layout->addStretch();
  return frame;
}

QWidget* OptionsDivXPage::BuildOutput() {
  auto* frame = Named(new QGroupBox("If the output DivX file exist", this), "FrameReplace");
  add_underscore_ = Option("optAddUnderscore", "Add an \"_\" af&ter the name", frame);
  replace_ = Option("optReplaceDivX", "Replace &it", frame);
  auto* options = new QHBoxLayout(frame);
  options->addWidget(add_underscore_);
  options->addWidget(replace_);
  options->addStretch();
  auto* part = new QWidget(this);
  run_ = Named(new QCheckBox("&Run the DivX file after creation", part), "chkRunDivX");
  auto* layout = new QVBoxLayout(part);
  layout->setContentsMargins({});
  layout->addWidget(frame);
  layout->addWidget(run_);
  return part;
}

void OptionsDivXPage::Connect() {
  for (const QAbstractButton* button :
       std::initializer_list<QAbstractButton*>{converter_, force_height_, show_console_, wait_, delete_all_}) {
    connect(button, &QAbstractButton::toggled, this, &OptionsDivXPage::EnableWhatCounts);
  }
  connect(force_height_, &QCheckBox::toggled, this, &OptionsDivXPage::ProposeHeight);
}

void OptionsDivXPage::EnableWhatCounts() {
  pal_mode_->setEnabled(converter_->isChecked());
  force_height_->setEnabled(!converter_->isChecked());
  height_->setEnabled(force_height_->isEnabled() && force_height_->isChecked());
  console_style_->setEnabled(show_console_->isChecked());
  pause_->setEnabled(show_console_->isChecked());
  delete_all_->setEnabled(wait_->isChecked());
  const bool each_kind = wait_->isChecked() && !delete_all_->isChecked();
  delete_bitmaps_->setEnabled(each_kind);
  delete_other_->setEnabled(each_kind);
}

void OptionsDivXPage::ProposeHeight(bool force) {
  if (force && (height_->value() <= 0 || height_->cleanText().isEmpty())) height_->setValue(kProposedHeight);
}

void OptionsDivXPage::Load(const Settings& settings) {
  (settings.UseBmpToXSub ? converter_ : muxer_alone_)->setChecked(true);
  pal_mode_->setChecked(settings.UsePalMode1);
  ShowNumber(height_, settings.ForceVideoHeight);
  force_height_->setChecked(settings.ForceVideoHeight > 0);
  show_console_->setChecked(settings.ShowDos);
  console_style_->setCurrentIndex(std::clamp(settings.ShowDosCombo, 0, console_style_->count() - 1));
  pause_->setChecked(settings.ShowDosPause);
  wait_->setChecked(settings.WaitToEndDos);
  delete_all_->setChecked(settings.deleteTemp);
  delete_bitmaps_->setChecked(settings.deleteBmp);
  delete_other_->setChecked(settings.deleteOther);
  (settings.ReplaceDivX ? replace_ : add_underscore_)->setChecked(true);
  run_->setChecked(settings.RunDivX);
  EnableWhatCounts();
}

void OptionsDivXPage::Store(Settings& settings) const {
  settings.UseBmpToXSub = converter_->isChecked();
  settings.UsePalMode1 = pal_mode_->isChecked();
  settings.ForceVideoHeight = force_height_->isChecked() ? height_->value() : 0;
  settings.ShowDos = show_console_->isChecked();
  settings.ShowDosCombo = console_style_->currentIndex();
  settings.ShowDosPause = pause_->isChecked();
  settings.WaitToEndDos = wait_->isChecked();
  settings.deleteTemp = delete_all_->isChecked();
  settings.deleteBmp = delete_bitmaps_->isChecked();
  settings.deleteOther = delete_other_->isChecked();
  settings.ReplaceDivX = replace_->isChecked();
  settings.RunDivX = run_->isChecked();
}

}  // namespace captoria
