// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The pictures in the .sub of a VobSub pair: DVD subpicture units ("SPU"), each cut into the 2048-byte packs of an
// MPEG-2 program stream, the languages told apart by a substream number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "base/bytes.h"
#include "base/result.h"
#include "platform/input_file.h"

namespace captoria {

// The unit of `substream` whose first pack lies at `position`, looked for up to `end`. Packs of other substreams may
// lie between. It can be longer than its own size field says, or shorter where the file breaks off. Damaged when there
// is no such unit, at most 64 KiB otherwise.
Result<Bytes> ReadSpu(const InputFile& sub, std::uint64_t position, std::uint64_t end, int substream);

// What the control sequences of a unit say. Entries are 0 background, 1 pattern, 2 and 3 emphasis; each row of the
// picture is a run-length code of entries, rows 0, 2, 4... apart from rows 1, 3, 5...
struct SpuDisplay {
  int start = 0;            // milliseconds after the unit's time
  std::optional<int> stop;  // absent when the picture stays until the next; greater than `start`
  bool forced = false;
  std::array<std::uint8_t, 4> palette_numbers{0, 1, 2, 3};  // of the entries; 0 to 15
  std::array<std::uint8_t, 4> contrast{0, 15, 15, 15};      // of the entries; 0 transparent to 15 opaque
  int left = 0;
  int top = 0;
  int width = 0;                               // 1 to 4096
  int height = 0;                              // 1 to 4096
  std::array<std::size_t, 2> field_offsets{};  // of the two fields' codes; inside the unit
};

// Damaged when the unit has no picture. `place` names it in the message.
Result<SpuDisplay> ParseSpu(ByteView spu, const std::string& place);

}  // namespace captoria
