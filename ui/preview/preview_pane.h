// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Shows the selected cue over a picture of the film, and its bitmap alone below. Both show exactly the pixels that a
// conversion writes.
//
// Frames are decoded on another thread and arrive later; cues are drawn at once.
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
  // `workspace` outlives the pane. The preview over the film is initially off.
  PreviewPane(Workspace& workspace, QWidget* parent);

  // Draws `cue` in the style of the current track and keeps a copy of it. Null shows no cue.
  void ShowCue(const SubtitleCue* cue);

  // Call after the project's video changed. Shows its frame FrameForPreview.
  void SetVideo();

  // Off: closes the film and shows only the subtitle picture. On: opens the film again.
  void SetPreviewOn(bool on);

  // Draws the cue again, after a change of its track's style or of a setting for all bitmaps.
  void Repaint();

  // Moves the cue on the film's picture. `value` and `maximum` are those of the vertical position slider.
  void SetVertical(int value, int maximum);

 signals:
  // The height of the subtitle picture changed, in pixels.
  void PictureHeightChanged(int height);

  // Reports why there is no picture of the film. The pane shows the text too.
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
  cDIB bitmap_;      // of the cue; empty without a cue
  int hor_pos_ = 0;  // of the cue's track
  int vertical_ = 0;
  int vertical_maximum_ = 0;

  bool is_on_ = false;
  VideoFrame clean_;        // the film's picture without the cue
  qint64 frames_ = 0;       // of the film
  qint64 duration_ms_ = 0;  // the same
  qint64 wanted_ = 0;       // frame requested last
  bool is_waiting_ = false;
  std::optional<int> next_;  // frame to request after the current one arrives
};

}  // namespace captoria
