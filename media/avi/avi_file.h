// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An AVI file as it lies on the disk: its headers, and its chunks one after the other. Nothing is decoded and nothing
// is trusted: every size and count is checked against the file before it is used, and a file that breaks off is read as
// far as it goes.
//
// Field names follow Microsoft's avih and strh records; the facts beyond those are from the OpenDML AVI file format
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
  std::uint32_t total_frames = 0;  // of the first RIFF
  std::uint32_t initial_frames = 0;
  std::uint32_t streams = 0;  // as the file says; what is there counts
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
  std::array<std::int16_t, 4> frame{};  // left, top, right, bottom; zeros where the file has the old short header
};

// A chunk kept as it is: four letters (for a list "LIST", its type being the first four bytes of `data`) and its bytes.
struct RiffPiece {
  std::string id;
  Bytes data;
};

struct AviStream {
  AviStreamHeader header;
  Bytes header_bytes;             // `strh` as it lies in the file
  Bytes format;                   // `strf`, verbatim
  std::string name;               // `strn` without its NUL; empty when there is none
  std::vector<RiffPiece> others;  // of the stream's list, in order: strd, vprp and the like; no strn, indx or JUNK

  // Whether these are XSUB subtitles: a video stream compressed as "DXSB" or "DXSA".
  bool IsXsub() const;
};

struct AviChunk {
  std::uint64_t position = 0;  // of the chunk's header in the file
  std::uint32_t size = 0;      // of its data, without header and pad byte; never beyond the end of the file
  int stream = 0;              // index into Streams()
  std::string type;            // "dc", "db", "wb", "sb", "pc"...
  bool key = false;            // a key frame, by the index or else by looking at the data
  std::uint64_t DataPosition() const { return position + 8; }
};

// The chunks of a file in the order they lie in, across all RIFFs, through `rec ` lists; indices, padding and chunks of
// no stream are passed over.
class AviChunkWalk {
 public:
  virtual ~AviChunkWalk() = default;

  // The next chunk; nothing at the end. An error only when the disk cannot be read.
  virtual Result<std::optional<AviChunk>> Next() = 0;

  // Through which the walk sees the file: where chunks are small, it holds most of those given last.
  virtual FileWindow& Window() = 0;
};

class AviFile {
 public:
  // Damaged, with the reason, when the file is no AVI or has no stream that can be told apart.
  static Result<AviFile> Open(const std::string& path);

  const InputFile& File() const { return *file_; }
  const AviMainHeader& Main() const { return main_; }
  std::span<const AviStream> Streams() const { return streams_; }  // at most 100

  // Lists of the header and of the file that say something of the film, such as INFO or DXDT: to be copied along. At
  // most 1 MiB in all.
  std::span<const RiffPiece> Extras() const { return extras_; }

  // Damage that did not stop the reading, such as a file that is cut off or an index that does not fit. Complete after
  // a walk has reached the end.
  const Findings& Damage() const { return *damage_; }

  // Holds a bounded amount of memory, whatever the file's size. The file outlives the walk.
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
