// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The pictures in the .sub of a VobSub pair: DVD subpicture units ("SPU"). Each unit is split into the packs of an
// MPEG-2 program stream, usually padded to 2048 bytes; a substream number identifies its language.
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

// Where the unit of `substream` begins that the index places at `position`. If the file lost or gained bytes before it,
// there is no start code at that position; then the nearest pack that begins such a unit counts, up to `reach` bytes
// and half a pack away. `position` itself if there is none.
Result<std::uint64_t> FindUnit(const InputFile& sub, std::uint64_t position, std::uint64_t reach, int substream);

// The unit of `substream` that begins with the pack at `position` and ends before `end`, at most 64 KiB. Packs of other
// substreams in between are skipped; after damage the reading goes on with the nearest pack. The unit can be longer
// than its own size field, or shorter if the file is cut off. Damaged if there is no unit.
Result<Bytes> ReadSpu(const InputFile& sub, std::uint64_t position, std::uint64_t end, int substream);

// The display parameters from the control sequences of a unit. Its pixels have one of four entries: 0 background,
// 1 pattern, 2 and 3 emphasis. The rows are run-length codes; rows 0, 2, 4... and rows 1, 3, 5... form two fields.
struct SpuDisplay {
  int start = 0;            // milliseconds after the unit's time
  std::optional<int> stop;  // after `start`; absent if the picture stays until the next picture
  bool forced = false;
  std::array<std::uint8_t, 4> palette_numbers{0, 1, 2, 3};  // of the entries; 0 to 15
  std::array<std::uint8_t, 4> contrast{0, 15, 15, 15};      // of the entries; 0 transparent to 15 opaque
  int left = 0;
  int top = 0;
  int width = 0;                               // 1 to 4096
  int height = 0;                              // 1 to 4096
  std::array<std::size_t, 2> field_offsets{};  // where the codes of the two fields begin in the unit
};

// Damaged if the unit has no picture. `place` names the unit in the message.
Result<SpuDisplay> ParseSpu(ByteView spu, const std::string& place);

}  // namespace captoria
