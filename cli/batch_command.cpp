// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "cli/batch_command.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/ascii.h"
#include "base/path_text.h"
#include "base/result.h"
#include "cli/convert_command.h"
#include "platform/files.h"

namespace captoria {
namespace {

constexpr std::size_t kLargestList = std::size_t{16} << 20;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr const char* kStandardInput = "-";

struct BatchArguments {
  std::string list;
  ConvertArguments convert;
};

Result<std::string> ReadStandardInput() {
  std::string content;
  std::array<char, 1 << 14> piece;
  while (true) {
    const ssize_t got = ::read(STDIN_FILENO, piece.data(), piece.size());
    if (got == 0) return content;
    if (got < 0) {
      return Failure(ErrorKind::Unreadable, std::string{"standard input: cannot be read: "} + std::strerror(errno));
    }
    content.append(piece.data(), static_cast<std::size_t>(got));
    if (content.size() > kLargestList) return Failure(ErrorKind::TooLarge, "standard input: is larger than 16 MiB");
  }
}

// The videos of a list, one path on each line. Paths are bytes: nothing is decoded, and blanks at the ends belong to
// them.
Result<std::vector<std::string>> ReadList(const std::string& list) {
  const bool piped = list == kStandardInput;
  const auto content = piped ? ReadStandardInput() : ReadWholeFile(list, kLargestList);
  if (!content) return tl::unexpected(content.error());
  if (content->find('\0') != content->npos) {
    return Failure(ErrorKind::Damaged, list + ": holds a byte that is 0; a list is text with a path on each line");
  }
  const std::string folder = piped ? "./" : FolderOf(list);
  std::vector<std::string> videos;
  std::string_view rest = *content;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  while (!rest.empty()) {
    std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (Trim(line).empty() || line.starts_with('#')) continue;
    videos.push_back(std::filesystem::path(line).is_absolute() ? std::string{line} : JoinPath(folder, line));
  }
  return videos;
}

int RunBatchCommand(BatchArguments arguments, const std::string& data_folder) {
  auto videos = ReadList(arguments.list);
  if (!videos) {
    Complain(videos.error().message);
    return kExitFailed;
  }
  arguments.convert.videos = std::move(*videos);
  return RunConvert(arguments.convert, data_folder);
}

}  // namespace

void AddBatchCommand(CLI::App& app, CliContext& context) {
  auto arguments = std::make_shared<BatchArguments>();
  CLI::App* command = app.add_subcommand("batch", "Make a .divx of each video that a list names");
  command
      ->add_option("list", arguments->list,
                   "A text file with a path a line, or - for standard input. Relative paths start at the folder of the "
                   "list (of standard input: at the current folder). Blank lines and lines that begin with # are "
                   "skipped; a list without a video is no error")
      ->required()
      ->type_name("LIST");
  AddConvertOptions(*command, arguments->convert, context);
  command->callback([arguments, &context] { context.status = RunBatchCommand(*arguments, context.data_folder); });
}

}  // namespace captoria
