// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// AVI files put together by hand, piece by piece, so that a test can leave out, misstate and misplace what it wants.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace captoria::avi_maker {

inline std::string Number(std::uint64_t value, int bytes = 4) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
  return text;
}

inline std::string Numbers(const std::vector<std::uint32_t>& values) {
  std::string text;
  for (const std::uint32_t value : values) text += Number(value);
  return text;
}

// The piece says `size` whatever its data is, when that is given.
inline std::string Piece(std::string_view id, std::string_view data, std::int64_t size = -1) {
  const auto told = size < 0 ? data.size() : static_cast<std::uint64_t>(size);
  std::string piece = std::string(id) + Number(told) + std::string(data);
  if (data.size() % 2 != 0) piece.push_back('\0');
  return piece;
}

inline std::string WithoutPad(std::string_view id, std::string_view data) {
  return std::string(id) + Number(data.size()) + std::string(data);
}

inline std::string List(std::string_view type, std::string_view content, std::int64_t size = -1) {
  return Piece("LIST", std::string(type) + std::string(content), size);
}

// Pictures of MPEG-4 as far as their first bytes go.
inline std::string KeyPicture(std::size_t size) {
  std::string data("\0\0\1\xB6\x10", 5);
  data.resize(size, 'k');
  return data;
}
inline std::string DeltaPicture(std::size_t size) {
  std::string data("\0\0\1\xB6\x50", 5);
  data.resize(size, 'd');
  return data;
}

inline std::string VideoFormat(std::string_view compression, std::uint32_t width = 320, std::uint32_t height = 240) {
  return Numbers({40, width, height}) + Number(1, 2) + Number(24, 2) + std::string(compression) +
         Numbers({0, 0, 0, 0, 0});
}

inline std::string AudioFormat() {
  return Number(0x55, 2) + Number(2, 2) + Numbers({44100, 16000}) + Number(4, 2) + Number(16, 2) + Number(0, 2);
}

// `strh`: type and handler; flags, priority and language; then times and sizes; then the frame.
inline std::string StreamHeader(std::string_view type, std::uint32_t scale, std::uint32_t rate, std::uint32_t length) {
  return std::string(type) + Numbers({0, 0, 0, 0, scale, rate, 0, length, 4096, 0xFFFFFFFF, 0}) + Numbers({0, 0});
}

inline std::string VideoStream(std::string_view more = {}) {
  return List("strl",
              Piece("strh", StreamHeader("vids", 1, 25, 3)) + Piece("strf", VideoFormat("XVID")) + std::string(more));
}

inline std::string AudioStream(std::string_view more = {}) {
  return List("strl",
              Piece("strh", StreamHeader("auds", 1, 44100, 1)) + Piece("strf", AudioFormat()) + std::string(more));
}

inline std::string MainHeader(std::uint32_t period = 40000) {
  return Piece("avih", Numbers({period, 0, 0, 0x110, 3, 0, 2, 0, 320, 240, 0, 0, 0, 0}));
}

inline std::string Headers(std::string_view streams = VideoStream() + AudioStream()) {
  return List("hdrl", MainHeader() + std::string(streams));
}

inline std::string Riff(std::string_view content, std::string_view type = "AVI ", std::int64_t size = -1) {
  return Piece("RIFF", std::string(type) + std::string(content), size);
}

// Where the letters "movi" come to lie in a file whose RIFF begins with `headers`.
inline std::uint32_t MoviPosition(std::string_view headers) {
  return static_cast<std::uint32_t>(12 + headers.size() + 8);
}

// An index of the pieces of `content`; the first one's offset is `first`. `keys` are their numbers.
inline std::string OldIndex(std::string_view content, std::uint32_t first, const std::vector<int>& keys) {
  std::string entries;
  int number = 0;
  for (std::size_t at = 0; at + 8 <= content.size(); ++number) {
    std::uint32_t size = 0;
    for (std::size_t i = 4; i > 0; --i) size = size << 8 | static_cast<unsigned char>(content[at + 3 + i]);
    bool key = false;
    for (const int of : keys) key = key || of == number;
    entries +=
        std::string(content.substr(at, 4)) + Numbers({key ? 0x10U : 0U, first + static_cast<std::uint32_t>(at), size});
    at += 8 + size + size % 2;
  }
  return Piece("idx1", entries);
}

// A key picture of 9 bytes, 3 bytes of sound, pictures of 7 and 6 bytes.
inline std::string Content() {
  return Piece("00dc", KeyPicture(9)) + Piece("01wb", "abc") + Piece("00dc", DeltaPicture(7)) +
         Piece("00dc", DeltaPicture(6));
}

// With an index that calls the last picture a key frame, which its data does not: so a reader shows what it went by.
inline std::string Film(std::string_view content = Content(), std::string_view headers = Headers(),
                        std::string_view behind = OldIndex(Content(), 4, {0, 1, 3})) {
  return Riff(std::string(headers) + List("movi", content) + std::string(behind));
}

}  // namespace captoria::avi_maker
