// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/font_collection.h"

#include <fontconfig/fontconfig.h>

#include <utility>

namespace captoria {
namespace {

constexpr const char* kWithoutColourFonts =
    "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><selectfont><rejectfont><pattern>"
    "<patelt name=\"color\"><bool>true</bool></patelt></pattern></rejectfont></selectfont></fontconfig>";

// The caller owns `config`, also if it cannot be loaded.
bool Load(FcConfig* config, const char* addition) {
  if (config == nullptr || FcConfigParseAndLoad(config, nullptr, FcTrue) == FcFalse) return false;
  if (addition != nullptr) {
    const auto* xml = reinterpret_cast<const FcChar8*>(addition);
    if (FcConfigParseAndLoadFromMemory(config, xml, FcTrue) == FcFalse) return false;
  }
  return FcConfigBuildFonts(config) == FcTrue;
}

bool HasFonts(FcConfig* config) {
  const FcFontSet* fonts = FcConfigGetFonts(config, FcSetSystem);
  return fonts != nullptr && fonts->nfont > 0;
}

}  // namespace

void FontCollection::Release::operator()(_FcConfig* config) const { FcConfigDestroy(config); }

Result<std::shared_ptr<FontCollection>> FontCollection::Open() {
  Config outlines(FcConfigCreate());
  if (!Load(outlines.get(), kWithoutColourFonts)) {
    return Failure(ErrorKind::Unreadable, "the font configuration (fontconfig) cannot be loaded");
  }
  std::shared_ptr<FontCollection> fonts(new FontCollection(std::move(outlines)));
  if (!HasFonts(fonts->outlines_.get()) && !HasFonts(fonts->All())) {
    return Failure(ErrorKind::NotFound,
                   "no font is installed to draw subtitles with; install one, such as DejaVu Sans");
  }
  return fonts;
}

_FcConfig* FontCollection::All() {
  std::call_once(all_loaded_, [this] {
    Config all(FcConfigCreate());
    if (Load(all.get(), nullptr)) all_ = std::move(all);
  });
  return all_ ? all_.get() : outlines_.get();
}

}  // namespace captoria
