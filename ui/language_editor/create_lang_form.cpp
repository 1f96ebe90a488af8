// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/create_lang_form.h"

#include <QEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QSplitter>
#include <QVBoxLayout>

#include "ui/texts/named.h"

namespace captoria {
namespace {

constexpr int kTextLines = 3;
constexpr int kSideMargin = 2;     // a mirrored splitter clips its widgets by a pixel
constexpr int kShortestName = 20;  // characters

QPushButton* NamedButton(const char* name, const QString& text, QWidget* parent) {
  auto* button = Named(new QPushButton(text, parent), name);
  button->setAutoDefault(false);
  return button;
}

// Keeps the closing bracket at the end in a right-to-left window.
QString LeftToRight(const QString& text) { return QGuiApplication::isRightToLeft() ? text + QChar(0x200E) : text; }

void SetUpTree(QTreeView* tree, QAbstractItemModel* model) {
  tree->setModel(model);
  tree->setHeaderHidden(true);
  tree->setUniformRowHeights(true);
  tree->setMinimumHeight(tree->fontMetrics().lineSpacing() * 5);
}

// High enough for most texts; longer texts scroll.
void SetUpText(QPlainTextEdit* text) {
  const int frame = 2 * (text->frameWidth() + static_cast<int>(text->document()->documentMargin()));
  text->setFixedHeight(text->fontMetrics().lineSpacing() * kTextLines + frame);
  text->setTabChangesFocus(true);
}

// Stacks the widgets of one side; the tree takes the remaining height.
QWidget* Side(QWidget* parent, QLabel* caption, QTreeView* tree, QLayout* options, QLabel* text_caption,
              QPlainTextEdit* text, QLayout* end) {
  auto* side = new QWidget(parent);
  auto* column = new QVBoxLayout(side);
  column->setContentsMargins(kSideMargin, 0, kSideMargin, 0);
  column->addWidget(caption);
  column->addWidget(tree, 1);
  column->addLayout(options);
  column->addWidget(text_caption);
  column->addWidget(text);
  column->addLayout(end);
  return side;
}

}  // namespace

CreateLangForm::CreateLangForm(QString version, QAbstractItemModel* originals, QAbstractItemModel* translations,
                               QWidget* parent)
    : QWidget(parent),
      original_box(Named(new QComboBox(this), "Combo1")),
      edited_box(Named(new QComboBox(this), "Combo2")),
      original_version(Named(new QLabel(this), "lblVersion")),
      edited_version(Named(new QLabel(this), "lblVersionEdit")),
      original_tree(Named(new QTreeView(this), "Tree1")),
      edited_tree(Named(new QTreeView(this), "Tree2")),
      original_text(Named(new QPlainTextEdit(this), "Text1")),
      translation(Named(new TranslationEdit(this), "Text2")),
      only_untranslated(Named(new QCheckBox("Sho&w only what is not translated", this), "chkOnlyUntranslated")),
      auto_create(Named(new QCheckBox("&Auto create missing items", this), "chkAutoCreate")),
      progress(Named(new QLabel(this), "lblProgress")),
      creator(Named(new QLineEdit(this), "txtCreator")),
      saved(Named(new QLabel(this), "lblSaved")),
      update(NamedButton("Command2", LeftToRight("&Update <Enter>"), this)),
      instructions(NamedButton("Command3", "&If you want to update an existing language file", this)),
      save(NamedButton("Command1", "&Save new Language file", this)),
      close(NamedButton("cmdClose", "&Close", this)),
      version_(std::move(version)) {
  edited_box->setPlaceholderText("Select or create a file");
  SetUpTree(original_tree, originals);
  SetUpTree(edited_tree, translations);
  SetUpText(original_text);
  SetUpText(translation);
  original_text->setReadOnly(true);
  original_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* sides = new QSplitter(this);
  sides->setChildrenCollapsible(false);
  sides->addWidget(OriginalSide());
  sides->addWidget(EditedSide());
  sides->setSizes({1, 1});
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(FileRow());
  layout->addWidget(sides, 1);
  layout->addLayout(EndRow());
  for (auto [first, second] : std::vector<std::pair<QWidget*, QWidget*>>{{original_box, edited_box},
                                                                         {edited_box, original_tree},
                                                                         {original_tree, only_untranslated},
                                                                         {only_untranslated, original_text},
                                                                         {original_text, edited_tree},
                                                                         {edited_tree, auto_create},
                                                                         {auto_create, translation},
                                                                         {translation, update},
                                                                         {update, creator},
                                                                         {creator, instructions},
                                                                         {instructions, save},
                                                                         {save, close}}) {
    setTabOrder(first, second);
  }
  UsePalette();
}

QLabel* CreateLangForm::CaptionOf(const char* name, const QString& text, QWidget* field) {
  auto* label = Named(new QLabel(text, this), name);
  label->setBuddy(field);
  field->setAccessibleName(QString(text).remove('&').remove("<<").remove(">>").trimmed());
  return label;
}

QLayout* CreateLangForm::FileRow() {
  auto* rows = new QGridLayout;
  for (QComboBox* box : {original_box, edited_box}) {
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // file names may be long
    box->setMinimumContentsLength(kShortestName);
  }
  rows->addWidget(CaptionOf("lblOriginalFile", "&Original Language file", original_box), 0, 0);
  rows->addWidget(CaptionOf("lblNewFile", "&New Language file", edited_box), 0, 2);
  auto* versions = new QHBoxLayout;
  versions->addWidget(original_version);
  versions->addWidget(Named(new QLabel("<< Language file for version >>", this), "lblVersions"));
  versions->addWidget(edited_version);
  original_version->setAccessibleDescription("Version of the original language file");
  edited_version->setAccessibleDescription("Version of the new language file");
  rows->addWidget(original_box, 1, 0);
  rows->addLayout(versions, 1, 1);
  rows->addWidget(edited_box, 1, 2);
  for (const int column : {0, 2}) rows->setColumnStretch(column, 1);
  return rows;
}

QWidget* CreateLangForm::OriginalSide() {
  auto* options = new QHBoxLayout;
  options->addWidget(only_untranslated);
  options->addStretch();
  return Side(this, CaptionOf("lblOriginalTree", "<< Original &language text", original_tree), original_tree, options,
              CaptionOf("lblOriginalText", "Ori&ginal text", original_text), original_text, Legend());
}

QWidget* CreateLangForm::EditedSide() {
  auto* options = new QHBoxLayout;
  options->addWidget(auto_create);
  options->addStretch();
  options->addWidget(progress);
  auto* end = new QHBoxLayout;
  end->addWidget(Named(new QLabel("Hit <Enter> at above textbox", this), "lblHint"));
  end->addStretch();
  end->addWidget(update);
  translation->setToolTip("Shift+Enter breaks the line; the up and down keys go to the item before and after");
  return Side(this, CaptionOf("lblNewTree", "New language te&xt >>", edited_tree), edited_tree, options,
              CaptionOf("lblTranslation", "&Enter to update and move next", translation), translation, end);
}

QLayout* CreateLangForm::Legend() {
  auto* row = new QHBoxLayout;
  row->addStrut(update->sizeHint().height());  // as high as on the other side, so that the texts line up
  for (const auto mark : {LanguageMark::Missing, LanguageMark::Untranslated, LanguageMark::Translated}) {
    auto* picture = new QLabel(this);
    legend_.emplace_back(picture, mark);
    row->addWidget(picture);
    row->addWidget(new QLabel(MarkText(mark), this));
    row->addSpacing(fontMetrics().averageCharWidth());
  }
  row->addStretch();
  return row;
}

QLayout* CreateLangForm::EndRow() {
  auto* row = new QHBoxLayout;
  row->addWidget(CaptionOf("lblCreator", "C&reator", creator));
  row->addWidget(creator, 1);
  row->addWidget(instructions);
  row->addWidget(saved);
  row->addWidget(save);
  row->addWidget(close);
  instructions->setToolTip("How to do that, step by step");
  save->setToolTip("Saves the file in the program's data folder");
  return row;
}

void CreateLangForm::ShowVersion(QLabel* label, const QString& text) {
  label->setText(text);
  UsePalette();
}

// Sets the colours that do not follow the palette by themselves.
void CreateLangForm::UsePalette() {
  const bool is_dark = palette().color(QPalette::Window).lightness() < 128;
  for (QLabel* label : {original_version, edited_version}) {
    const bool differs = !label->text().isEmpty() && label->text() != version_;
    QPalette colors = palette();
    if (differs) colors.setColor(QPalette::WindowText, is_dark ? QColor(255, 112, 112) : QColor(192, 0, 0));
    label->setPalette(colors);
    label->setToolTip(differs ? QStringLiteral("Differs from the version of this program, %1").arg(version_)
                              : QString());
  }
  const int side = fontMetrics().height();
  for (const auto& [label, mark] : legend_) label->setPixmap(MarkIcon(mark).pixmap({side, side}, devicePixelRatioF()));
}

void CreateLangForm::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) UsePalette();
}

}  // namespace captoria
