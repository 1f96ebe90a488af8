// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "render/text_shaper.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H
#include <pango/pangofc-font.h>
#include <pango/pangoft2.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "base/utf8.h"

namespace captoria {
namespace {

constexpr std::size_t kLongestText = std::size_t{32} << 10;
constexpr double kPixelsPerPoint = 96.0 / 72.0;
constexpr std::size_t kLongestFaceName = 32;

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
  void operator()(PangoFontDescription* description) const { pango_font_description_free(description); }
  void operator()(PangoFontMetrics* metrics) const { pango_font_metrics_unref(metrics); }
};
template <typename T>
using Owned = std::unique_ptr<T, Unref>;

// The language of a character set, so that Han characters look as their readers expect.
const char* LanguageOfCharset(int charset) {
  constexpr std::array<std::pair<int, const char*>, 8> kLanguages{
      {{128, "ja"}, {129, "ko"}, {134, "zh-cn"}, {136, "zh-tw"}, {162, "tr"}, {177, "he"}, {178, "ar"}, {222, "th"}}};
  const auto* known = std::ranges::find(kLanguages, charset, &std::pair<int, const char*>::first);
  return known == kLanguages.end() ? "en" : known->second;
}

// The user's settings for font smoothing must not change the bitmaps.
void AskForPlainOutlines(FcPattern* pattern, gpointer) {
  for (const char* property : {FC_HINTING, FC_HINT_STYLE, FC_ANTIALIAS, FC_AUTOHINT}) FcPatternDel(pattern, property);
  FcPatternAddBool(pattern, FC_HINTING, FcTrue);
  FcPatternAddInteger(pattern, FC_HINT_STYLE, FC_HINT_FULL);
  FcPatternAddBool(pattern, FC_ANTIALIAS, FcFalse);
  FcPatternAddBool(pattern, FC_AUTOHINT, FcFalse);
}

// The text as valid UTF-8 without control characters; the number of characters stays the same.
std::string Printable(std::string_view text) {
  std::string printable;
  printable.reserve(text.size());
  for (std::size_t at = 0; at < text.size() && printable.size() < kLongestText;) {
    const std::size_t length = Utf8CharacterLength(text, at);
    if (length == 0) {
      printable += kReplacementCharacter;
    } else if (length == 1 && (static_cast<unsigned char>(text[at]) < ' ' || text[at] == 0x7F)) {
      printable += ' ';
    } else {
      printable += text.substr(at, length);
    }
    at += std::max<std::size_t>(length, 1);
  }
  return printable;
}

int Pixels(int pango_units) { return PANGO_PIXELS(pango_units); }

// Pango's objects for a set of fonts.
class Layouter {
 public:
  explicit Layouter(FcConfig* config) : map_(pango_ft2_font_map_new()) {
    auto* fc_map = PANGO_FC_FONT_MAP(map_.get());
    pango_fc_font_map_set_config(fc_map, config);
    pango_fc_font_map_set_default_substitute(fc_map, AskForPlainOutlines, nullptr, nullptr);
    pango_ft2_font_map_set_resolution(PANGO_FT2_FONT_MAP(map_.get()), 96, 96);
    context_.reset(pango_font_map_create_context(map_.get()));
    pango_context_set_round_glyph_positions(context_.get(), TRUE);
    layout_.reset(pango_layout_new(context_.get()));
    pango_layout_set_auto_dir(layout_.get(), FALSE);
    pango_layout_set_single_paragraph_mode(layout_.get(), TRUE);
  }

  void Select(const PangoFontDescription* description, PangoLanguage* language) {
    pango_context_set_language(context_.get(), language);
    pango_layout_set_font_description(layout_.get(), description);
  }

  // Valid until the next call.
  PangoLayoutLine* Line(const std::string& text, bool right_to_left) {
    pango_context_set_base_dir(context_.get(), right_to_left ? PANGO_DIRECTION_RTL : PANGO_DIRECTION_LTR);
    pango_layout_context_changed(layout_.get());
    pango_layout_set_text(layout_.get(), text.data(), static_cast<int>(text.size()));
    return pango_layout_get_line_readonly(layout_.get(), 0);
  }

  bool LacksGlyphs() const { return pango_layout_get_unknown_glyphs_count(layout_.get()) > 0; }

  Owned<PangoFont> Load(const PangoFontDescription* description) {
    return Owned<PangoFont>(pango_font_map_load_font(map_.get(), context_.get(), description));
  }

 private:
  Owned<PangoFontMap> map_;
  Owned<PangoContext> context_;
  Owned<PangoLayout> layout_;
};

}  // namespace

void FontReport::Add(const FontReport& other) {
  for (const auto& [chosen, used] : other.fonts) fonts[chosen].insert(used.begin(), used.end());
  missing.insert(other.missing.begin(), other.missing.end());
}

