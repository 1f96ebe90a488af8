// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A SubRip file from its bytes to its cues, whatever encoding it is in.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/result.h"
#include "subtitles/srt_reader.h"

namespace captoria {

struct EncodingChoice {
  int charset = 1;     // of the track's font; names the code page of a file that is not Unicode
  std::string forced;  // an encoding's name when the user chose one; nothing is guessed then
};

struct SubtitleFile {
  std::string encoding;         // as base/text_encoding.h names them
  std::size_t undecodable = 0;  // bytes that had no meaning in it
  SrtReading reading;
};

// Reads `path`. A file that is at fault somewhere is no error here: the reading says where. An error is a file that
// cannot be read, or one of more than 512 MiB, or an encoding that does not exist.
Result<SubtitleFile> ReadSubtitleFile(const std::string& path, const EncodingChoice& choice);

// Whether the file is a VobSub index, which is told by its name alone.
bool IsIdxFile(std::string_view path);

// What a detector should look at: the lines of dialogue, without indices, time lines and tags. Fed with those it takes
// most files for English. At most 128 KiB: enough to be sure, and quick for any file.
std::string DialogueSample(std::string_view bytes);

}  // namespace captoria
