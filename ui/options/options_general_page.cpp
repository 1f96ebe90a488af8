// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_general_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace captoria {

OptionsGeneralPage::OptionsGeneralPage(Prompts& prompts, QWidget* parent) : OptionsPage(parent) {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(BuildAfterVideo(prompts));
  layout->addWidget(BuildAfterSubtitle(prompts));
  layout->addLayout(BuildManyTimes());
  show_streams_ =
      Named(new QCheckBox("Auto show avi &info (streams) after opening an avi file", this), "chkAutoShowAviInfo");
  layout->addWidget(show_streams_);
  layout->addStretch();
}

QWidget* OptionsGeneralPage::BuildAfterVideo(Prompts& prompts) {
  auto* frame = Named(new QGroupBox("After loading an <a name>.avi file", this), "FrameAfterAvi");
  unload_ = Named(new QCheckBox("First &unload all .srt files allready loaded", frame), "chkUnLoadSrt");
  subtitles_beside_ =
      Named(new QCheckBox("&Search to load <a name>*.srt files at same folder", frame), "chkLoadSrtAuto");
  subtitles_ =
      new FolderOption("LoadSrtAutoFolder", "Search to load <a name>*.srt files at this &folder", prompts, frame);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(unload_);
  layout->addWidget(subtitles_beside_);
  layout->addWidget(subtitles_);
  return frame;
}

QWidget* OptionsGeneralPage::BuildAfterSubtitle(Prompts& prompts) {
  auto* frame =
      Named(new QGroupBox("After loading an <a name>.srt file (and not loaded any .avi file)", this), "FrameAfterSrt");
  video_beside_ = Named(new QCheckBox("Search to load <a name>.&avi file at same folder", frame), "chkLoadAviAuto");
  video_ = new FolderOption("LoadAviAutoFolder", "Search to load <a name>.avi file at t&his folder", prompts, frame);
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(video_beside_);
  layout->addWidget(video_);
  return frame;
}

QLayout* OptionsGeneralPage::BuildManyTimes() {
  many_times_ = Named(new QCheckBox("Load the same srt subtitle &multiple times", this), "chkLoadSubManyTimes");
  auto* part = new QWidget(this);
  times_ = Named(new QSpinBox(part), "txtLoadSubManyTimes");
  times_->setRange(1, kMostTracks);
  auto* row = new QHBoxLayout;
  row->addWidget(FieldLabel(times_, "lblLoadSubManyTimes", "&Times to load"));
  row->addWidget(times_);
  row->addStretch();
  auto* below = new QVBoxLayout(part);
  below->setContentsMargins({});
  below->addLayout(row);
  below->addWidget(Note("lblLoadSubManyTimesNote",
                        "Use this to auto load the same subtitle many times with different settings (I use it to "
                        "load the same subtitle with different vertical positions)",
                        part));
  part->setEnabled(false);
  connect(many_times_, &QCheckBox::toggled, part, &QWidget::setEnabled);
  auto* layout = new QVBoxLayout;
  layout->addWidget(many_times_);
  layout->addLayout(Indented(part));
  return layout;
}

void OptionsGeneralPage::Load(const Settings& settings) {
  unload_->setChecked(settings.UnLoadSrt);
  subtitles_beside_->setChecked(settings.LoadSrtAuto);
  subtitles_->SetChecked(settings.LoadSrtAutoFolder);
  subtitles_->SetFolder(settings.LoadSrtAutoFolderText);
  video_beside_->setChecked(settings.LoadAviAuto);
  video_->SetChecked(settings.LoadAviAutoFolder);
  video_->SetFolder(settings.LoadAviAutoFolderText);
  many_times_->setChecked(settings.LoadSubManyTimes > 1);
  ShowNumber(times_, settings.LoadSubManyTimes);
  show_streams_->setChecked(settings.AutoShowAviInfo);
}

void OptionsGeneralPage::Store(Settings& settings) const {
  settings.UnLoadSrt = unload_->isChecked();
  settings.LoadSrtAuto = subtitles_beside_->isChecked();
  settings.LoadSrtAutoFolder = subtitles_->IsChecked();
  settings.LoadSrtAutoFolderText = subtitles_->Folder();
  settings.LoadAviAuto = video_beside_->isChecked();
  settings.LoadAviAutoFolder = video_->IsChecked();
  settings.LoadAviAutoFolderText = video_->Folder();
  settings.LoadSubManyTimes = many_times_->isChecked() ? times_->value() : 1;
  settings.AutoShowAviInfo = show_streams_->isChecked();
}

}  // namespace captoria
