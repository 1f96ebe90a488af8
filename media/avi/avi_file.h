// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An AVI file as it is on disk: its headers, and its chunks one after the other. Nothing is decoded and nothing is
// trusted: every size and count is checked against the file before it is used, and a file that is cut off is read as
// far as possible.
//
// Field names follow Microsoft's avih and strh records; other facts are from the OpenDML AVI file format
// extensions 1.02.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/bytes.h"
#include "base/finding.h"
#include "base/result.h"
#include "media/avi/riff.h"
#include "platform/input_file.h"

namespace captoria {

struct AviPlaces;

// `avih`.
struct AviMainHeader {
  std::uint32_t micro_seconds_per_frame = 0;
  std::uint32_t max_bytes_per_second = 0;
  std::uint32_t padding_granularity = 0;
  std::uint32_t flags = 0;
  std::uint32_t total_frames = 0;  // in the first RIFF
  std::uint32_t initial_frames = 0;
  std::uint32_t streams = 0;  // may differ from the number of streams in the file
  std::uint32_t suggested_buffer_size = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
};

// `strh`. Times are in units of scale / rate seconds.
struct AviStreamHeader {
  std::string type;     // "vids", "auds", "txts", "mids"...
  std::string handler;  // four bytes
  std::uint32_t flags = 0;
  std::uint16_t priority = 0;
  std::uint16_t language = 0;
  std::uint32_t initial_frames = 0;
  std::uint32_t scale = 0;
  std::uint32_t rate = 0;
  std::uint32_t start = 0;
  std::uint32_t length = 0;
  std::uint32_t suggested_buffer_size = 0;
  std::uint32_t quality = 0;
  std::uint32_t sample_size = 0;
  std::array<std::int16_t, 4> frame{};  // left, top, right, bottom; zeros if the file has the old short header
};

// A chunk that is copied unchanged: four letters and its bytes. For a list the letters are "LIST", and `data` begins
// with the four letters of its type.
struct RiffPiece {
  std::string id;
  Bytes data;
};

struct AviStream {
  AviStreamHeader header;
  Bytes header_bytes;             // `strh` as in the file
  Bytes format;                   // `strf`, verbatim
  std::string name;               // `strn` without its NUL; empty if missing
  std::vector<RiffPiece> others;  // rest of the stream's list in order (strd, vprp...), without strn, indx and JUNK

  // Whether this is an XSUB stream: a video stream with the compression "DXSB" or "DXSA".
  bool IsXsub() const;
};

struct AviChunk {
  std::uint64_t position = 0;  // of the chunk's header
  std::uint32_t size = 0;      // of its data, without header and pad byte; the data ends within the file
  int stream = 0;              // index into Streams()
  std::string type;            // "dc", "db", "wb", "sb", "pc"...
  bool key = false;            // a key frame, according to the index or, without one, to the data
  std::uint64_t DataPosition() const { return position + 8; }
};

// Visits the chunks of all streams in file order, through all RIFFs and `rec ` lists. Skips indices, padding and chunks
// that belong to no stream.
class AviChunkWalk {
 public:
  virtual ~AviChunkWalk() = default;

  // The next chunk; nothing at the end. Fails only if the disk cannot be read.
  virtual Result<std::optional<AviChunk>> Next() = 0;

  // The part of the file that the walk has in memory. If chunks are small, it contains most of the recent ones.
  virtual FileWindow& Window() = 0;
};

class AviFile {
 public:
  // Damaged if the file is not an AVI file or contains no stream.
  static Result<AviFile> Open(const std::string& path);

  const InputFile& File() const { return *file_; }
  const AviMainHeader& Main() const { return main_; }
  std::span<const AviStream> Streams() const { return streams_; }  // at most 100

  // Lists that describe the film, such as INFO or DXDT. They are copied with it; at most 1 MiB in total.
  std::span<const RiffPiece> Extras() const { return extras_; }

  // Damage that did not stop the reading, such as a file that is cut off or an index that does not fit. Complete after
  // a walk has reached the end.
  const Findings& Damage() const { return *damage_; }

  // Takes a bounded amount of memory whatever the file's size. The file must outlive the walk.
  std::unique_ptr<AviChunkWalk> Chunks() const;

 private:
  AviFile() = default;

  std::shared_ptr<InputFile> file_;
  AviMainHeader main_;
  std::vector<AviStream> streams_;
  std::vector<RiffPiece> extras_;
  std::shared_ptr<const AviPlaces> places_;
  std::shared_ptr<Findings> damage_;
};

}  // namespace captoria
