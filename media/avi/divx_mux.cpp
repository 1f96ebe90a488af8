// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/divx_mux.h"

#include <algorithm>
#include <utility>

#include "media/avi/audio_languages.h"
#include "media/avi/avi_writer.h"
#include "media/avi/interleave_schedule.h"
#include "media/xsub/xsub_stream.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::size_t kMostStreams = 100;  // a stream number has two digits

// An estimate: packets are only made when they are written, so their real sizes are not known before.
constexpr std::uint64_t kUsualPacket = 8192;

// Bytes of the source between two progress reports.
constexpr std::uint64_t kReportEvery = std::uint64_t{4} << 20;

constexpr std::uint64_t kLargestForPlayers = 2'000'000'000;

bool IsVideo(const AviStream& stream) { return stream.header.type == "vids" && !stream.IsXsub(); }

Result<void> CheckStreams(const MuxJob& job) {
  if (job.streams.empty()) return Failure(ErrorKind::Unsupported, job.output + ": would contain no stream");
  if (job.streams.size() > kMostStreams) {
    return Failure(ErrorKind::TooLarge, job.output + ": an AVI file holds at most 100 streams");
  }
  std::vector<bool> taken(job.source.Streams().size());
  for (const MuxStream& stream : job.streams) {
    if (stream.subtitle != nullptr) {
      if (stream.subtitle->Count() > 0) continue;
      return Failure(ErrorKind::Damaged, "the subtitle stream \"" + stream.title + "\" contains no subtitle");
    }
    const auto number = static_cast<std::size_t>(stream.source_stream);
    const std::string name = job.source.File().Path() + ": stream " + std::to_string(stream.source_stream);
    if (stream.source_stream < 0 || number >= taken.size())
      return Failure(ErrorKind::NotFound, name + " does not exist");
    if (taken[number]) return Failure(ErrorKind::Unsupported, name + " is given twice");
    taken[number] = true;
  }
  return {};
}

Result<void> CheckOutput(const MuxJob& job) {
  if (IsSameFile(job.output, job.source.File().Path())) {
    return Failure(ErrorKind::Unwritable, job.output + ": is the source itself, which is never overwritten");
  }
  if (FolderExists(job.output)) return Failure(ErrorKind::Unwritable, job.output + ": is a folder");
  return {};
}

// Copies the film's chunks and inserts the subtitle packets.
class FilmMux {
 public:
  FilmMux(const MuxJob& job, JobProgress& progress) : job_(job), progress_(progress) {
    numbers_.assign(job.source.Streams().size(), -1);
    for (std::size_t i = 0; i < job.streams.size(); ++i) {
      if (job.streams[i].subtitle != nullptr) continue;
      const auto source = static_cast<std::size_t>(job.streams[i].source_stream);
      numbers_[source] = static_cast<int>(i);
      if (video_ < 0 && IsVideo(job.source.Streams()[source])) video_ = job.streams[i].source_stream;
    }
  }

  std::uint64_t ExpectedSize() const {
    std::uint64_t size = job_.source.File().Size();
    for (const MuxStream& stream : job_.streams) {
      if (stream.subtitle != nullptr) size += stream.subtitle->Count() * kUsualPacket;
    }
    return size;
  }

  Result<std::uint64_t> Run(bool open_dml) {
    auto writer = AviWriter::Create(job_.output, Layout(open_dml));
    if (!writer) return tl::unexpected(writer.error());
    auto copied = CopyChunks(**writer);
    if (!copied) return tl::unexpected(copied.error());
    return (*writer)->Finish();
  }

 private:
  AviLayout Layout(bool open_dml) const {
    AviLayout layout;
    layout.main = job_.source.Main();
    layout.open_dml = open_dml;
    layout.riff_limit = job_.riff_limit;
    layout.expected_size = ExpectedSize();
    for (const RiffPiece& extra : job_.source.Extras()) layout.extras.push_back(WithAudioLanguages(extra, Sounds()));
    for (const MuxStream& stream : job_.streams) {
      if (stream.subtitle != nullptr) {
        const SubtitleSource& subtitle = *stream.subtitle;
        layout.streams.push_back(XsubStream(subtitle.Frame(), subtitle.Count(), stream.title, job_.profile));
      } else {
        layout.streams.push_back(job_.source.Streams()[static_cast<std::size_t>(stream.source_stream)]);
        if (!stream.title.empty()) layout.streams.back().name = stream.title;
      }
    }
    return layout;
  }

