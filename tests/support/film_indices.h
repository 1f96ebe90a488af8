// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The RIFFs and indices of an AVI file, read by their numbers alone.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/bytes.h"

namespace captoria {

// Every index entry must lead to the chunk that it names.
class FilmIndices {
 public:
  explicit FilmIndices(const std::string& content) : content_(content) {}

  std::uint32_t NumberAt(std::size_t at) const {
    return ByteReader(ByteView{reinterpret_cast<const std::uint8_t*>(content_.data()) + at, 4}).U32();
  }

  std::size_t CheckRiffs() const {
    std::size_t riff = 0, riffs = 0;
    for (; riff < content_.size(); riff += 8 + NumberAt(riff + 4), ++riffs) EXPECT_EQ(content_.substr(riff, 4), "RIFF");
    EXPECT_EQ(riff, content_.size());
    return riffs;
  }

  void CheckIdx1() const {
    const std::size_t movi = content_.find("movi"), index = content_.find("idx1");
    ASSERT_NE(index, content_.npos);
    EXPECT_EQ(movi + NumberAt(movi - 4), index) << "the chunks end where the index begins";
    for (std::size_t at = index + 8; at < index + 8 + NumberAt(index + 4); at += 16) {
      ExpectChunk(movi + NumberAt(at + 8), content_.substr(at, 4), NumberAt(at + 12));
      EXPECT_EQ(NumberAt(at + 4) == 0x100, content_.substr(at + 2, 2) == "pc") << "only a palette takes no time";
    }
  }

  // The `indx` at `super` and all that it lists. Returns the sum of the durations.
  std::uint32_t CheckSuperIndex(std::size_t super, std::size_t riffs) const {
    EXPECT_EQ(NumberAt(super + 12), riffs);
    std::uint32_t length = 0;
    for (std::size_t entry = super + 32; entry < super + 32 + 16 * riffs; entry += 16) {
      const std::size_t part = NumberAt(entry), base = NumberAt(part + 20);
      EXPECT_EQ(content_.substr(part, 2), "ix");
      EXPECT_EQ(NumberAt(part + 4) + 8, NumberAt(entry + 8));
      for (std::size_t at = part + 32; at < part + NumberAt(entry + 8); at += 8) {
        ExpectChunk(base + NumberAt(at) - 8, content_.substr(part + 16, 4), NumberAt(at + 4) & 0x7FFFFFFF);
      }
      length += NumberAt(entry + 12);
    }
    return length;
  }

 private:
  void ExpectChunk(std::size_t at, const std::string& id, std::uint32_t size) const {
    EXPECT_EQ(content_.substr(at, 4), id);
    EXPECT_EQ(NumberAt(at + 4), size);
  }

  const std::string& content_;
};

}  // namespace captoria
