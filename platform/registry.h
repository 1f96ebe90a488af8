// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The registry keys that say what can be done with files of a type, below HKEY_CLASSES_ROOT. A key is named by its full
// path, with parts separated by "\", such as "AVIFile\shell". Names of keys and values ignore ASCII case. A value has a
// name, which is empty for the key's default value, and a text.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/result.h"

namespace captoria {

class RegistryClass {
 public:
  virtual ~RegistryClass() = default;

  // False if the registry cannot be read.
  virtual bool KeyExists(const std::string& key) const = 0;

  // Empty if there is no such key or value.
  virtual std::string ReadValue(const std::string& key, const std::string& name) const = 0;

  // These three fail with "Invalid KeyName value" for an empty key name.

  // Creates the key and its parents. No error if it exists.
  virtual Result<void> CreateKey(const std::string& key) = 0;

  // NotFound if there is no such key.
  virtual Result<void> SetValue(const std::string& key, const std::string& name, const std::string& text) = 0;

  // Deletes the key with its values. NotFound if there is no such key, Unsupported if it has subkeys.
  virtual Result<void> DeleteKey(const std::string& key) = 0;
};

// A registry of the user's own, for systems without one. It is a text file, which every call reads anew and every
// change writes whole.
//
//   [AVIFile\shell\Create .divx with subs\command]
//   @="\"/opt/captoria/Captoria\" /auto %1"
//
// "@" is the default value; other names stand in quotation marks. Inside quotation marks \\, \", \n and \r are escapes.
// Lines of any other form are ignored and lost with the next change. While the file does not exist, the keys are those
// of a newly installed system: ".avi", whose default value names the class "AVIFile", and that class, to which verbs
// can be added.
class FileRegistry final : public RegistryClass {
 public:
  explicit FileRegistry(std::string path) : path_(std::move(path)) {}

  // Changes also fail if the file cannot be read or written, with Unsupported for a name that is longer than 1024 bytes
  // or contains control characters, and with TooLarge above 64 KiB in all. On failure the file is untouched.
  bool KeyExists(const std::string& key) const override;
  std::string ReadValue(const std::string& key, const std::string& name) const override;
  Result<void> CreateKey(const std::string& key) override;
  Result<void> SetValue(const std::string& key, const std::string& name, const std::string& text) override;
  Result<void> DeleteKey(const std::string& key) override;

 private:
  struct IgnoringCase {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const;
  };
  using Values = std::map<std::string, std::string, IgnoringCase>;
  using Keys = std::map<std::string, Values, IgnoringCase>;

  static Keys Parse(std::string_view text);
  static std::string Text(const Keys& keys);
  static Values& Add(Keys& keys, std::string_view key);
  Result<Keys> Load() const;
  Result<void> Change(const std::string& key, const std::function<Result<void>(Keys&)>& change);

  std::string path_;
};

}  // namespace captoria
