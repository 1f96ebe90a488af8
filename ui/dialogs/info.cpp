// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/dialogs/info.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "app/workspace.h"

namespace captoria {

// Opens a drop-down list over a cell. Only choosing an item changes the cell; leaving the list does not.
class Info::ComboDelegate final : public QStyledItemDelegate {
 public:
  explicit ComboDelegate(Info* info) : QStyledItemDelegate(info), info_(info) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& cell) const override {
    auto* combo = new QComboBox(parent);
    combo->setAccessibleName(cell.model()->headerData(cell.column(), Qt::Horizontal).toString());
    combo->addItems(info_->combo_items_);
    connect(combo, &QComboBox::activated, info_,
            [this, combo, at = QPersistentModelIndex(cell)](int item) { Choose(combo, at, combo->itemText(item)); });
    info_->editor_ = combo;
    return combo;
  }

  void setEditorData(QWidget* editor, const QModelIndex& cell) const override {
    auto* combo = static_cast<QComboBox*>(editor);
    const int own = combo->findText(cell.data().toString(), Qt::MatchExactly | Qt::MatchCaseSensitive);
    combo->setCurrentIndex(own >= 0 ? own : static_cast<int>(info_->combo_items_.indexOf(info_->combo_text_)));
  }

  void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}

  // An arrow marks cells that have a list.
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& cell) const override {
    if (!info_->OffersList(cell)) return QStyledItemDelegate::paint(painter, option, cell);
    QStyleOptionViewItem text = option;
    initStyleOption(&text, cell);
    const QStyle* style = info_->style();
    const int size = style->pixelMetric(QStyle::PM_MenuButtonIndicator, &option, info_);
    // Draw the whole cell first, so that the selection fills it up to the edge.
    text.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &text, painter, info_->table_);
    initStyleOption(&text, cell);
    text.backgroundBrush = Qt::NoBrush;
    text.state &= ~QStyle::State_HasFocus;
    text.rect = QStyle::visualRect(option.direction, option.rect, option.rect.adjusted(0, 0, -size, 0));
    style->drawControl(QStyle::CE_ItemViewItem, &text, painter, info_->table_);
    QStyleOption arrow;
    arrow.initFrom(info_->table_);
    arrow.rect = QStyle::alignedRect(option.direction, Qt::AlignTrailing | Qt::AlignVCenter, {size, size}, option.rect);
    if (option.state & QStyle::State_Selected) {
      arrow.palette.setColor(QPalette::ButtonText, arrow.palette.color(QPalette::HighlightedText));
      arrow.palette.setColor(QPalette::WindowText, arrow.palette.color(QPalette::HighlightedText));
    }
    style->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, painter, info_);
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& cell) const override {
    const QSize size = QStyledItemDelegate::sizeHint(option, cell);
    constexpr int kRoom = 6;  // pixels above and below the text, in total
    return {size.width(), std::max(size.height() + kRoom, info_->line_height_)};
  }

 private:
  void Choose(QComboBox* combo, const QModelIndex& cell, const QString& text) const {
    if (!cell.isValid()) return;  // the line was removed in the meantime
    info_->table_->model()->setData(cell, text);
    auto* self = const_cast<ComboDelegate*>(this);
    emit self->closeEditor(combo);
    emit info_->CaptionChosen(cell.row() + 1, cell.column() + 1);
  }

  Info* info_;
};

Info::Info(Prompts& prompts, QWidget* parent)
    : QWidget(parent), prompts_(prompts), table_(new QTableWidget(0, 2, this)) {
  BuildTable();
  auto* copy = new QAction("&Copy", table_);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  connect(copy, &QAction::triggered, this, &Info::Copy);
  table_->addAction(copy);
  table_->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(table_, &QTableWidget::clicked, this, &Info::OpenList);
  connect(table_, &QTableWidget::activated, this, &Info::OpenList);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(table_);
  setFocusProxy(table_);
  setAccessibleName("Information");
}

void Info::BuildTable() {
  table_->setHorizontalHeaderLabels({QString(), QString()});
  table_->setItemDelegate(new ComboDelegate(this));
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  table_->setEditTriggers(QAbstractItemView::EditKeyPressed);
  table_->setTabKeyNavigation(false);  // Tab leaves the table; the arrow keys move inside it
  table_->setAccessibleName("Information");
  table_->setShowGrid(false);
  table_->setAlternatingRowColors(true);
  table_->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  table_->verticalHeader()->hide();
  table_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  QHeaderView* header = table_->horizontalHeader();
  header->setStretchLastSection(true);
  header->setHighlightSections(false);
  header->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
}

bool Info::HasLine(int line) const {
  if (line >= 1 && line <= LineCount()) return true;
  prompts_.ShowMessage(kProgramTitle, "Index out of bounds");
  return false;
}

