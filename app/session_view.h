// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a session shows while its commands run. A window draws it, a command line mostly does not; what a command wants
// to know of a person it asks through the prompts.
#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include "base/job_progress.h"

namespace captoria {

// What long work is made of, and so what its progress counts.
enum class Work {
  Bitmaps,  // cues
  Film,     // KiB
};

class SessionView {
 public:
  virtual ~SessionView() = default;

  // The video, and with it the stream table, the video system and the preview's picture, is another one.
  virtual void ShowVideo() {}

  // The stream table is brought before the user's eyes.
  virtual void BringUpStreams() {}

  // The tabs, the current track or its cues are others. The title of the window names the current track's file.
  virtual void ShowTracks() {}

  // A command file was run on the current track: the tags and the selection of its cues are others, `selected` of them
  // are selected now.
  virtual void ShowCommandsRun(const std::string& /*file_name*/, std::size_t /*selected*/) {}

  // The texts of the program are those of another language.
  virtual void ShowLanguage() {}

  // Something worth telling that needs no answer: a file that was read only half-way, a letter no font has.
  virtual void Warn(const std::string& text) = 0;

  // Where the work that begins now tells how far it is and learns that it should stop. The work ends with the object.
  virtual std::unique_ptr<JobProgress> BeginWork(Work work) = 0;
};

}  // namespace captoria
