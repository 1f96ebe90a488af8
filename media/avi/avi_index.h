// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Finds out from the indices of a file which chunks of a stream are key frames. An index is read in step with the
// chunks, so one of any length takes a few KiB of memory.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/result.h"
#include "media/avi/avi_headers.h"
#include "platform/input_file.h"

namespace captoria {

// `idx1`, and the position that its offsets are relative to.
struct AviOldIndex {
  AviSpan span;
  std::int64_t base = 0;
};

// The index, if its first entries match chunks of the file. Offsets should be relative to the letters "movi". In some
// files they are relative to the beginning of the file or to the first chunk, so whichever base leads to chunks is
// taken.
Result<std::optional<AviOldIndex>> FindOldIndex(const InputFile& file, const AviPlaces& places, int streams);

class AviIndexCursor;

// The key frames of one stream, queried in file order.
class AviKeyIndex {
 public:
  AviKeyIndex(const InputFile& file, const std::optional<AviOldIndex>& idx1, const std::optional<AviSpan>& indx,
              int stream);
  AviKeyIndex(AviKeyIndex&&) noexcept;
  ~AviKeyIndex();

  // Whether the chunk with its header at `position` is a key frame; nothing if no index contains the chunk.
  Result<std::optional<bool>> IsKey(std::uint64_t position);

 private:
  std::vector<std::unique_ptr<AviIndexCursor>> cursors_;  // the index that covers the whole file first
};

}  // namespace captoria
