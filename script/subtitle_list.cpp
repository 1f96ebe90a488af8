// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "script/subtitle_list.h"

#include <algorithm>
#include <utility>

#include "base/path_text.h"
#include "base/video_system.h"
#include "media/bmp/bmp_file.h"
#include "platform/files.h"
#include "script/list_parser.h"

namespace captoria {
namespace {

constexpr std::uint64_t kLargestList = std::uint64_t{16} << 20;
constexpr int kPalHeight = HeightOf(VideoSystem::Pal);
constexpr int kNtscHeight = HeightOf(VideoSystem::Ntsc);

// How far a bitmap can extend below its frame: it is 10 rows higher than the room reserved for it, rounded up to even.
constexpr int kOverhang = 11;

std::string CueCount(std::size_t count) { return std::to_string(count) + (count == 1 ? " cue" : " cues"); }

void Add(SubtitleList& list, std::string message) {
  list.findings.push_back({.kind = FindingKind::SubtitleChanged, .file = list.path, .message = std::move(message)});
}

void OrderTimes(SubtitleList& list) {
  std::ranges::stable_sort(list.cues, {}, [](const ListedCue& cue) { return cue.times.show; });
  std::size_t cut = 0, brief = 0;
  for (std::size_t i = 0; i < list.cues.size(); ++i) {
    XsubTimes& times = list.cues[i].times;
    const std::int64_t next = i + 1 < list.cues.size() ? list.cues[i + 1].times.show : kLatestXsubTime;
    const bool overlaps = times.hide > next;
    if (overlaps) times.hide = next;
    const bool empty = times.hide <= times.show;
    if (empty) times.hide = times.show + 1;
    if (empty) ++brief;
    if (overlaps && !empty) ++cut;
  }
  if (cut > 0) Add(list, CueCount(cut) + " cut short where the next one starts");
  if (brief > 0) {
    Add(list, CueCount(brief) +
                  " shown for only a millisecond: no time is left between the start and the end or the next cue");
  }
}

void MoveToNtsc(SubtitleList& list) {
  if (list.frame.height != kPalHeight) return;
  list.frame.height = kNtscHeight;
  for (ListedCue& cue : list.cues) {
    const int below = kPalHeight - (cue.y + cue.height);
    const int half = below < 0 ? -kPalHeight / 2 : kPalHeight / 2;
    cue.y = std::max(0, kNtscHeight - (below * kNtscHeight + half) / kPalHeight - cue.height);
  }
}

int ImpliedHeight(const std::vector<ListedCue>& cues) {
  int end = 0;
  for (const ListedCue& cue : cues) {
    if (cue.y > 0) end = std::max(end, cue.y + cue.height);
  }
  for (const int height : {kNtscHeight, kPalHeight, 720, 1080}) {
    if (end <= height + kOverhang) return height;
  }
  return end + end % 2;
}

void WarnOfHighCues(SubtitleList& list) {
  const auto count = static_cast<std::size_t>(
      std::ranges::count_if(list.cues, [&](const ListedCue& cue) { return cue.height > list.frame.height; }));
  if (count == 0) return;
  Add(list, CueCount(count) + " higher than the frame of " + std::to_string(list.frame.height) +
                " rows; the part below the frame is not shown");
}

class ListedBitmaps final : public SubtitleSource {
 public:
  explicit ListedBitmaps(SubtitleList list) : list_(std::move(list)) {}

  Size Frame() const override { return list_.frame; }
  std::size_t Count() const override { return list_.cues.size(); }
  std::int64_t ShowTime(std::size_t index) const override { return list_.cues[index].times.show; }

