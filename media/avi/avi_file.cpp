// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "media/avi/avi_file.h"

#include <utility>

#include "media/avi/avi_headers.h"
#include "media/avi/avi_info.h"
#include "media/avi/avi_walk.h"

namespace captoria {

bool AviStream::IsXsub() const {
  const auto picture = PictureFormatOf(*this);
  return picture && (picture->compression == "DXSB" || picture->compression == "DXSA");
}

Result<AviFile> AviFile::Open(const std::string& path) {
  auto input = InputFile::Open(path);
  if (!input) return tl::unexpected(input.error());
  AviFile avi;
  avi.file_ = std::make_shared<InputFile>(*std::move(input));
  avi.damage_ = std::make_shared<Findings>();
  auto headers = ReadAviHeaders(*avi.file_, *avi.damage_);
  if (!headers) return tl::unexpected(headers.error());
  avi.main_ = headers->main;
  avi.streams_ = std::move(headers->streams);
  avi.extras_ = std::move(headers->extras);
  avi.places_ = std::make_shared<AviPlaces>(std::move(headers->places));
  return avi;
}

std::unique_ptr<AviChunkWalk> AviFile::Chunks() const { return WalkAviChunks(*file_, streams_, *places_, damage_); }

}  // namespace captoria
