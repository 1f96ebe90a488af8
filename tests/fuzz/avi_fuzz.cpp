// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <sys/mman.h>
#include <unistd.h>

#include "media/avi/avi_file.h"
#include "media/avi/avi_info.h"

namespace {

void Require(bool promise) {
  if (!promise) __builtin_trap();
}

// What was accepted keeps its promises.
void Check(const captoria::AviFile& film) {
  Require(!film.Streams().empty() && film.Streams().size() <= 100);
  std::size_t extras = 0;
  for (const captoria::RiffPiece& piece : film.Extras()) extras += piece.data.size();
  Require(extras <= 1 << 20);
  Require(captoria::InfoOf(film).scale != 0);
  for (std::size_t i = 0; i < film.Streams().size(); ++i) {
    Require(captoria::StreamInfoOf(film, static_cast<int>(i)).name.size() < 64);
  }
  const auto walk = film.Chunks();
  std::uint64_t behind = 0;
  while (true) {
    const auto next = walk->Next();
    Require(next.has_value());
    if (!*next) break;
    const captoria::AviChunk& chunk = **next;
    Require(chunk.position >= behind && chunk.type.size() == 2);
    Require(chunk.stream >= 0 && static_cast<std::size_t>(chunk.stream) < film.Streams().size());
    behind = chunk.DataPosition() + chunk.size;
    Require(behind <= film.File().Size());
  }
  Require(film.Damage().size() < 1000);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const int descriptor = memfd_create("fuzz", 0);
  static const std::string path = "/proc/self/fd/" + std::to_string(descriptor);
  if (ftruncate(descriptor, 0) != 0 || pwrite(descriptor, data, size, 0) != static_cast<ssize_t>(size)) return 0;
  if (const auto film = captoria::AviFile::Open(path)) Check(*film);
  return 0;
}
