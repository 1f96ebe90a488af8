// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// An INI file read and changed as a whole. A file that is not there is an empty one; a file that cannot be read, or is
// none of ours by its content, is never written over.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

#include "base/result.h"
#include "settings/ini_document.h"

namespace captoria {

// Some thousand times what the program writes; a larger file is something else.
constexpr std::uint64_t kLargestIniFile = std::uint64_t{16} << 20;

// At most this many characters of a value are given back by IniRead.
constexpr std::size_t kLongestIniValue = 254;

// Errors: Unreadable, Damaged, TooLarge.
Result<IniDocument> ReadIniFile(const std::string& path);

// Reads the file anew, lets `edit` change it and puts it in place whole and synced. A change that changes nothing does
// not touch the disk.
Result<void> EditIniFile(const std::string& path, const std::function<void(IniDocument&)>& edit);

// A value, or the default when there is no such file, section or key: as text, cut to kLongestIniValue characters (of
// UTF-8; a byte that is none counts as one), or with `numeric` as the whole number that leads the text.
std::variant<std::string, int> IniRead(std::string_view section, std::string_view key, std::string_view default_text,
                                       int default_number, bool numeric, const std::string& path);

// Whether the value is in the file now.
bool IniWrite(std::string_view section, std::string_view key, std::string_view value, const std::string& path);

}  // namespace captoria
