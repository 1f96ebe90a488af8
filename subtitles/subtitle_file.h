// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads SubRip files in any encoding.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/result.h"
#include "subtitles/srt_reader.h"

namespace captoria {

struct EncodingChoice {
  int charset = 1;     // of the track's font; gives the code page of a file that is not Unicode
  std::string forced;  // the encoding that the user chose; if set, nothing is guessed
};

struct SubtitleFile {
  std::string encoding;         // named as in base/text_encoding.h
  std::size_t undecodable = 0;  // bytes that are invalid in it
  SrtReading reading;
};

// Reads `path`. A faulty time line is not an error here; the reading reports it. Errors: the file cannot be read or is
// larger than 512 MiB, or the encoding is unknown.
Result<SubtitleFile> ReadSubtitleFile(const std::string& path, const EncodingChoice& choice);

// Whether the file is a VobSub index, judged by its name alone.
bool IsIdxFile(std::string_view path);

// The part of a file for an encoding detector: the lines of dialogue without indices, time lines and tags, which would
// make it take most files for English. At most 128 KiB: enough to be sure, and quick for any file.
std::string DialogueSample(std::string_view bytes);

}  // namespace captoria
