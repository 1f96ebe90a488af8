// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The list files that say which bitmap is shown when and where. There are two forms: one for the bitmap converter and
// one that the muxer reads directly.
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
// row (left, top, right, bottom) in the second. Any other text is an error with file and line.
//
// Colours. A pixel is an index into the colour table of its bitmap, whose first four entries are what the viewer sees.
// A cue with its own font colour has that colour only there. So the list's palette and the order in COLOR and
// SUBPALETTE are checked and then ignored. The four numbers of CONTRAST belong to the table's entries: 0 hides an
// entry, any other number shows it fully, because XSUB has nothing in between. Entry 0 is always hidden.
//
// Times. Players show one picture at a time. So cues are sorted by their start, and a cue that overlaps the next one is
// cut short. A cue that would then not be shown at all, because its end is not after its start or the next cue starts
// with it, gets one millisecond, so that it stays in the stream. Findings count the cues that were changed.
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
  std::string file;  // a plain name; the file is beside the list
  XsubTimes times;
  int x = 0;  // the left column on the frame
  int y = 0;  // the top row
  int width = 0;
  int height = 0;  // the bitmap's height, or 98 for a bitmap of 100 rows
};

struct SubtitleList {
  std::string path;
  Size frame;
  std::array<bool, 4> shown{false, true, true, true};  // which entries of the colour tables are visible
  std::vector<ListedCue> cues;                         // sorted by start time
  Findings findings;                                   // what had to be changed of it
};

enum class ListFrame {
  AsListed,
  Ntsc,  // positions of a 576-line frame moved to the 480-line frame
};

// The converter's form. The frame is 720 x 576 for PAL, 720 x 480 for NTSC.
//
// Moving cues to the NTSC frame scales their distance from the bottom of the frame: a rectangle with d rows below it in
// 576 lines gets d x 480 / 576 rows below it (rounded, halves away from zero) in 480 lines. It keeps its size and
// columns, and its top stays within the frame. A list for 480 lines is not changed.
Result<SubtitleList> ReadConverterList(const std::string& path, ListFrame frame = ListFrame::AsListed);

// The muxer's form. The frame is 640 columns wide. The list does not say how high it is, so the height is guessed from
// the cues: the first of 480, 576, 720 and 1080 rows that they fit on, or else as many rows as they need. A bitmap has
// empty rows below its text and may extend up to 11 rows below its frame. Cues at y 0 are not considered, because they
// may be higher than their frame.
Result<SubtitleList> ReadMuxList(const std::string& path);

// The path of a cue's bitmap.
std::string PathOf(const SubtitleList& list, const ListedCue& cue);

// The packets of a list, made on demand from the bitmaps beside it. A bitmap must have the width and height of the
// list. If it has 100 rows and is listed with 98, two rows without a visible pixel are removed, first at the bottom; if
// there are no such rows, all 100 are shown.
std::shared_ptr<SubtitleSource> PacketsOf(SubtitleList list);

// The packets of a list of the muxer's form. Adds its findings to `findings`.
Result<std::shared_ptr<SubtitleSource>> OpenMuxList(const std::string& path, Findings* findings = nullptr);

}  // namespace captoria
