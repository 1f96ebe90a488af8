// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/options/options_batch_page.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "base/ascii.h"
#include "localisation/window_texts.h"
#include "platform/files.h"
#include "ui/dialogs/select_subs_dialog.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

const FileFilter kCommandFiles{"*.cbx", "*.cbx"};

std::string PlainText(const QAbstractButton& button) { return FromQt(button.text().remove('&')); }

}  // namespace

OptionsBatchPage::OptionsBatchPage(Workspace& workspace, const PositionDialogStart& placement, QWidget* parent)
    : OptionsPage(parent), workspace_(workspace), placement_(placement) {
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(BuildFileToRun(), 1);
  layout->addWidget(BuildNewFile(), 1);
  asking_ = new_file_;
  BuildMenu();
}

QWidget* OptionsBatchPage::BuildFileToRun() {
  auto* frame = Named(new QGroupBox("After opening an .srt file run this batch", this), "FrameBatchToRun");
  path_ = Named(new PathEdit(frame), "txtBatchToRun");
  path_->setAccessibleName("Batch file to run after opening an .srt file");
  connect(path_, &QLineEdit::editingFinished, this, &OptionsBatchPage::TakeTypedPath);
  browse_ = SmallButton("cmdBatchToRun", "...", "Choose a batch file", frame);
  connect(browse_, &QAbstractButton::clicked, this, &OptionsBatchPage::Browse);
  auto* clear = Named(new QPushButton("Clea&r", frame), "cmdClear");
  clear->setAutoDefault(false);
  connect(clear, &QPushButton::clicked, this, &OptionsBatchPage::Clear);
  save_ = Named(new QPushButton("&Save", frame), "cmdSave");
  connect(save_, &QPushButton::clicked, this, &OptionsBatchPage::Save);
  to_run_ = new BatchEditor(1, {"C&ommands in above batch file", "Co&mment", "A&dd", "D&el"}, save_, frame);
  connect(to_run_, &BatchEditor::CommandWanted, this, [this] { OfferCommands(to_run_); });
  for (auto change : {&BatchEditor::CommandsChanged, &BatchEditor::CommentChanged}) {
    connect(to_run_, change, this, [this] { save_->setEnabled(true); });
  }
  auto* file = new QHBoxLayout;
  file->addWidget(path_, 1);
  file->addWidget(browse_);
  file->addWidget(clear);
  auto* layout = new QVBoxLayout(frame);
  layout->addLayout(file);
  layout->addWidget(to_run_, 1);
  return frame;
}

QWidget* OptionsBatchPage::BuildNewFile() {
  auto* frame = Named(new QGroupBox("Create new batch", this), "FrameNewBatch");
  create_ = Named(new QPushButton("Crea&te...", frame), "cmdCreate");
  connect(create_, &QPushButton::clicked, this, &OptionsBatchPage::Create);
  new_file_ = new BatchEditor(0, {"&Commands", "Comme&nt", "&Add", "De&l"}, create_, frame);
  connect(new_file_, &BatchEditor::CommandWanted, this, [this] { OfferCommands(new_file_); });
  connect(new_file_, &BatchEditor::CommentChanged, this, [this] { save_->setEnabled(true); });
  auto* layout = new QVBoxLayout(frame);
  layout->addWidget(new_file_);
  return frame;
}

void OptionsBatchPage::BuildMenu() {
  menu_ = Named(new QMenu(this), "mnuHidden");
  Named(menu_->addAction("&Select command", this,
                         [this] {
                           frmSelectSubs dialog(workspace_, CommandMode::ComposeOnly, this);
                           AddComposed(dialog);
                         }),
        "mnuSelect");
  Named(menu_->addAction("&Pos and alignment command", this,
                         [this] {
                           Form3 dialog(workspace_, CommandMode::ComposeOnly, placement_, this);
                           AddComposed(dialog);
                         }),
        "mnuPosAl");
}

