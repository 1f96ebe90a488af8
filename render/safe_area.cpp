// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/safe_area.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "render/quick_fit.h"
#include "render/styled_text.h"
#include "settings/number_text.h"
#include "settings/placement.h"

namespace captoria {
namespace {

constexpr int kSmallestSize = 5;

// Cues with the same text need the same size, so each text is measured only once per size.
struct SharedText {
  std::string_view text;
  std::vector<std::size_t> rows;  // of the cues with this text
};

std::vector<SharedText> OutsideTexts(const SubtitleTrack& track) {
  std::vector<SharedText> texts;
  std::unordered_map<std::string_view, std::size_t> place;
  for (const OutsideRow& outside : track.outside) {
    const std::string_view text = track.cues[outside.row].Text;
    const auto [known, added] = place.try_emplace(text, texts.size());
    if (added) texts.push_back({text, {}});
    texts[known->second].rows.push_back(outside.row);
  }
  return texts;
}

class AreaTest {
 public:
  AreaTest(SubtitleBitmap& bitmap, const TrackStyle& style) : surface_(bitmap.Surface()), font_(style.font) {
    bitmap.SetDibProp(style, 2);
    area_ = {bitmap.Frame().width, bitmap.Dib().Height()};
  }

  const Size& Area() const { return area_; }

  TextFit Test(std::string_view text) {
    surface_.SelectFont(font_);  // the text before may have left another font selected
    return StyledTextFits(surface_, text, area_, font_);
  }

  void SetSize(double points) { font_.size = points; }

 private:
  TextSurface& surface_;
  Font font_;
  Size area_;
};

void Fit(SubtitleTrack& track, AreaTest& test) {
  std::vector<SharedText> texts = OutsideTexts(track);
  for (int size = RoundToInt(track.style.font.size) - 1; size >= kSmallestSize && !texts.empty(); --size) {
    test.SetSize(size);
    std::erase_if(texts, [&](const SharedText& shared) {
      if (!test.Test(shared.text).fits) return false;
      for (const std::size_t row : shared.rows) {
        SubtitleCue& cue = track.cues[row];
        cue.Tag = WithFittingPart(cue.Tag, TextOfNumber(static_cast<double>(size)));
      }
      return true;
    });
  }
}

}  // namespace

SafeAreaCheck ReCheckSrt(SubtitleTrack& track, SubtitleBitmap& bitmap) {
  SafeAreaCheck check;
  track.outside.clear();
  AreaTest test(bitmap, track.style);
  QuickFit quick(bitmap.Surface(), track.style.font, test.Area());
  std::unordered_map<std::string_view, TextFit> known;
  for (std::size_t i = 0; i < track.cues.size(); ++i) {
    SubtitleCue& cue = track.cues[i];
    cue.Tag = WithFittingPart(cue.Tag, "");
    if (quick.SurelyFits(cue.Text)) continue;
    const auto [fit, added] = known.try_emplace(cue.Text);
    if (added) fit->second = test.Test(cue.Text);
    check.has_font_tag = check.has_font_tag || fit->second.has_font_tag;
    if (fit->second.fits) continue;
    track.outside.push_back({.row = i});
  }
  if (check.has_font_tag) track.style.ShadowBevel = 0;
  check.outside = static_cast<int>(track.outside.size());
  Fit(track, test);
  bitmap.SetDibProp(track.style, 2);
  return check;
}

}  // namespace captoria
