// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Reads and changes an INI file as a whole. A missing file counts as empty. A file that cannot be read, or whose
// content is not an INI text, is never overwritten.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

#include "base/result.h"
#include "settings/ini_document.h"

namespace captoria {

// Thousands of times what the program writes; a larger file is something else.
constexpr std::uint64_t kLargestIniFile = std::uint64_t{16} << 20;

// IniRead returns at most this many characters of a value.
constexpr std::size_t kLongestIniValue = 254;

// Errors: Unreadable, Damaged, TooLarge.
Result<IniDocument> ReadIniFile(const std::string& path);

// Reads the file, calls `edit` and replaces the file, synced. Writes nothing if `edit` changes nothing.
Result<void> EditIniFile(const std::string& path, const std::function<void(IniDocument&)>& edit);

// The value, or the default if the file, section or key is missing: as text, cut to kLongestIniValue characters of
// UTF-8 (an invalid byte counts as one), or with `numeric` as the whole number at the start of the text.
std::variant<std::string, int> IniRead(std::string_view section, std::string_view key, std::string_view default_text,
                                       int default_number, bool numeric, const std::string& path);

// Returns whether the file has the value now.
bool IniWrite(std::string_view section, std::string_view key, std::string_view value, const std::string& path);

}  // namespace captoria
