// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The languages and types that a subtitle stream can be labelled with. Players identify them by these codes and
// numbers, so the entries are not translated.
#pragma once

#include <span>
#include <string_view>

namespace captoria {

// The language of a track whose language is not in the list.
inline constexpr std::string_view kDefaultLanguage = "en ENGLISH";

// Two-letter code, blank and name, as in "fr FRENCH", sorted by name. The codes follow ISO 639:1988 with a few
// deviations, and some names repeat the code. The label of a stream uses only the text before the first blank.
std::span<const std::string_view> Languages();

// Two-digit number, blank and name, as in "02 Normal". The number is the position in the list, counted from 1.
std::span<const std::string_view> SubtitleTypes();

}  // namespace captoria
