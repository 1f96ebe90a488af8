// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/create_lang_dialog.h"

#include <QScopedValueRollback>
#include <QShortcut>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "base/path_text.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

constexpr const char* kInstructions =
    "If you have create a language file and want to update/add some new strings\r\n"
    "1. Be sure that the \"Auto create missing items\" is NOT checked.\r\n"
    "2. At left treeview (original language) click/select the root (first) item\r\n"
    "and hit the * key at numpad. This way will be expanded all items there.\r\n"
    "3. Hit and hold the down arrow key. This will parse all items. If a new string is found\r\n"
    "you will see this message \"Section/Node <something> not found. Create it?\".\r\n"
    "Hit Yes and you are ready to translate. Continue until all items parsed.\r\n"
    "4. If you must/want to edit some items you must do it manually, checking\r\n"
    "one by one all items.";

std::string FileNameOf(const LanguageFile& file) { return std::string{GetFileNameOnly(file.path)}; }

// Selects the entry `name` without sending a signal.
void Restore(QComboBox* box, const QString& name) {
  const QSignalBlocker quiet(box);
  box->setCurrentIndex(box->findText(name));
}

// A message with the path once, followed by the error.
std::string BrokenFile(const std::string& path, const Error& error) {
  const std::string& message = error.message;
  const std::string start = path + ": ";
  return "Error loading xml file " + path + "\r\n\r\n" +
         (message.starts_with(start) ? message.substr(start.size()) : message);
}

const char* RefusalText(NewLanguageRefusal refusal) {
  switch (refusal) {
    case NewLanguageRefusal::BadName:
      return "This name is not possible for a language. Choose a name without \".\" and \"/\"";
    case NewLanguageRefusal::Exists:
      return "This name exist, just select it from list";
    case NewLanguageRefusal::NoOriginal:
      return "Can not find original/source language. Select one from combo box";
    case NewLanguageRefusal::Blank:
      break;
  }
  return nullptr;
}

}  // namespace

frmCreateLang::frmCreateLang(Workspace& workspace, const std::string& version, QWidget* parent)
    : QDialog(parent),
      workspace_(workspace),
      trees_(this),
      form_(new CreateLangForm(ToQt(version), &trees_.Filter(), &trees_.Edited(), this)) {
  setObjectName("frmCreateLang");
  setWindowTitle(QStringLiteral("Create new language for program ") + kProgramTitle + " ver. " + ToQt(version));
  setSizeGripEnabled(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(form_);
  const QFontMetrics letters(font());
  resize(letters.averageCharWidth() * 150, letters.lineSpacing() * 32);
  Connect();
  FillFiles();
  ShowEdited({}, false);
  const QString english = ToQt(kInitialLanguage) + ".xml";
  form_->original_box->setCurrentIndex(form_->original_box->findText(english));
}

void frmCreateLang::Connect() {
  const CreateLangForm& form = *form_;
  connect(form.original_box, &QComboBox::currentIndexChanged, this, &frmCreateLang::ChooseOriginal);
  connect(form.edited_box, &QComboBox::currentIndexChanged, this, &frmCreateLang::ChooseEdited);
  connect(form.original_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &frmCreateLang::SelectOriginal);
  connect(form.edited_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, &frmCreateLang::SelectEdited);
  // Enter on the selected item starts typing its text, or asks again whether to create it.
  connect(form.original_tree, &QTreeView::activated, this, &frmCreateLang::SelectOriginal);
  connect(form.edited_tree, &QTreeView::activated, form.translation, qOverload<>(&QWidget::setFocus));
  connect(form.translation, &TranslationEdit::Entered, this, &frmCreateLang::UpdateAndMoveOn);
  connect(form.translation, &TranslationEdit::Stepped, this, &frmCreateLang::Step);
  connect(form.translation, &TranslationEdit::textChanged, this, &frmCreateLang::ShowWhetherSaved);
  connect(form.creator, &QLineEdit::textEdited, this, &frmCreateLang::ShowWhetherSaved);
  connect(form.update, &QPushButton::clicked, this, &frmCreateLang::Update);
  connect(form.save, &QPushButton::clicked, this, &frmCreateLang::Save);
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, &frmCreateLang::Save);
  connect(form.instructions, &QPushButton::clicked, this, [this] { Tell(kInstructions); });
  connect(form.close, &QPushButton::clicked, this, &frmCreateLang::reject);
  connect(form.only_untranslated, &QCheckBox::toggled, this, [this] {
    Refilter();
    form_->original_tree->expandAll();
    form_->original_tree->scrollTo(form_->original_tree->currentIndex());
  });
}

