// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/riff.h"

#include <algorithm>
#include <cstring>

namespace captoria {

std::string TextOf(FourCc code) { return {LetterOf(code, 0), LetterOf(code, 1), LetterOf(code, 2), LetterOf(code, 3)}; }

bool IsPrintable(FourCc code) {
  for (int i = 0; i < 4; ++i) {
    const char letter = LetterOf(code, i);
    if (letter < 0x20 || letter == 0x7F) return false;
  }
  return true;
}

RiffHeader RiffHeader::Parse(ByteView bytes) {
  ByteReader reader(bytes);
  RiffHeader header;
  header.id = reader.U32();
  header.size = reader.U32();
  header.type = reader.Left() < 4 ? 0 : reader.U32();
  return header;
}

Result<ByteView> FileWindow::At(std::uint64_t position, std::size_t count, std::size_t read_ahead) {
  const bool held =
      position >= begin_ && position - begin_ <= filled_ && (count <= filled_ - (position - begin_) || reaches_end_);
  if (!held) {
    const std::size_t wanted = std::max(count, read_ahead);
    if (buffer_.size() < wanted) buffer_.resize(wanted);
    filled_ = 0;
    const auto got = file_.ReadAt(position, {buffer_.data(), wanted});
    if (!got) return tl::unexpected(got.error());
    begin_ = position;
    filled_ = *got;
    reaches_end_ = filled_ < wanted;
  }
  const std::size_t at = static_cast<std::size_t>(position - begin_);
  return ByteView(buffer_).subspan(at, std::min(count, filled_ - at));
}

Result<void> FileWindow::ReadExactly(std::uint64_t position, std::span<std::uint8_t> to) const {
  if (position >= begin_ && position - begin_ < filled_) {
    const auto at = static_cast<std::size_t>(position - begin_);
    const ByteView held = ByteView(buffer_).subspan(at, std::min(to.size(), filled_ - at));
    std::memcpy(to.data(), held.data(), held.size());
    position += held.size();
    to = to.subspan(held.size());
  }
  return to.empty() ? Result<void>{} : file_.ReadExactly(position, to);
}

}  // namespace captoria
