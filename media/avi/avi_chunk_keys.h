// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Which chunks are key frames: by an index where there is a good one, by their first bytes where there is none.
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

  // Opens the indices. Before the first question.
  Result<void> Open(const AviPlaces& places, Findings& findings);

  // `chunk` is behind the one asked for before. Its first bytes are taken from `window`.
  Result<bool> IsKey(const AviChunk& chunk, FileWindow& window);

 private:
  struct OfStream {
    PictureCoding coding = PictureCoding::Alone;
    std::vector<AviKeyIndex> index;  // one or none
    bool begun = false;              // a picture has been seen
    bool index_is_wrong = false;
  };

  Result<bool> IsKeyPictureOf(OfStream& stream, const AviChunk& chunk, FileWindow& window);

  const InputFile& file_;
  std::span<const AviStream> streams_;
  std::vector<OfStream> of_streams_;
};

}  // namespace captoria