void frmCreateLang::FillFiles() {
  files_ = ListEditableLanguages(workspace_.folders);
  for (QComboBox* box : {form_->original_box, form_->edited_box}) {
    const QSignalBlocker quiet(box);
    box->clear();
    for (const LanguageFile& file : files_) box->addItem(PathToQt(FileNameOf(file)));
  }
  form_->edited_box->addItem("<create new>");
  Restore(form_->original_box, original_name_);
  Restore(form_->edited_box, edited_name_);
}

void frmCreateLang::ChooseOriginal(int index) {
  if (index < 0) return;
  const std::string path = files_[static_cast<std::size_t>(index)].path;
  auto loaded = LanguageDocument::Load(path);
  if (!loaded) {
    Restore(form_->original_box, original_name_);
    return Tell(BrokenFile(path, loaded.error()));
  }
  original_name_ = form_->original_box->itemText(index);
  trees_.LoadOriginal(*loaded);
  form_->ShowOriginalVersion(ToQt(LanguageVersion(trees_.Original().Sections())));
  form_->original_text->clear();
  ShowEdited({}, false);
  Refilter();
  form_->original_tree->expandAll();
  ShowChanges();
}

void frmCreateLang::ChooseEdited(int index) {
  if (index < 0) return;
  std::optional<LanguageFile> file;
  if (static_cast<std::size_t>(index) == files_.size()) {
    file = CreateFile();
  } else if (form_->edited_box->itemText(index) == original_name_) {
    Tell("Can not load the same file as the original one");
  } else {
    file = files_[static_cast<std::size_t>(index)];
  }
  if (!file || !AskToSave() || !LoadEdited(*file)) Restore(form_->edited_box, edited_name_);
}

std::optional<LanguageFile> frmCreateLang::CreateFile() {
  const auto answer = workspace_.prompts.AskText(
      kProgramTitle, "Type the new language name\r\n(New file will be created at program's folder)", "");
  const int original = form_->original_box->currentIndex();
  const std::string path = original < 0 ? std::string{} : files_[static_cast<std::size_t>(original)].path;
  const auto named = NameNewLanguage(workspace_.folders, answer.value_or(""), path);
  if (!named) {
    if (const char* text = RefusalText(named.error())) Tell(text);
    return std::nullopt;
  }
  if (const auto created = CreateLanguage(*named, path); !created) {
    Tell(created.error().message);
    return std::nullopt;
  }
  FillFiles();
  return *named;
}

bool frmCreateLang::LoadEdited(const LanguageFile& file) {
  auto loaded = EditedLanguage::Open(file.path);
  if (!loaded) {
    Tell(BrokenFile(file.path, loaded.error()));
    return false;
  }
  trees_.LoadEdited(std::move(*loaded));
  edited_name_ = PathToQt(FileNameOf(file));
  Restore(form_->edited_box, edited_name_);
  form_->edited_tree->expandAll();
  ShowEdited({}, false);
  ShowPrivate();
  Refilter();
  form_->saved->clear();
  ShowChanges();
  return true;
}

bool frmCreateLang::Save() {
  if (!trees_.HasEdited()) {
    Tell("Select or create a new language file first");
    return false;
  }
  if (!Update()) return false;
  if (!original_name_.isEmpty()) form_->ShowEditedVersion(form_->original_version->text());
  const std::string name = PathFromQt(edited_name_);
  const auto saved = trees_.Save(JoinPath(workspace_.folders.data, name), FromQt(form_->creator->text()),
                                 FromQt(form_->edited_version->text()));
  if (saved) {
    form_->creator->setModified(false);
    form_->saved->setText("Saved");
    FillFiles();  // the file may be in another folder now
  }
  ShowChanges();
  if (!saved) {
    Tell(saved.error().message);
    return false;
  }
  if (name == workspace_.language.LangFile + ".xml") emit Saved(workspace_.language.LangFile);
  return true;
}

bool frmCreateLang::HasChanges() const {
  return trees_.Changed() || (trees_.HasEdited() && (form_->creator->isModified() || form_->translation->Edited()));
}

// Returns false if the user wants to save and saving fails.
bool frmCreateLang::AskToSave() {
  if (!HasChanges()) return true;
  const std::string question = "Language file " + FromQt(edited_name_) + " is not saved. Save it now?";
  return !workspace_.prompts.AskYesNo(kProgramTitle, question) || Save();
}

void frmCreateLang::reject() {
  if (AskToSave()) QDialog::reject();
}

void frmCreateLang::SelectOriginal() {
  if (following_) return;
  const QScopedValueRollback following(following_, true);
  const LanguageNode node = NodeInOriginal();
  ShowOriginal(node);
  const bool is_there = ProvideInEdited(node);
  ShowEdited(node, is_there);
  if (is_there && !node.name.empty()) form_->translation->setFocus();
  // Later: the tree is still handling the click.
  if (form_->only_untranslated->isChecked()) QTimer::singleShot(0, this, &frmCreateLang::Refilter);
}

