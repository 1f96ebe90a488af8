// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/cue_run.h"

#include <algorithm>
#include <atomic>
#include <mutex>
#include <optional>
#include <thread>

namespace captoria {
namespace {

// Cues that a worker takes at a time: few enough that all workers end at about the same time.
constexpr std::size_t kPortion = 16;

// What the workers share.
class SharedBatch {
 public:
  SharedBatch(const CueRun& batch, JobProgress& progress) : batch_(batch), progress_(progress) {
    result_.sizes.resize(batch.cues.size());
  }

  void Work(const std::shared_ptr<FontCollection>& fonts) {
    SubtitleBitmap bitmap(fonts, batch_.frame);
    while (!stopped_) {
      const std::size_t begin = next_.fetch_add(kPortion), end = std::min(begin + kPortion, batch_.cues.size());
      if (begin >= end) break;
      for (std::size_t i = begin; i < end && !stopped_; ++i) Render(i, bitmap);
      Report(end - begin);
    }
    const std::lock_guard lock(mutex_);
    result_.fonts.Add(bitmap.Report());
  }

  Result<RenderedRun> Take() {
    if (error_) return tl::unexpected(*error_);
    return std::move(result_);
  }

 private:
  void Render(std::size_t index, SubtitleBitmap& bitmap) {
    const SubtitleCue& cue = batch_.cues[index];
    bitmap.RenderCueBitmap(cue.Text, StyleOfCue(batch_.style, cue.Tag));
    result_.sizes[index] = {bitmap.Dib().Width(), bitmap.Dib().Height()};
    if (auto saved = bitmap.Dib().Save(batch_.path_of(index)); !saved) Stop(saved.error());
  }

  void Report(std::size_t count) {
    const std::lock_guard lock(mutex_);
    done_ += count;
    if (!stopped_ && !progress_.Report(done_, batch_.cues.size())) {
      error_ = Error{ErrorKind::Cancelled, "cancelled"};
      stopped_ = true;
    }
  }

  void Stop(const Error& error) {
    const std::lock_guard lock(mutex_);
    if (!error_) error_ = error;
    stopped_ = true;
  }

  const CueRun& batch_;
  JobProgress& progress_;
  std::atomic<std::size_t> next_ = 0;
  std::atomic<bool> stopped_ = false;
  std::mutex mutex_;  // for all below
  std::size_t done_ = 0;
  std::optional<Error> error_;
  RenderedRun result_;  // the sizes need no lock: one worker alone writes that of a cue
};

}  // namespace

std::string BitmapFileName(int track, std::size_t cue_number) {
  constexpr std::size_t kDigits = 4;
  const std::string digits = std::to_string(cue_number);
  const std::string zeros(kDigits - std::min(digits.size(), kDigits), '0');
  return "bmp" + std::to_string(track) + zeros + digits + ".bmp";
}

Result<RenderedRun> RenderCues(const std::shared_ptr<FontCollection>& fonts, const CueRun& batch, unsigned threads,
                               JobProgress& progress) {
  SharedBatch shared(batch, progress);
  const std::size_t useful = (batch.cues.size() + kPortion - 1) / kPortion;
  std::vector<std::jthread> workers;
  for (std::size_t i = 1; i < std::min<std::size_t>(threads, useful); ++i) {
    workers.emplace_back([&] { shared.Work(fonts); });
  }
  shared.Work(fonts);
  workers.clear();  // joins
  return shared.Take();
}

}  // namespace captoria