QTableWidgetItem* Info::Cell(int line, int column) const {
  if (!HasLine(line)) return nullptr;
  if (column == 1 || column == 2) return table_->item(line - 1, column - 1);
  prompts_.ShowMessage(kProgramTitle, "Error in column");
  return nullptr;
}

int Info::MiddleWidth() const { return table_->horizontalHeader()->sectionSize(0); }

void Info::SetMiddleWidth(int width) { table_->horizontalHeader()->resizeSection(0, std::max(width, 0)); }

QFont Info::Font(int line, int column) const {
  const QTableWidgetItem* cell = Cell(line, column);
  if (cell == nullptr) return {};
  const QVariant own = cell->data(Qt::FontRole);
  return own.isValid() ? own.value<QFont>() : table_->font();
}

void Info::SetFont(int line, int column, const QFont& font) {
  if (auto* cell = Cell(line, column)) cell->setFont(font);
}

void Info::SetColumnForCombo(int column) {
  combo_column_ = column;
  for (int row = 0; row < LineCount(); ++row) {
    for (int i = 0; i < 2; ++i)
      table_->item(row, i)->setFlags(table_->item(row, i)->flags().setFlag(Qt::ItemIsEditable, i + 1 == column));
  }
}

void Info::ComboClear() {
  combo_items_.clear();
  combo_text_.clear();
  if (editor_) editor_->clear();
}

void Info::ComboAddItem(const QString& text) {
  combo_items_.append(text);
  if (editor_) editor_->addItem(text);
}

void Info::SetComboText(const QString& text) {
  if (!combo_items_.contains(text)) return;
  combo_text_ = text;
  if (editor_) editor_->setCurrentText(text);
}

void Info::Align(int line, int column, Qt::Alignment alignment, Qt::Alignment kept) {
  if (auto* cell = Cell(line, column))
    cell->setTextAlignment((alignment & ~kept) | (Qt::Alignment(cell->textAlignment()) & kept));
}

Qt::Alignment Info::VerticalAlingment(int line, int column) const {
  const QTableWidgetItem* cell = Cell(line, column);
  return cell == nullptr ? Qt::Alignment() : Qt::Alignment(cell->textAlignment()) & Qt::AlignVertical_Mask;
}

void Info::SetVerticalAlingment(int line, int column, Qt::Alignment alignment) {
  Align(line, column, alignment, Qt::AlignHorizontal_Mask);
}

Qt::Alignment Info::Alingment(int line, int column) const {
  const QTableWidgetItem* cell = Cell(line, column);
  return cell == nullptr ? Qt::Alignment() : Qt::Alignment(cell->textAlignment()) & Qt::AlignHorizontal_Mask;
}

void Info::SetAlingment(int line, int column, Qt::Alignment alignment) {
  Align(line, column, alignment, Qt::AlignVertical_Mask);
}

QString Info::Caption(int line, int column) const {
  const QTableWidgetItem* cell = Cell(line, column);
  return cell == nullptr ? QString() : cell->text();
}

void Info::SetCaption(int line, int column, const QString& text) {
  if (auto* cell = Cell(line, column)) cell->setText(text);
}

void Info::SetLineHeight(int height) {
  line_height_ = height;
  table_->resizeRowsToContents();
}

void Info::RemoveLine(int line) {
  if (HasLine(line)) table_->removeRow(line - 1);
}

void Info::AddLine(const QStringList& texts, Qt::Alignment alignment, Qt::Alignment vertical) {
  const int row = LineCount();
  table_->insertRow(row);
  for (int i = 0; i < 2; ++i) {
    auto* cell = new QTableWidgetItem(texts.value(i));
    cell->setTextAlignment(alignment | vertical);
    cell->setFlags(cell->flags().setFlag(Qt::ItemIsEditable, i + 1 == combo_column_));
    table_->setItem(row, i, cell);
  }
}

void Info::SetTitle1(const QString& text) { table_->horizontalHeaderItem(0)->setText(text); }

void Info::SetTitle2(const QString& text) { table_->horizontalHeaderItem(1)->setText(text); }

bool Info::OffersList(const QModelIndex& cell) const {
  return cell.column() + 1 == combo_column_ && !combo_items_.empty();
}

void Info::OpenList(const QModelIndex& cell) {
  if (editor_ || !OffersList(cell)) return;
  table_->edit(cell);
  if (editor_) editor_->showPopup();
}

void Info::Copy() const {
  QList<QModelIndex> rows = table_->selectionModel()->selectedRows();
  std::sort(rows.begin(), rows.end());
  QString text;
  for (const QModelIndex& row : rows) {
    QString line = Caption(row.row() + 1, 1) + "\t" + Caption(row.row() + 1, 2);
    // One line per row when pasted, so line breaks inside a cell become tabs.
    text += line.replace("\r\n", "\t").replace('\n', '\t') + "\n";
  }
  if (!text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

}  // namespace captoria
