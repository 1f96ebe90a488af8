// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/preview/preview_pane.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>
#include <utility>

#include "subtitles/time_code.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr QRgb kDark = 0xFF1E1E1E;

// The pane keeps its height between cues of one and two lines. Higher bitmaps are reduced.
constexpr int kMostReserved = 160;

constexpr qint64 kPages = 40;  // page steps of the slider from start to end

QColor ColorOf(const Color& color) { return {color.red, color.green, color.blue}; }

VideoFrame FrameOf(const QImage& image) {
  VideoFrame frame{.width = image.width(), .height = image.height(), .pixels = {}};
  frame.pixels.assign(image.constBits(), image.constBits() + image.sizeInBytes());
  return frame;
}

}  // namespace

PreviewPane::PreviewPane(Workspace& workspace, QWidget* parent) : QWidget(parent), workspace_(workspace) {
  Build();
  Connect();
  Repaint();
}

QString PreviewPane::Words(const WindowText& text) const { return ToQt(TextOf(workspace_.language.document, text)); }

void PreviewPane::Build() {
  video_ = new PictureView("Picture of the video with the subtitle", this);
  video_->setObjectName("VideoPicture");
  video_->SetSurroundings(kDark);
  video_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  film_bar_ = BuildFilmBar();
  subtitle_ = new PictureView("Subtitle picture", this);
  subtitle_->setObjectName("SubtitlePicture");
  subtitle_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(video_, 1);
  layout->addWidget(film_bar_);
  layout->addWidget(subtitle_);
  video_->hide();
  film_bar_->hide();
}

QWidget* PreviewPane::BuildFilmBar() {
  auto* bar = new QWidget(this);
  auto* caption = new QLabel("Fra&me", bar);
  caption->setObjectName("FrameCaption");
  slider_ = new QSlider(Qt::Horizontal, bar);
  slider_->setObjectName("FrameSlider");
  slider_->setAccessibleName("Frame of the video");
  slider_->setToolTip("Moves through the video. Arrow keys move by one frame.");
  caption->setBuddy(slider_);
  position_ = new QLabel(bar);
  position_->setObjectName("FramePosition");
  position_->setProperty(kShowsData, true);
  position_->setAccessibleName("Number and time of the frame");
  position_->setMinimumWidth(position_->fontMetrics().horizontalAdvance("0000000 \u2013 00:00:00,000"));
  at_cue_ = new QCheckBox("Frame at the cue's &time", bar);
  at_cue_->setObjectName("FrameAtCue");
  at_cue_->setToolTip("Shows each subtitle over the frame where it appears.");

  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins(6, 0, 6, 0);
  layout->addWidget(caption);
  layout->addWidget(slider_, 1);
  layout->addWidget(position_);
  layout->addWidget(at_cue_);
  return bar;
}

void PreviewPane::Connect() {
  connect(&loader_, &FrameLoader::Opened, this,
          [this](int, int, qint64 frames, qint64 duration) { TakeFilm(frames, duration); });
  connect(&loader_, &FrameLoader::FrameReady, this, [this](qint64, const QImage& image) { TakeFrame(image); });
  connect(&loader_, &FrameLoader::Failed, this, &PreviewPane::TakeFailure);
  connect(slider_, &QSlider::valueChanged, this, &PreviewPane::TakeSlider);
  connect(at_cue_, &QCheckBox::toggled, this, &PreviewPane::WantFrameOfCue);
}

void PreviewPane::ShowCue(const SubtitleCue* cue) {
  // Redrawing the same cue keeps the frame the user moved to.
  const bool is_other = cue != nullptr && (!cue_ || cue_->Number != cue->Number || cue_->Show != cue->Show);
  cue_ = cue == nullptr ? std::nullopt : std::optional{*cue};
  Repaint();
  if (is_other) WantFrameOfCue();
}

void PreviewPane::Repaint() {
  const int height = bitmap_.Height();
  bitmap_.Destroy();
  // The language may have changed.
  if (workspace_.project.video.AviPath.empty()) video_->SetText(Words(window_texts::kOpenVideo));
  subtitle_->SetSurroundings(ColorOf(SplitColour(workspace_.preferences.settings.BackColor)));
  if (cue_) {
    const auto shared = workspace_.canvas.Bitmap(FrameOf(workspace_.preferences.settings));
    if (!shared) return subtitle_->SetText(ToQt(shared.error().message));
    const TrackStyle& style = workspace_.project.tracks.Current().style;
    (*shared)->RenderCueBitmap(cue_->Text, StyleOfCue(style, cue_->Tag));
    bitmap_ = (*shared)->Dib();
    hor_pos_ = style.HorPos;
    subtitle_->SetImage(ToImage(ImageOf(bitmap_)));
    subtitle_->setAccessibleDescription(ToQt(cue_->Text));
  } else {
    subtitle_->SetText(Words(window_texts::kChooseSubtitle));
  }
  ReserveHeight(false);
  Compose();
  if (bitmap_.Height() != height && cue_) emit PictureHeightChanged(bitmap_.Height());
}