void frmCreateLang::SelectEdited() {
  if (following_) return;
  const QScopedValueRollback following(following_, true);
  const LanguageNode node = NodeInEdited();
  const bool is_in_both = trees_.Original().IndexOf(node).isValid();
  if (is_in_both) {
    trees_.Filter().Refilter(form_->only_untranslated->isChecked(), node);
    form_->original_tree->setCurrentIndex(trees_.Filter().IndexOf(node));
  } else {
    form_->original_tree->setCurrentIndex({});
  }
  ShowOriginal(node);
  ShowEdited(node, true);
  if (!is_in_both) Tell("Original item not found");
}

// Creates the node in the new document if it is missing and the user agrees. Returns whether it exists.
bool frmCreateLang::ProvideInEdited(const LanguageNode& node) {
  if (!trees_.HasEdited()) return false;
  if (trees_.Has(node)) return true;
  const auto may_create = [this](const std::string& what) {
    return form_->auto_create->isChecked() ||
           workspace_.prompts.AskYesNo(kProgramTitle, what + " not found. Create it?");
  };
  if (!trees_.Has({node.section, {}})) {
    if (!may_create("Section/Node " + node.section) || !trees_.AddSection(node.section)) return false;
    ShowChanges();
  }
  if (!node.name.empty()) {
    const std::string text = trees_.Original().TextOf(node).value_or("");
    if (!may_create("Value/Node \"" + node.name + "\"") || !trees_.AddItem(node, text)) return false;
    ShowChanges();
  }
  return true;
}

void frmCreateLang::ShowOriginal(const LanguageNode& node) {
  form_->original_text->setPlainText(ToQt(trees_.Original().TextOf(node).value_or("")));
}

void frmCreateLang::ShowEdited(const LanguageNode& node, bool is_there) {
  const QScopedValueRollback following(following_, true);
  form_->edited_tree->setCurrentIndex(is_there ? trees_.Edited().IndexOf(node) : QModelIndex());
  const auto text = is_there ? trees_.Edited().TextOf(node) : std::nullopt;
  form_->translation->ShowText(text.value_or(""));
  form_->translation->setReadOnly(!text);
  form_->update->setEnabled(text.has_value());
  ShowWhetherSaved();
}

// Takes the text typed so far. Returns false after a message if the document cannot hold it.
bool frmCreateLang::Update() {
  const LanguageNode node = NodeInEdited();
  if (!trees_.HasEdited() || node.name.empty() || !form_->translation->Edited()) return true;
  if (!trees_.Write(node, form_->translation->Text())) {
    Tell("Error writing text in language file");
    return false;
  }
  ShowEdited(node, true);
  if (node.section == kPrivateSection) ShowPrivate();
  ShowChanges();
  return true;
}

void frmCreateLang::UpdateAndMoveOn() {
  if (Update()) MoveToNextItem();
}

void frmCreateLang::MoveToNextItem() {
  if (const auto next = NextItem(trees_.Filter().Sections(), NodeInOriginal()))
    form_->original_tree->setCurrentIndex(trees_.Filter().IndexOf(*next));
}

void frmCreateLang::Step(int rows) {
  const QModelIndex from = form_->original_tree->currentIndex();
  const QModelIndex to = rows < 0 ? form_->original_tree->indexAbove(from) : form_->original_tree->indexBelow(from);
  if (to.isValid()) form_->original_tree->setCurrentIndex(to);
}

void frmCreateLang::Refilter() { trees_.Filter().Refilter(form_->only_untranslated->isChecked(), NodeInOriginal()); }

LanguageNode frmCreateLang::NodeInOriginal() { return trees_.Filter().NodeAt(form_->original_tree->currentIndex()); }

LanguageNode frmCreateLang::NodeInEdited() const {
  const QModelIndex current = form_->edited_tree->currentIndex();
  return current.isValid() ? trees_.Edited().NodeAt(current) : LanguageNode{};
}

void frmCreateLang::ShowPrivate() {
  form_->creator->setText(ToQt(PrivateText(trees_.Edited().Sections(), kCreatorItem).value_or("")));
  form_->ShowEditedVersion(ToQt(LanguageVersion(trees_.Edited().Sections())));
}

// Called after the new or the original document changed.
void frmCreateLang::ShowChanges() {
  const auto [items, translated] = trees_.Count();
  form_->progress->setText(items > 0 ? QStringLiteral("%1 of %2 translated").arg(translated).arg(items) : QString());
  ShowWhetherSaved();
}

void frmCreateLang::ShowWhetherSaved() {
  if (HasChanges()) {
    form_->saved->setText("Not saved");
  } else if (form_->saved->text() == "Not saved") {
    form_->saved->clear();
  }
}

}  // namespace captoria