void OptionsBatchPage::OfferCommands(BatchEditor* editor) {
  asking_ = editor;
  menu_->popup(editor->MenuPlace());
}

template <typename Dialog>
void OptionsBatchPage::AddComposed(Dialog& dialog) {
  dialog.exec();
  if (dialog.ComposedCommand()) asking_->AddCommand(*dialog.ComposedCommand());
}

void OptionsBatchPage::Load(const Settings& settings) {
  Clear();
  if (settings.BatchToRun.empty() || !FileExists(settings.BatchToRun)) return;
  path_->SetPath(settings.BatchToRun);
  LoadFile(settings.BatchToRun);
}

void OptionsBatchPage::Store(Settings& settings) const { settings.BatchToRun = path_->Path(); }

void OptionsBatchPage::Browse() {
  const auto chosen = workspace_.prompts.AskFileToOpen(FromQt(browse_->toolTip()), {kCommandFiles}, path_->Path());
  if (!chosen) return;
  path_->SetPath(*chosen);
  LoadFile(*chosen);
}

// Shows the named file before "Save" can overwrite it.
void OptionsBatchPage::TakeTypedPath() {
  const std::string path{Trim(path_->Path())};
  if (path != loaded_ && FileExists(path)) LoadFile(path);
}

void OptionsBatchPage::LoadFile(const std::string& path) {
  const auto file = ReadCommandFileText(path, workspace_.project.tracks.Current().style.font.charset);
  loaded_ = path;
  to_run_->SetFile(file.value_or(CommandFileText{}));
  to_run_->SetUsable(file.has_value());
  save_->setEnabled(false);
  if (!file) workspace_.prompts.ShowMessage(kProgramTitle, file.error().message);
}

void OptionsBatchPage::Clear() {
  path_->SetPath({});
  loaded_.clear();
  to_run_->SetFile({});
  to_run_->SetUsable(false);
  save_->setEnabled(false);
}

void OptionsBatchPage::Save() {
  const CommandFileText file = to_run_->File();
  if (file.lines.empty()) {
    return workspace_.prompts.ShowMessage(kProgramTitle, workspace_.language.TextOf(messages::kNothingToSave));
  }
  const std::string path{Trim(path_->Path())};
  if (path.empty() || !Write(path, file)) return;
  loaded_ = path;
  if (save_->hasFocus()) path_->setFocus();  // a disabled button passes the focus to an arbitrary neighbour
  save_->setEnabled(false);
}

void OptionsBatchPage::Create() {
  const CommandFileText file = new_file_->File();
  if (file.lines.empty()) {
    return workspace_.prompts.ShowMessage(kProgramTitle, workspace_.language.TextOf(messages::kNothingToSave));
  }
  auto path = workspace_.prompts.AskFileToSave(PlainText(*create_), {kCommandFiles}, path_->Path());
  if (!path) return;
  if (!path->ends_with("cbx")) {
    *path += ".cbx";
    // The file dialog asked only about the name without the extension.
    const QString question =
        ToQt(TextOf(workspace_.language.document, window_texts::kReplaceBatch)).arg(PathToQt(*path));
    if (FileExists(*path) && !workspace_.prompts.AskYesNo(PlainText(*create_), FromQt(question))) return;
  }
  if (!Write(*path, file)) return;
  has_made_files_ = true;
  if (*path != path_->Path()) return;
  to_run_->SetFile(file);
  to_run_->SetUsable(true);
  loaded_ = *path;
  save_->setEnabled(false);
}

bool OptionsBatchPage::Write(const std::string& path, const CommandFileText& file) {
  const bool is_new = !FileExists(path);
  const auto written = WriteCommandFile(path, file.comment, file.lines);
  if (!written) workspace_.prompts.ShowMessage(kProgramTitle, written.error().message);
  if (written && is_new) has_made_files_ = true;
  return written.has_value();
}

}  // namespace captoria