void PreviewPane::ReserveHeight(bool anew) {
  const int needed = std::clamp(bitmap_.Height(), subtitle_->minimumSizeHint().height(), kMostReserved);
  subtitle_->setMinimumHeight(anew ? needed : std::max(subtitle_->minimumHeight(), needed));
  subtitle_->setMaximumHeight(is_on_ ? subtitle_->minimumHeight() : QWIDGETSIZE_MAX);
}

// Draws the cue over the film's picture. Must not read the workspace: another thread may be using it when a frame
// arrives.
void PreviewPane::Compose() {
  if (clean_.pixels.empty()) return;
  VideoFrame shown = clean_;
  const Point at = PlaceOnPreview({shown.width, shown.height}, {bitmap_.Width(), bitmap_.Height()}, hor_pos_, vertical_,
                                  vertical_maximum_);
  Overlay(shown, bitmap_, at, bitmap_.Palette()[0]);
  video_->SetImage(ToImage(std::move(shown)));
}

void PreviewPane::SetVertical(int value, int maximum) {
  if (std::pair{value, maximum} == std::pair{vertical_, vertical_maximum_}) return;
  vertical_ = value;
  vertical_maximum_ = maximum;
  Compose();
}

void PreviewPane::SetPreviewOn(bool on) {
  if (on == is_on_) return;
  is_on_ = on;
  video_->setVisible(on);
  film_bar_->setVisible(on);
  ReserveHeight(true);
  SetVideo();
}

void PreviewPane::SetVideo() {
  const std::string& path = workspace_.project.video.AviPath;
  const bool is_open = is_on_ && !path.empty();
  ClearFilm(is_open ? QString{} : Words(window_texts::kOpenVideo));
  frames_ = duration_ms_ = 0;
  slider_->setEnabled(false);
  position_->clear();
  if (!is_open) return loader_.Close();
  loader_.Open(path);
  const int frame = workspace_.preferences.settings.FrameForPreview;
  Want(frame == -1 ? 0 : frame);
}

void PreviewPane::ClearFilm(const QString& why) {
  clean_ = {};
  next_.reset();
  is_waiting_ = false;
  video_->SetText(why);
}

void PreviewPane::TakeFilm(qint64 frames, qint64 duration_ms) {
  frames_ = frames;
  duration_ms_ = duration_ms;
  const QSignalBlocker unmoved(slider_);
  const auto last = static_cast<int>(std::clamp<qint64>(frames - 1, 0, std::numeric_limits<int>::max()));
  slider_->setRange(0, last);
  slider_->setPageStep(static_cast<int>(std::max<qint64>(1, frames / kPages)));
  slider_->setEnabled(last > 0);
  ShowPosition(wanted_);
  WantFrameOfCue();
}

void PreviewPane::Want(qint64 frame) {
  wanted_ = frame;
  is_waiting_ = true;
  next_.reset();
  loader_.Request(frame);
  ShowPosition(frame);
}

void PreviewPane::WantFrameOfCue() {
  Milliseconds start{};
  if (!at_cue_->isChecked() || !cue_ || duration_ms_ == 0 || ReadTimeCode(cue_->Show, start)) return;
  if (const qint64 frame = start.count() * frames_ / duration_ms_; frame != wanted_) Want(frame);
}

void PreviewPane::ShowPosition(qint64 frame) {
  if (frames_ == 0) return;
  const QSignalBlocker unmoved(slider_);
  slider_->setValue(static_cast<int>(std::clamp<qint64>(frame, 0, slider_->maximum())));
  const qint64 whole = frame / frames_, rest = frame % frames_;
  const Milliseconds time{std::max<qint64>(0, whole * duration_ms_ + rest * duration_ms_ / frames_)};
  position_->setText(QString::number(frame) + QStringLiteral(" \u2013 ") + ToQt(FormatTimeCode(time)));
}

void PreviewPane::TakeSlider(int frame) {
  // While the user drags the slider, wait for each picture before requesting the next, so that the film moves.
  if (slider_->isSliderDown() && is_waiting_) {
    next_ = frame;
    ShowPosition(frame);
  } else {
    Want(frame);
  }
}

void PreviewPane::TakeFrame(const QImage& image) {
  clean_ = FrameOf(image);
  Compose();
  AskForNext();
}

void PreviewPane::TakeFailure(const QString& text) {
  clean_ = {};
  video_->SetText(text);
  emit Told(text);
  AskForNext();
}

void PreviewPane::AskForNext() {
  is_waiting_ = false;
  if (next_) Want(*next_);
}

}  // namespace captoria
