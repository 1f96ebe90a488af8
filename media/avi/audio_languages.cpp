// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/audio_languages.h"

#include <map>

namespace captoria {
namespace {

constexpr int kMostLanguages = 9;

// The number of the audio stream that the piece `id` names the language of; 0 for other pieces.
int AudioNumber(const std::string& id) {
  return id.starts_with("IAS") && id[3] >= '1' && id[3] <= '9' ? id[3] - '0' : 0;
}

void Put(ByteWriter& out, const std::string& id, ByteView data) {
  out.Text(id).U32(static_cast<std::uint32_t>(data.size())).Append(data);
  if (data.size() % 2 != 0) out.U8(0);
}

}  // namespace

RiffPiece WithAudioLanguages(const RiffPiece& list, std::span<const int> former_numbers) {
  ByteReader in(list.data);
  if (list.id != "LIST" || in.FourCc() != "INFO") return list;
  ByteWriter out;
  out.Text("INFO");
  std::map<int, ByteView> languages;
  while (in.Left() >= 8) {
    const std::string id = in.FourCc();
    const std::uint32_t size = in.U32();
    const ByteView data = in.Take(size);
    if (in.Failed()) return list;
    if (size % 2 != 0 && in.Left() > 0) in.Skip(1);
    if (const int number = AudioNumber(id); number > 0) {
      languages[number] = data;
    } else {
      Put(out, id, data);
    }
  }
  if (languages.empty()) return list;
  int number = 1;
  for (const int former : former_numbers) {
    const auto language = languages.find(former);
    if (language != languages.end() && number <= kMostLanguages)
      Put(out, "IAS" + std::to_string(number), language->second);
    ++number;
  }
  return {.id = list.id, .data = out.Take()};
}

}  // namespace captoria
