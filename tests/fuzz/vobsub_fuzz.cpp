// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Whatever a VobSub pair holds, the packets made of it can be shown: in the order of their times, which do not overlap,
// each with an even box inside the frame. The input is the index, a NUL, and the .sub.
#include <stdlib.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "media/vobsub/vobsub_source.h"
#include "media/xsub/xsub_packet.h"

namespace {

using namespace captoria;

void Require(bool held) {
  if (!held) std::abort();
}

// The two files have to lie beside each other under names of their own.
class PairFolder {
 public:
  PairFolder() { Require(mkdtemp(path_.data()) != nullptr); }
  ~PairFolder() { std::filesystem::remove_all(path_); }

  std::string Put(const char* name, std::string_view content) const {
    std::ofstream(path_ + name, std::ios::binary) << content;
    return path_ + name;
  }

 private:
  std::string path_ = std::filesystem::exists("/dev/shm")
                          ? std::string{"/dev/shm/vobsub-fuzz-XXXXXX"}
                          : std::filesystem::temp_directory_path().string() + "/vobsub-fuzz-XXXXXX";
};

// Gives when the packet's picture goes.
std::int64_t CheckPacket(const Bytes& packet, std::int64_t show, const Size& frame) {
  const auto times = ReadXsubTimes(packet);
  Require(times && times->show == show && times->hide > show && packet.size() > kXsubHeader);
  ByteReader in(ByteView{packet}.subspan(27));
  const int width = in.U16(), height = in.U16(), left = in.U16(), top = in.U16();
  Require(left % 2 == 0 && top % 2 == 0 && width % 2 == 0 && height % 2 == 0);
  Require(left + width <= frame.width && top + height <= frame.height);
  return times->hide;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PairFolder folder;
  const std::string_view input{reinterpret_cast<const char*>(data), size};
  const auto nul = std::min(input.find('\0'), size);
  folder.Put("/film.sub", input.substr(std::min(nul + 1, size)));
  const auto source = OpenVobSub(folder.Put("/film.idx", input.substr(0, nul)));
  if (!source) return 0;
  // One picture can take a frame's worth of work, so a few have to do.
  std::int64_t hidden = 0;
  for (std::size_t i = 0; i < std::min<std::size_t>((*source)->Count(), 4); ++i) {
    const std::int64_t show = (*source)->ShowTime(i);
    Require(show >= hidden);
    const auto packet = (*source)->Packet(i);
    hidden = packet ? CheckPacket(*packet, show, (*source)->Frame()) : show;
  }
  return 0;
}
