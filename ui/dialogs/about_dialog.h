// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The about box: the program's name, its version, links and system information.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "platform/document_opener.h"
#include "platform/prompts.h"

namespace captoria {

struct ProgramFacts {
  std::string version;  // "3.5.0"

  // Web addresses. A tool without an address is named without a link; a missing home page is not shown.
  std::string bmptoxsub_page{};
  std::string divxmux_page{};
  std::string home_page{};

  // Listed in the system information, after the system and Qt: "FFmpeg 5.1".
  std::vector<std::string> libraries{};
};

class frmAbout final : public QDialog {
 public:
  // `prompts` and `opener` outlive the dialog.
  frmAbout(ProgramFacts facts, Prompts& prompts, DocumentOpener& opener, QWidget* parent);

 private:
  void AddTexts(QLayout* layout);
  void AddLinks(QLayout* layout, DocumentOpener& opener);
  void AddButtons(QLayout* layout);
  void StartSysInfo();

  ProgramFacts facts_;
  Prompts& prompts_;
};

}  // namespace captoria
