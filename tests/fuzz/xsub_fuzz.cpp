// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "media/xsub/xsub_file.h"
#include "media/xsub/xsub_packet.h"

namespace {

using namespace captoria;

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
  CheckFile({data, size});
  return 0;
}
