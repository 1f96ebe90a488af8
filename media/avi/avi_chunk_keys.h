// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Finds out which chunks are key frames, from an index or, without a usable index, from their first bytes.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/finding.h"
#include "media/avi/avi_file.h"
#include "media/avi/avi_headers.h"
#include "media/avi/avi_index.h"
#include "media/avi/riff.h"
#include "media/video/key_frame.h"

namespace captoria {

class AviChunkKeys {
 public:
  AviChunkKeys(const InputFile& file, std::span<const AviStream> streams) : file_(file), streams_(streams) {}

  // Opens the indices. Call it once, before IsKey.
  Result<void> Open(const AviPlaces& places, Findings& findings);

  // Chunks must be passed in file order. The first bytes of `chunk` are read through `window`.
  Result<bool> IsKey(const AviChunk& chunk, FileWindow& window);

 private:
  struct OfStream {
    PictureCoding coding = PictureCoding::Alone;
    std::vector<AviKeyIndex> index;  // at most one
    bool begun = false;              // a picture with data was already passed
    bool index_is_wrong = false;
  };

  Result<bool> IsKeyPictureOf(OfStream& stream, const AviChunk& chunk, FileWindow& window);

  const InputFile& file_;
  std::span<const AviStream> streams_;
  std::vector<OfStream> of_streams_;
};

}  // namespace captoria
