// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The list files that say which bitmap is shown from when to when and where. There are two forms: one for the bitmap
// converter and one that the muxer takes directly.
//
//   [HEADER]                             0 = (0, 0, 0)
//   TITLE                                1 = (255, 255, 255)
//   FRAMERATE PAL                        2 = (0, 0, 0)
//   DROPFRAME NO                         3 = (70, 70, 70)
//   CONTRAST    (0 15 15 15)
//   COLOR       (0 2 1 3)                SUBPALETTE (0 1 2 3)
//                                        00:00:01.000 00:00:03.500 bmp00001.bmp (114 469 525 530)
//   [PALETTE]
//   0 (0, 0, 255)
//   1 (255, 255, 255)
//   2 (0, 0, 0)
//   3 (70, 70, 70)
//
//   [LIST]
//   bmp00001.bmp 00:00:01.000 00:00:03.500 412 062 154 469
//
// Lines end with CR LF or LF. A rectangle is width, height, x, y in the first form, and the first and last column and
// row (left, top, right, bottom) in the second. Anything else is refused with file and line.
//
// Colours. A pixel is a number in its bitmap's own colour table, whose first four entries are what the viewer sees: a
// cue with a font colour has it there and nowhere else. So the list's palette, and the order that COLOR and SUBPALETTE
// put its entries in, are read and change nothing. The four numbers of CONTRAST belong to the table's entries; an entry
// with 0 is not seen, any other number shows it fully, as XSUB knows nothing between. Entry 0 is never seen.
//
// Times. Players show one picture at a time. Cues are put in the order of their start, and a cue that ends after the
// next one starts ends there instead. A cue that would then not be shown at all, because it ends no later than it
// starts or starts together with the next, gets one millisecond: it stays in the stream, and a finding counts it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/finding.h"
#include "base/result.h"
#include "media/xsub/subtitle_source.h"
#include "media/xsub/xsub_packet.h"

namespace captoria {

struct ListedCue {
  std::string file;  // beside the list; a name without folder
  XsubTimes times;
  int x = 0;  // of the left column on the frame
  int y = 0;  // of the top row
  int width = 0;
  int height = 0;  // that of the bitmap, or 98 for one of 100 rows
};

struct SubtitleList {
  std::string path;
  Size frame;
  std::array<bool, 4> shown{false, true, true, true};  // entries of the bitmaps' colour tables
  std::vector<ListedCue> cues;                         // by their start times
  Findings findings;                                   // what had to be changed of it
};

enum class ListFrame {
  AsListed,
  Ntsc,  // positions of a 576-line frame moved to the 480-line frame
};

// The converter's form. The frame is 720 x 576 for PAL, 720 x 480 for NTSC.
//
// Moving cues to the NTSC frame keeps their height above the bottom of the picture, in proportion: a rectangle whose
// last row has d rows below it in 576 lines gets d x 480 / 576 rows below it (rounded, halves away from zero) in 480,
// with its size and columns kept and its top never above the frame. A list for 480 lines is left as it is.
Result<SubtitleList> ReadConverterList(const std::string& path, ListFrame frame = ListFrame::AsListed);

// The muxer's form. The frame is 640 wide, and as high as the cues imply, since the list does not tell: the lowest of
// 480, 576, 720 and 1080 rows that they can have been placed on, else just as high as they need. A bitmap has room
// below its text and may hang up to 11 rows out of its frame; a cue at y 0 may have been too high for its frame and is
// not asked.
Result<SubtitleList> ReadMuxList(const std::string& path);

// Where the bitmap of a cue stands.
std::string PathOf(const SubtitleList& list, const ListedCue& cue);

// The packets of a list, made from the bitmaps beside it as they are asked for. A bitmap has to be as wide and high as
// listed. Of one that is 100 rows high and listed with 98, two rows without a visible pixel are left out, at its bottom
// first; when there are none, it is shown whole.
std::shared_ptr<SubtitleSource> PacketsOf(SubtitleList list);

// The packets of a list of the muxer's form. What had to be changed is added to `findings`.
Result<std::shared_ptr<SubtitleSource>> OpenMuxList(const std::string& path, Findings* findings = nullptr);

}  // namespace captoria
