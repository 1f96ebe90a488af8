// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes an AVI file: unchanged chunks of a source file, chunks of our own between them, and new indices and headers.
// Plain AVI is one RIFF with an `idx1`. OpenDML continues in further RIFFs, each with standard indices, and keeps an
// `idx1` in the first for players that know nothing else.
//
// Memory is bounded by the index of one RIFF.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "media/avi/block_writer.h"
#include "media/avi/riff.h"
#include "media/avi/riff_header.h"
#include "media/avi/riff_index.h"
#include "platform/output_file.h"

namespace captoria {

class AviWriter {
 public:
  // Old software reads sizes as signed numbers.
  static constexpr std::uint64_t kLargestPlain = (std::uint64_t{2} << 30) - (std::uint64_t{1} << 20);

  static Result<std::unique_ptr<AviWriter>> Create(const std::string& path, AviLayout layout);

  // Copies the data of `chunk` into stream `stream` of the new file, with a new header and pad byte. `source` is the
  // window of the walk that returned the chunk. TooLarge, here and below, if a plain AVI file cannot hold the chunk; an
  // OpenDML file could.
  Result<void> Copy(FileWindow& source, const AviChunk& chunk, int stream);

  // Writes a chunk of our own.
  Result<void> Append(int stream, std::string_view type, bool key, ByteView data);

  // Writes index and headers, gives the file its name and returns its size.
  //
  // Only two numbers in a stream's header change: the buffer size of a stream that chunks were appended to, and a
  // length that is 0, or that is too large because the source is cut off.
  Result<std::uint64_t> Finish();

 private:
  struct Riff {
    std::uint64_t begin = 0;  // of "RIFF"
    std::uint64_t movi = 0;   // of "movi"
  };
  struct Stream {
    explicit Stream(const AviStream& stream) : in_riff(stream), total(stream) {}
    StreamUnits in_riff;
    StreamUnits total;
    std::uint32_t largest_appended = 0;
  };

  AviWriter(OutputFile file, AviLayout layout);

  Result<void> BeginChunk(int stream, std::string_view type, bool key, std::uint32_t size);
  Result<void> BeginRiff();
  Result<void> EndRiff();
  Result<void> WriteSize(std::uint64_t at, std::uint64_t size);
  void CompleteStreamHeaders();
  void CompleteMainHeader();

  OutputFile file_;
  AviLayout layout_;
  BlockWriter out_;
  Riff riff_;
  RiffIndex index_{0};
  std::vector<Stream> streams_;
  std::vector<AviStreamIndex> indices_;
  AviHeaderSizes sizes_;
  int video_ = -1;  // the first video stream; -1 if there is none
  std::size_t riffs_ = 0;
  std::uint32_t largest_chunk_ = 0;
  std::uint64_t appended_bytes_ = 0;
};

}  // namespace captoria
