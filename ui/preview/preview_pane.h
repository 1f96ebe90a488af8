// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the selected cue will look like: over a picture of the film, and below that its bitmap by itself. Both are the
// very pixels that a conversion writes.
//
// Frames are decoded beside the window and come when they come; cues are drawn at once.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QSlider>
#include <QWidget>
#include <optional>

#include "app/workspace.h"
#include "localisation/window_texts.h"
#include "render/preview.h"
#include "subtitles/cue.h"
#include "ui/preview/frame_loader.h"
#include "ui/preview/picture_view.h"

namespace captoria {

class PreviewPane final : public QWidget {
  Q_OBJECT

 public:
  // `workspace` outlives the pane. The preview over the film is off at first.
  PreviewPane(Workspace& workspace, QWidget* parent);

  // Draws `cue` in the style of the current track; a copy of it is kept. Null: no cue is shown.
  void ShowCue(const SubtitleCue* cue);

  // The session's video is another one. Shows its frame FrameForPreview.
  void SetVideo();

  // Off: only the subtitle picture is shown, and the film is let go of. On: its frame is fetched anew.
  void SetPreviewOn(bool on);

  // Draws the cue again: the style of its track, or a setting of all bitmaps, has changed.
  void Repaint();

  // Where the slider for the vertical position stands; the cue's bitmap is moved on the film's picture.
  void SetVertical(int value, int maximum);

 signals:
  // Of the subtitle picture, in pixels.
  void PictureHeightChanged(int height);

  // Why there is no picture of the film. The pane shows it too.
  void Told(const QString& text);

 private:
  void Build();
  QWidget* BuildFilmBar();
  void Connect();

  QString Words(const WindowText& text) const;
  void Compose();
  void ReserveHeight(bool anew);
  void ClearFilm(const QString& why);
  void Want(qint64 frame);
  void WantFrameOfCue();
  void ShowPosition(qint64 frame);

  void TakeFilm(qint64 frames, qint64 duration_ms);
  void TakeFrame(const QImage& image);
  void TakeFailure(const QString& text);
  void TakeSlider(int frame);
  void AskForNext();

  Workspace& workspace_;
  FrameLoader loader_;
  PictureView* video_;
  PictureView* subtitle_;
  QWidget* film_bar_;
  QSlider* slider_;
  QLabel* position_;
  QCheckBox* at_cue_;

  std::optional<SubtitleCue> cue_;
  cDIB bitmap_;      // of the cue; none without one
  int hor_pos_ = 0;  // of its track
  int vertical_ = 0;
  int vertical_maximum_ = 0;

  bool is_on_ = false;
  VideoFrame clean_;        // the film's picture without the cue
  qint64 frames_ = 0;       // of the film
  qint64 duration_ms_ = 0;  // the same
  qint64 wanted_ = 0;       // frame that was asked for last
  bool is_waiting_ = false;
  std::optional<int> next_;  // frame to ask for when the answer has come
};

}  // namespace captoria
