// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Writes the English language file, which others are translated from: language_template FILE.
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>

#include "cli/unattended_prompts.h"
#include "platform/files.h"
#include "tests/ui/program_texts.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("language_template FILE\n", stderr);
    return 2;
  }
  const QTemporaryDir empty;
  captoria::UnattendedPrompts prompts(false);
  const auto texts = captoria::ProgramTexts(empty.path().toStdString(), prompts);
  const auto written =
      captoria::WriteWholeFile(argv[1], captoria::WriteLanguage(texts, "Captoria contributors", CAPTORIA_VERSION));
  if (!written) std::fprintf(stderr, "%s\n", written.error().message.c_str());
  return written ? 0 : 1;
}
