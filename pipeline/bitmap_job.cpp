// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "pipeline/bitmap_job.h"

#include "base/path_text.h"
#include "pipeline/frame_place.h"
#include "platform/files.h"

namespace captoria {
namespace {

std::size_t CountCues(std::span<const SubtitleTrack> tracks) {
  std::size_t count = 0;
  for (const SubtitleTrack& track : tracks) count += track.IsRendered() ? track.cues.size() : 0;
  return count;
}

// Reports the progress of one track as part of the whole.
class PartProgress final : public JobProgress {
 public:
  PartProgress(JobProgress& whole, std::size_t before, std::size_t total)
      : whole_(whole), before_(before), total_(total) {}
  bool Report(std::size_t done, std::size_t) override { return whole_.Report(before_ + done, total_); }

 private:
  JobProgress& whole_;
  std::size_t before_;
  std::size_t total_;
};

Result<void> WriteList(const BitmapJob& job, int number, int line_height, std::span<const Size> sizes) {
  const SubtitleTrack& track = job.tracks[static_cast<std::size_t>(number)];
  std::string list =
      ListHeader(job.form, {track.style.ForeColor, track.style.OutlineColor, track.style.ShadowColor}, job.system);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const SubtitleCue& cue = track.cues[i];
    const Point place = PlaceOnFrame({job.bitmap.width, job.frame_height}, track.style, cue.Tag, CountLines(cue.Text),
                                     line_height, sizes[i].width);
    const std::string bitmap = BitmapFileName(number, i + 1);
    list += ListLine(job.form, {.bitmap = bitmap,
                                .show = cue.Show,
                                .hide = cue.Hide,
                                .width = sizes[i].width,
                                .height = ListedHeight(sizes[i].height),
                                .x = place.x,
                                .y = place.y});
  }
  return WriteWholeFile(JoinPath(job.folder, ListFileName(number)), list, Sync::No);
}

}  // namespace

std::string ListFileName(int track) { return "linkerfile" + std::to_string(track) + ".txt"; }

std::string XsubFileName(int track) { return "aXsub" + std::to_string(track) + ".xsub"; }

Result<FontReport> CreateBitmaps(const std::shared_ptr<FontCollection>& fonts, const BitmapJob& job,
                                 JobProgress& progress) {
  FontReport report;
  const std::size_t total = CountCues(job.tracks);
  std::size_t done = 0;
  for (int number = 0; number < static_cast<int>(job.tracks.size()); ++number) {
    const SubtitleTrack& track = job.tracks[static_cast<std::size_t>(number)];
    if (!track.IsRendered()) continue;
    const CueRun batch{.cues = track.cues, .style = track.style, .frame = job.bitmap, .path_of = [&](std::size_t i) {
                         return JoinPath(job.folder, BitmapFileName(number, i + 1));
                       }};
    PartProgress part(progress, done, total);
    const auto rendered = RenderCues(fonts, batch, job.threads, part);
    if (!rendered) return tl::unexpected(rendered.error());
    report.Add(rendered->fonts);
    const int line_height = SubtitleBitmap(fonts, job.bitmap).LineHeight(track.style.font);
    if (auto written = WriteList(job, number, line_height, rendered->sizes); !written) {
      return tl::unexpected(written.error());
    }
    done += track.cues.size();
  }
  return report;
}

}  // namespace captoria
