// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_dialog.h"

#include <QTabBar>
#include <QVBoxLayout>

#include "ui/dialogs/dialog_buttons.h"
#include "ui/options/options_batch_page.h"
#include "ui/options/options_divx_page.h"
#include "ui/options/options_extra_page.h"
#include "ui/options/options_fonts_page.h"
#include "ui/options/options_general_page.h"
#include "ui/texts/captions.h"

namespace captoria {

Form2::Form2(Workspace& workspace, ContextMenuEntry& entry, const PositionDialogStart& placement, QWidget* parent)
    : QDialog(parent), workspace_(workspace), entry_(entry), tabs_(new QTabWidget(this)) {
  setObjectName("Form2");
  setWindowTitle("Options");
  tabs_->tabBar()->setObjectName("TabStrip1");
  tabs_->tabBar()->setAccessibleName("Pages of options");
  auto* general = new OptionsGeneralPage(workspace.prompts, this);
  auto* divx = new OptionsDivXPage(workspace.language.document, workspace.prompts, this);
  fonts_ = new OptionsFontsPage(workspace, this);
  batch_ = new OptionsBatchPage(workspace, placement, this);
  extra_ = new OptionsExtraPage(workspace.prompts, this);
  tabs_->addTab(general, "General");
  tabs_->addTab(divx, "Creating DivX");
  tabs_->addTab(fonts_, "Fonts");
  tabs_->addTab(batch_, "Batch");
  tabs_->addTab(extra_, "Extra");
  pages_ = {general, divx, batch_, extra_};
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(tabs_, 1);
  layout->addLayout(DialogButtons(*this, {"cmdOk", "OK"}, {"cmdCancel", "Cancel"}));
  for (OptionsPage* page : pages_) page->Load(workspace.preferences.settings);
  extra_->LoadEntry(entry);
  ApplyCaptions(*this, workspace.language.document);
}

bool Form2::BatchFilesChanged() const { return batch_->HasMadeFiles(); }

void Form2::accept() {
  Settings edited = workspace_.preferences.settings;
  for (const OptionsPage* page : pages_) page->Store(edited);
  effect_ = ApplyOptions(workspace_.preferences, workspace_.project, edited, fonts_->Chosen());
  Tell(effect_.saved);
  Tell(extra_->StoreEntry(entry_));
  QDialog::accept();
}

void Form2::Tell(const Result<void>& outcome) {
  if (!outcome) workspace_.prompts.ShowMessage(kProgramTitle, outcome.error().message);
}

}  // namespace captoria
