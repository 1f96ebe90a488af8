// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the program is, which version, and what it runs on.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "platform/document_opener.h"
#include "platform/prompts.h"

namespace captoria {

struct ProgramFacts {
  std::string version;  // "3.5.0"

  // Addresses of pages; a tool without one is named without a link, and no home page is not shown.
  std::string bmptoxsub_page{};
  std::string divxmux_page{};
  std::string home_page{};

  // Told with the system's information beside Qt and the system itself: "FFmpeg 5.1".
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
