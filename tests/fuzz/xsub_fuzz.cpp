// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Packets, and files of packets.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "media/xsub/xsub_file.h"
#include "media/xsub/xsub_packet.h"

namespace {

using namespace captoria;

// A packet that was understood is understood the same when it is written again.
void CheckPacket(ByteView bytes) {
  for (const XsubForm form : {XsubForm::Dxsb, XsubForm::Dxsa}) {
    const auto cue = DecodeXsub(bytes, form);
    if (!cue) continue;
    const auto& [picture, left, top] = cue->picture;
    const Size frame{left + picture.width + 2, top + picture.height + 2};
    if (frame.width > kLongestXsubSide || frame.height > kLongestXsubSide) continue;
    const auto again = EncodeXsub(*cue, frame);
    if (!again) continue;
    const auto same = DecodeXsub(*again);
    if (!same || same->times != cue->times) __builtin_trap();
    if (same->picture.left != left / 2 * 2 || same->picture.top != top / 2 * 2) __builtin_trap();
    for (int y = 0; y < picture.height; ++y) {
      const auto row = same->picture.picture.Row(y + top % 2).subspan(static_cast<std::size_t>(left % 2));
      if (!std::equal(picture.Row(y).begin(), picture.Row(y).end(), row.begin())) __builtin_trap();
    }
  }
}

void CheckFile(ByteView bytes) {
  const int descriptor = memfd_create("fuzz", 0);
  if (write(descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size())) {
    const auto file = OpenXsubFile("/proc/self/fd/" + std::to_string(descriptor));
    for (std::size_t i = 0; file && i < (*file)->Count(); ++i) {
      const auto packet = (*file)->Packet(i);
      if (packet && ReadXsubTimes(*packet)->show != (*file)->ShowTime(i)) __builtin_trap();
    }
  }
  close(descriptor);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CheckPacket({data, size});
  CheckFile({data, size});
  return 0;
}
