// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The languages and the types that a subtitle stream can be labelled with. Players know them by these codes and
// numbers, so their entries are not translated.
#pragma once

#include <span>
#include <string_view>

namespace captoria {

// The language of a track that names none of the list.
inline constexpr std::string_view kDefaultLanguage = "en ENGLISH";

// Two-letter code, blank and name, as in "fr FRENCH", by name. The codes are those of ISO 639 in 1988 with a few
// departures, and some names repeat the code: a film's label is made of the text before the first blank, whatever it
// is.
std::span<const std::string_view> Languages();

// A type's number in two digits, blank and name, as in "02 Normal". The number is the entry's place counted from 1.
std::span<const std::string_view> SubtitleTypes();

}  // namespace captoria
