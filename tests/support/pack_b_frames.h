// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Films with packed B-frames, out of films by FFmpeg.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "media/avi/avi_file.h"
#include "platform/files.h"
#include "tests/support/avi_maker.h"

namespace captoria {

// As DivX encoders pack them, which FFmpeg does not: a B-frame travels in the chunk of the picture before it, and a
// picture of one byte that says "not coded" holds its place.
inline void PackBFrames(const std::string& path) {
  const std::string content = ReadWholeFile(path).value_or("");
  const auto film = AviFile::Open(path);
  ASSERT_TRUE(film) << film.error().message;
  std::vector<std::pair<std::string, std::string>> pieces;
  std::size_t picture = 0, packed = 0, first = 0;
  const auto walk = film->Chunks();
  for (auto chunk = walk->Next(); chunk && *chunk; chunk = walk->Next()) {
    if (pieces.empty()) first = (*chunk)->position;
    const std::string data = content.substr((*chunk)->DataPosition(), (*chunk)->size);
    const bool is_video = (*chunk)->stream == 0;
    const auto vop = data.find(std::string("\0\0\1\xB6", 4));
    const bool is_b = is_video && vop != data.npos && (static_cast<unsigned char>(data[vop + 4]) >> 6) == 2;
    if (is_b) pieces[picture].second += data;
    packed += is_b ? 1 : 0;
    pieces.emplace_back(is_video ? "00dc" : "01wb", is_b ? "\x7F" : data);
    if (is_video && !is_b) picture = pieces.size() - 1;
  }
  EXPECT_GE(packed, 20u);
  std::string movi;
  for (const auto& [id, data] : pieces) movi += avi_maker::Piece(id, data);
  // Everything before the list of chunks stays.
  const std::string made = avi_maker::Film(movi, content.substr(12, first - 24), avi_maker::OldIndex(movi, 4, {0}));
  ASSERT_TRUE(WriteWholeFile(path, made, Sync::No));
}

}  // namespace captoria
