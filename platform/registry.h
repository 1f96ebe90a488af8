// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The keys that tell a system what can be done with files of a kind: the root HKEY_CLASSES_ROOT of a registry. A key
// is named by the whole way to it, parts separated by "\", such as "AVIFile\shell". Names of keys and values are
// compared without regard to ASCII case. A value has a name, the empty one for the key's default value, and a text.
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

  // No key where the registry cannot be read.
  virtual bool KeyExists(const std::string& key) const = 0;

  // Empty when there is no such key or value.
  virtual std::string ReadValue(const std::string& key, const std::string& name) const = 0;

  // These three refuse an empty key name with "Invalid KeyName value".

  // And the keys above it. No error when it is there.
  virtual Result<void> CreateKey(const std::string& key) = 0;

  // NotFound when there is no such key.
  virtual Result<void> SetValue(const std::string& key, const std::string& name, const std::string& text) = 0;

  // With its values. NotFound when there is no such key, Unsupported when there are keys below it.
  virtual Result<void> DeleteKey(const std::string& key) = 0;
};

// A registry of the user's own, for systems that have none: a text file, read anew for each question and each change,
// and written whole.
//
//   [AVIFile\shell\Create .divx with subs\command]
//   @="\"/opt/captoria/Captoria\" /auto %1"
//
// "@" is the default value, a named one stands in quotation marks, and within those a backslash makes \\, \", \n and
// \r. Lines that are not of this form are passed over, and gone with the next change. As long as the file is not there
// the keys are those of a newly installed system: ".avi", whose default value names the class "AVIFile", and that
// class, for a verb needs a class to belong to.
class FileRegistry final : public RegistryClass {
 public:
  explicit FileRegistry(std::string path) : path_(std::move(path)) {}

  // Beyond what RegistryClass says, changes fail as reading and writing files does, and with TooLarge or Unsupported
  // for names over 1024 bytes or with control characters, and for more than 64 KiB in all. The file is then untouched.
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