struct TextShaper::State {
  explicit State(std::shared_ptr<FontCollection> fonts)
      : collection(std::move(fonts)), outlines(collection->Outlines()) {
    FT_Init_FreeType(&library);
  }
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    faces.clear();
    FT_Done_FreeType(library);
  }

  GlyphFace* FaceOf(PangoFont* font) {
    auto& face = faces[font];
    if (!face.second) {
      face.first.reset(PANGO_FONT(g_object_ref(font)));  // keeps the address from being reused
      face.second = std::make_unique<GlyphFace>(library, pango_fc_font_get_pattern(PANGO_FC_FONT(font)));
    }
    return face.second.get();
  }

  // Adds the glyphs of a run. `x` is its left end in Pango's units and moves to the right end.
  void Place(const PangoGlyphItem& run, int& x, ShapedText& shaped, FontReport& report);

  std::shared_ptr<FontCollection> collection;
  FT_Library library = nullptr;
  Layouter outlines;
  std::unique_ptr<Layouter> all;  // made when a character first needs it
  Owned<PangoFontDescription> description;
  PangoLanguage* language = nullptr;
  std::string chosen;
  std::unordered_map<PangoFont*, std::pair<Owned<PangoFont>, std::unique_ptr<GlyphFace>>> faces;
};

void TextShaper::State::Place(const PangoGlyphItem& run, int& x, ShapedText& shaped, FontReport& report) {
  PangoFont* font = run.item->analysis.font;
  GlyphFace* face = font != nullptr ? FaceOf(font) : nullptr;
  bool drawn = false;
  for (int i = 0; i < run.glyphs->num_glyphs; ++i) {
    const PangoGlyphInfo& info = run.glyphs->glyphs[i];
    const int width = info.geometry.width;
    const int left = Pixels(x + info.geometry.x_offset), down = Pixels(info.geometry.y_offset);
    x += width;
    if (info.glyph == PANGO_GLYPH_EMPTY) continue;
    if ((info.glyph & PANGO_GLYPH_UNKNOWN_FLAG) != 0) {
      report.missing.insert(info.glyph & ~PANGO_GLYPH_UNKNOWN_FLAG);
      shaped.glyphs.push_back({nullptr, static_cast<std::uint32_t>(std::max(Pixels(width), 0)), left, down});
    } else if (face != nullptr) {
      shaped.glyphs.push_back({face, info.glyph, left, down});
      drawn = true;
    }
  }
  FcChar8* family = nullptr;
  if (drawn &&
      FcPatternGetString(pango_fc_font_get_pattern(PANGO_FC_FONT(font)), FC_FAMILY, 0, &family) == FcResultMatch) {
    report.fonts[chosen].emplace(reinterpret_cast<const char*>(family));
  }
}

TextShaper::TextShaper(std::shared_ptr<FontCollection> collection)
    : state_(std::make_unique<State>(std::move(collection))) {
  Select(Font{});
}

TextShaper::~TextShaper() = default;

void TextShaper::Select(const Font& font) {
  auto* description = pango_font_description_new();
  state_->chosen = font.name.substr(0, kLongestFaceName);
  pango_font_description_set_family(description, state_->chosen.c_str());
  const double pixels = std::max(1.0, std::round(font.size * kPixelsPerPoint));
  pango_font_description_set_absolute_size(description, pixels * PANGO_SCALE);
  pango_font_description_set_weight(description, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(description, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  state_->description.reset(description);
  state_->language = pango_language_from_string(LanguageOfCharset(font.charset));
  state_->outlines.Select(description, state_->language);
}

ShapedText TextShaper::Shape(std::string_view text, bool right_to_left) {
  State& state = *state_;
  const std::string printable = Printable(text);
  PangoLayoutLine* line = state.outlines.Line(printable, right_to_left);
  if (state.outlines.LacksGlyphs()) {
    if (!state.all) state.all = std::make_unique<Layouter>(state.collection->All());
    state.all->Select(state.description.get(), state.language);
    line = state.all->Line(printable, right_to_left);
  }
  ShapedText shaped;
  int x = 0;
  for (const GSList* run = line->runs; run != nullptr; run = run->next) {
    state.Place(*static_cast<const PangoGlyphItem*>(run->data), x, shaped, report_);
  }
  shaped.width = Pixels(x);
  return shaped;
}

LineMetrics TextShaper::Metrics() {
  const auto font = state_->outlines.Load(state_->description.get());
  if (!font) return {};
  const Owned<PangoFontMetrics> metrics(pango_font_get_metrics(font.get(), nullptr));
  return {PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(metrics.get())),
          PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(metrics.get()))};
}

}  // namespace captoria