  Result<Bytes> Packet(std::size_t index) const override {
    const ListedCue& cue = list_.cues[index];
    const std::string path = PathOf(list_, cue);
    auto picture = ReadPicture(path);
    if (!picture) return tl::unexpected(picture.error());
    const bool listed_lower = picture->height == 100 && cue.height == 98;
    if (picture->width != cue.width || (picture->height != cue.height && !listed_lower)) {
      return Failure(ErrorKind::Damaged, path + ": is " + SizeText(picture->width, picture->height) + ", but " +
                                             list_.path + " lists it with " + SizeText(cue.width, cue.height));
    }
    PlacedPicture placed{std::move(*picture), cue.x, cue.y};
    LeaveOutClearRows(placed, cue.height);
    auto packet = EncodeXsub({cue.times, std::move(placed)}, list_.frame);
    if (!packet) return Failure(packet.error().kind, path + ": " + packet.error().message);
    return packet;
  }

 private:
  static std::string SizeText(int width, int height) { return std::to_string(width) + " x " + std::to_string(height); }

  Result<SubtitlePicture> ReadPicture(const std::string& path) const {
    auto bmp = ReadBmp(path);
    if (!bmp) return tl::unexpected(bmp.error());
    SubtitlePicture picture;
    picture.width = bmp->width;
    picture.height = bmp->height;
    picture.pixels = std::move(bmp->pixels);
    std::copy_n(bmp->colors.begin(), std::min(bmp->colors.size(), picture.colors.size()), picture.colors.begin());
    // Entry 0 is transparent. But players that scale a picture, or store one colour for two pixels, mix it into the
    // edges of the letters, where the outline's colour does the least harm.
    picture.colors[0] = picture.colors[2];
    for (std::uint8_t& pixel : picture.pixels) {
      if (pixel >= list_.shown.size()) {
        return Failure(ErrorKind::Unsupported, path + ": has pixels of colour " + std::to_string(pixel) +
                                                   "; a subtitle has only the colours 0 to 3");
      }
      if (!list_.shown[pixel]) pixel = 0;
    }
    return picture;
  }

  // Removes rows without a visible pixel, first at the bottom and then at the top, until `height` rows are left.
  static void LeaveOutClearRows(PlacedPicture& placed, int height) {
    SubtitlePicture& picture = placed.picture;
    const auto width = static_cast<std::ptrdiff_t>(picture.width);
    while (picture.height > height && picture.IsClearRow(picture.height - 1)) {
      picture.pixels.resize(picture.pixels.size() - static_cast<std::size_t>(width));
      --picture.height;
    }
    while (picture.height > height && picture.IsClearRow(0)) {
      picture.pixels.erase(picture.pixels.begin(), picture.pixels.begin() + width);
      --picture.height;
      ++placed.top;
    }
  }

  SubtitleList list_;
};

}  // namespace

Result<SubtitleList> ReadConverterList(const std::string& path, ListFrame frame) {
  const auto text = ReadWholeFile(path, kLargestList);
  if (!text) return tl::unexpected(text.error());
  auto list = ParseConverterList(*text, path);
  if (!list) return list;
  OrderTimes(*list);
  if (frame == ListFrame::Ntsc) MoveToNtsc(*list);
  WarnOfHighCues(*list);
  return list;
}

Result<SubtitleList> ReadMuxList(const std::string& path) {
  const auto text = ReadWholeFile(path, kLargestList);
  if (!text) return tl::unexpected(text.error());
  auto list = ParseMuxList(*text, path);
  if (!list) return list;
  OrderTimes(*list);
  list->frame.height = ImpliedHeight(list->cues);
  WarnOfHighCues(*list);
  return list;
}

std::string PathOf(const SubtitleList& list, const ListedCue& cue) {
  const std::string_view folder = GetPathOnly(list.path);
  if (folder.size() == list.path.size()) return cue.file;
  return JoinPath(std::string{folder} + PathSeparator(list.path), cue.file);
}

std::shared_ptr<SubtitleSource> PacketsOf(SubtitleList list) {
  return std::make_shared<ListedBitmaps>(std::move(list));
}

Result<std::shared_ptr<SubtitleSource>> OpenMuxList(const std::string& path, Findings* findings) {
  auto list = ReadMuxList(path);
  if (!list) return tl::unexpected(list.error());
  if (findings != nullptr) findings->insert(findings->end(), list->findings.begin(), list->findings.end());
  return PacketsOf(std::move(*list));
}

}  // namespace captoria
