// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How commands report what they noticed, and the one place that knows whether a person watches.
//
// A person gets message boxes. An unattended run must never wait for one, so its faults go to the view alone. Either
// way every finding is kept until somebody takes it.
#pragma once

#include <string>

#include "app/workspace_view.h"
#include "base/finding.h"
#include "platform/prompts.h"

namespace captoria {

inline constexpr const char* kProgramTitle = "Captoria";

enum class Attendance { Person, Nobody };

class Reporter {
 public:
  // `prompts` and `view` outlive the object.
  Reporter(Prompts& prompts, WorkspaceView& view, Attendance attendance)
      : prompts_(prompts), view_(view), attendance_(attendance) {}

  bool HasPerson() const { return attendance_ == Attendance::Person; }

  // A fault that the user should know of at once: a box for a person, with `box_text` if the box has its own words.
  void Tell(Finding finding, const std::string& box_text = {});

  // Something to know later: never a box.
  void Note(Finding finding);

  // Advice that only makes sense to a person; dropped if nobody watches.
  void Advise(const std::string& text);

  // What was reported since the last call.
  Findings Take();

  // While it lives, nothing is reported: for work that repeats what was reported before.
  class Silence {
   public:
    explicit Silence(Reporter& reporter) : reporter_(reporter) { ++reporter_.silences_; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;
    ~Silence() { --reporter_.silences_; }

   private:
    Reporter& reporter_;
  };

 private:
  Prompts& prompts_;
  WorkspaceView& view_;
  Attendance attendance_;
  Findings findings_;
  int silences_ = 0;
};

}  // namespace captoria