  // For each audio stream of the result, its number among the source's audio streams, from 1.
  std::vector<int> Sounds() const {
    const auto is_sound = [](const AviStream& stream) { return stream.header.type == "auds"; };
    const auto streams = job_.source.Streams();
    std::vector<int> numbers;
    for (const MuxStream& stream : job_.streams) {
      if (stream.subtitle != nullptr || !is_sound(streams[static_cast<std::size_t>(stream.source_stream)])) continue;
      const auto until = streams.first(static_cast<std::size_t>(stream.source_stream) + 1);
      numbers.push_back(static_cast<int>(std::ranges::count_if(until, is_sound)));
    }
    return numbers;
  }

  InterleaveSchedule Schedule() const {
    std::uint32_t start = 0, scale = job_.source.Main().micro_seconds_per_frame, rate = 1'000'000;
    if (video_ >= 0) {
      const AviStreamHeader& header = job_.source.Streams()[static_cast<std::size_t>(video_)].header;
      start = header.start;
      if (header.scale > 0 && header.rate > 0) scale = header.scale, rate = header.rate;
    }
    InterleaveSchedule schedule(start, scale > 0 ? scale : 40'000, rate);
    for (std::size_t i = 0; i < job_.streams.size(); ++i) {
      if (job_.streams[i].subtitle != nullptr) schedule.Add(static_cast<int>(i), job_.streams[i].subtitle);
    }
    return schedule;
  }

  Result<void> CopyChunks(AviWriter& writer) {
    InterleaveSchedule schedule = Schedule();
    const auto walk = job_.source.Chunks();
    std::uint64_t frame = 0, chunks = 0;
    for (;;) {
      const auto next = walk->Next();
      if (!next) return tl::unexpected(next.error());
      if (!next->has_value()) break;
      const AviChunk& chunk = **next;
      if (auto reported = Report(chunk.position); !reported) return reported;
      const int number = numbers_[static_cast<std::size_t>(chunk.stream)];
      if (number < 0) continue;
      if (chunk.stream == video_ && chunk.type != "pc") {
        while (const auto packet = schedule.NextBefore(frame)) {
          if (auto written = WritePacket(writer, *packet); !written) return written;
        }
        ++frame;
      }
      if (auto copied = writer.Copy(walk->Window(), chunk, number); !copied) return copied;
      ++chunks;
    }
    const std::string& source = job_.source.File().Path();
    if (chunks == 0) return Failure(ErrorKind::Damaged, source + ": contains no data of these streams");
    // Sound alone is no film of a video: its only frame broke off, or damage hides them all.
    if (video_ >= 0 && frame == 0) return Failure(ErrorKind::Damaged, source + ": contains no whole frame");
    while (const auto packet = schedule.NextAtEnd()) {
      if (auto written = WritePacket(writer, *packet); !written) return written;
    }
    return {};
  }

  Result<void> WritePacket(AviWriter& writer, const InterleaveSchedule::Packet& packet) {
    const auto data = packet.source->Packet(packet.index);
    if (!data) return tl::unexpected(data.error());
    return writer.Append(packet.stream, "sb", XsubChunksAreKeys(job_.profile), *data);
  }

  Result<void> Report(std::uint64_t position) {
    if (position < next_report_) return {};
    next_report_ = position + kReportEvery;
    const std::size_t done = static_cast<std::size_t>(position >> 10);
    if (progress_.Report(done, static_cast<std::size_t>(job_.source.File().Size() >> 10))) return {};
    return Failure(ErrorKind::Cancelled, "stopped; " + job_.output + " was not made");
  }

  const MuxJob& job_;
  JobProgress& progress_;
  std::vector<int> numbers_;  // for each stream of the source, its number in the result; -1 if left out
  int video_ = -1;            // the stream of the source that packets are placed before; -1 if there is none
  std::uint64_t next_report_ = 0;
};

}  // namespace

Result<MuxReport> Mux(const MuxJob& job, JobProgress& progress) {
  if (auto checked = CheckStreams(job); !checked) return tl::unexpected(checked.error());
  if (auto checked = CheckOutput(job); !checked) return tl::unexpected(checked.error());
  FilmMux mux(job, progress);
  bool open_dml = mux.ExpectedSize() >= job.riff_limit;
  auto size = mux.Run(open_dml);
  if (!size && size.error().kind == ErrorKind::TooLarge && !open_dml) {
    // The film has more chunks than a plain index can list, or its subtitles are far larger than usual.
    open_dml = true;
    size = FilmMux(job, progress).Run(open_dml);
  }
  if (!size) return tl::unexpected(size.error());
  MuxReport report{.size = *size, .findings = job.source.Damage()};
  if (open_dml && report.size > kLargestForPlayers) {
    report.findings.push_back({.kind = FindingKind::LargeFilm,
                               .file = job.output,
                               .message = "the film is larger than 2 GB; many hardware players stop before its end"});
  }
  return report;
}

}  // namespace captoria
