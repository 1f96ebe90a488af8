// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Which chunks of a stream are key frames by the indices of the file. Read along with the chunks, so that an index of
// any length takes a few KiB.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/result.h"
#include "media/avi/avi_headers.h"
#include "platform/input_file.h"

namespace captoria {

// `idx1` and what its offsets count from.
struct AviOldIndex {
  AviSpan span;
  std::int64_t base = 0;
};

// The index when it fits the chunks that are there. Offsets are meant to count from the letters "movi"; there are files
// where they count from the file's beginning or from the first chunk, so what leads to chunks is what counts.
Result<std::optional<AviOldIndex>> FindOldIndex(const InputFile& file, const AviPlaces& places, int streams);

class AviIndexCursor;

// The key frames of one stream, asked for in the order the chunks lie in.
class AviKeyIndex {
 public:
  AviKeyIndex(const InputFile& file, const std::optional<AviOldIndex>& idx1, const std::optional<AviSpan>& indx,
              int stream);
  AviKeyIndex(AviKeyIndex&&) noexcept;
  ~AviKeyIndex();

  // Of the chunk whose header lies at `position`; nothing when no index knows it.
  Result<std::optional<bool>> IsKey(std::uint64_t position);

 private:
  std::vector<std::unique_ptr<AviIndexCursor>> cursors_;  // the one that covers the whole file first
};

}  // namespace captoria
