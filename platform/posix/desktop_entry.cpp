// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "platform/desktop_entry.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <vector>

#include "base/ascii.h"
#include "base/path_text.h"
#include "base/utf8.h"
#include "platform/files.h"
#include "platform/process.h"

namespace captoria {
namespace {

constexpr std::uint64_t kLongestEntry = std::uint64_t{64} << 10;

// A quoted argument as the file has it: each backslash of the quoting is doubled, and so is "%", which would begin a
// field code.
std::string Quoted(std::string_view argument) {
  std::string quoted = "\"";
  for (const char c : argument) {
    if (c == '"' || c == '`' || c == '$') quoted += R"(\\)";
    if (c == '\\') quoted += R"(\\\)";
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + '"';
}

std::string ExecLine(const FileAction& action) {
  std::string program = Quoted(action.executable);
  // A program's name must not contain "=", and GLib looks for the program before it undoes the doubled "%". As an
  // argument of a shell the name may contain both; the only text the shell interprets is ours.
  if (action.executable.find_first_of("=%") != std::string::npos) {
    program = "sh -c " + Quoted(R"(exec "$0" "$@")") + " " + program;
  }
  return "Exec=" + program + " " + action.option + " %f\n";
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) escaped.append(c == '\\' ? 2 : 1, c);
  return escaped;
}

// NoDisplay keeps the entry out of the menu of programs, where it would have no file to work on.
std::string EntryText(const FileAction& action) {
  return "[Desktop Entry]\nType=Application\nName=" + action.name + "\nIcon=" + action.icon +
         "\nTryExec=" + Escaped(action.executable) + "\n" + ExecLine(action) + "MimeType=" + action.mime_types +
         "\nNoDisplay=true\n";
}

std::string ServiceMenuText(const FileAction& action) {
  return "[Desktop Entry]\nType=Service\nMimeType=" + action.mime_types +
         "\nActions=start;\n\n[Desktop Action start]\nName=" + action.name + "\nIcon=" + action.icon + "\n" +
         ExecLine(action);
}

Result<void> CheckProgram(const std::string& path) {
  if (!path.starts_with('/') || TakeUtf8Census(path).invalid > 0 || std::ranges::any_of(path, IsControl)) {
    return Failure(ErrorKind::Unsupported, path + ": file managers cannot use a program with such a path");
  }
  if (!FileExists(path)) return Failure(ErrorKind::NotFound, path + ": there is no such program");
  return {};
}

Result<void> WriteEntry(const std::string& path, const std::string& text) {
  if (auto made = CreateFolder(FolderOf(path)); !made) return made;
  return WriteWholeFile(path, text);
}

Result<bool> RemoveEntry(const std::string& path) {
  std::error_code error;
  const bool removed = std::filesystem::remove(path, error);
  // If a part of the path is not a folder, there is no such file.
  if (error && error != std::errc::not_a_directory) {
    return Failure(ErrorKind::Unwritable, path + ": cannot be removed: " + error.message());
  }
  return removed;
}

// The desktop's own tools answer at once. If one does not, give up: the window must not hang.
class Patience final : public JobProgress {
 public:
  bool Report(std::size_t, std::size_t) override { return std::chrono::steady_clock::now() < end_; }

 private:
  const std::chrono::steady_clock::time_point end_ = std::chrono::steady_clock::now() + std::chrono::seconds(3);
};

// The output of the tool; empty if it is missing or fails, since no desktop has all of them.
std::string AskTool(const Environment& environment, std::string_view tool, std::vector<std::string> arguments) {
  const auto program = FindOnPath(tool, environment);
  if (!program) return {};
  const int memory = ::memfd_create("answer", MFD_CLOEXEC);
  if (memory < 0) return {};
  const std::string answer = "/proc/self/fd/" + std::to_string(memory);
  auto process = Process::Start({.program = *program,
                                 .arguments = std::move(arguments),
                                 .folder{},
                                 .environment{},
                                 .log_file = answer,
                                 .shows_output = false});
  std::string said;
  Patience patience;
  if (process && process->Wait(patience) == 0) said = ReadWholeFile(answer, kLongestEntry).value_or("");
  ::close(memory);
  return said;
}

// The programs that open the types now. If the user never chose one, the desktop prefers the user's own entries, and a
// double click on a film would convert it.
class Openers {
 public:
  Openers(const Environment& environment, std::string_view mime_types) : environment_(environment) {
    while (!mime_types.empty()) {
      const auto end = std::min(mime_types.find(';'), mime_types.size());
      const std::string type{mime_types.substr(0, end)};
      mime_types.remove_prefix(std::min(end + 1, mime_types.size()));
      std::string opener = AskTool(environment_, "xdg-mime", {"query", "default", type});
      if (opener.ends_with('\n')) opener.pop_back();
      if (opener.ends_with(".desktop") && opener.find('\n') == opener.npos) openers_.push_back({type, opener});
    }
  }

  void Keep(const std::string& except) const {
    for (const auto& [type, opener] : openers_) {
      if (opener != except) AskTool(environment_, "xdg-mime", {"default", opener, type});
    }
  }

 private:
  struct Opener {
    std::string type, opener;
  };
  const Environment& environment_;
  std::vector<Opener> openers_;
};

}  // namespace

// An installed program keeps its data one folder below.
std::string FileActions::DataFolder() const {
  return std::string{GetPathOnly(FindProgramFolders({}, {}, environment_).data)};
}

std::string FileActions::EntryFile(const FileAction& action) const {
  return DataFolder() + "/applications/" + action.id + ".desktop";
}

std::string FileActions::ServiceMenuFile(const FileAction& action) const {
  return DataFolder() + "/kio/servicemenus/" + action.id + ".desktop";
}

void FileActions::UpdateDatabase() const {
  AskTool(environment_, "update-desktop-database", {DataFolder() + "/applications"});
}

bool FileActions::IsOffered(const FileAction& action) const {
  const auto text = ReadWholeFile(EntryFile(action), kLongestEntry);
  return text && ("\n" + *text).find("\n" + ExecLine(action)) != std::string::npos;
}

Result<void> FileActions::Offer(const FileAction& action) const {
  if (auto possible = CheckProgram(action.executable); !possible) return possible;
  const Openers openers(environment_, action.mime_types);
  auto written = WriteEntry(EntryFile(action), EntryText(action));
  if (written) written = WriteEntry(ServiceMenuFile(action), ServiceMenuText(action));
  if (!written) {
    static_cast<void>(Withdraw(action));  // leave no half of it
    return written;
  }
  // Dolphin trusts a service menu of the user only if it is executable. On file systems without permissions it always
  // is.
  std::error_code ignored;
  std::filesystem::permissions(ServiceMenuFile(action), std::filesystem::perms::owner_exec,
                               std::filesystem::perm_options::add, ignored);
  UpdateDatabase();
  openers.Keep(action.id + ".desktop");
  return {};
}

Result<void> FileActions::Withdraw(const FileAction& action) const {
  const auto entry = RemoveEntry(EntryFile(action));
  const auto menu = RemoveEntry(ServiceMenuFile(action));
  if (entry && *entry) UpdateDatabase();
  if (!entry) return tl::unexpected(entry.error());
  if (!menu) return tl::unexpected(menu.error());
  return {};
}

}  // namespace captoria
