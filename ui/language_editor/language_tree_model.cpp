// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/language_editor/language_tree_model.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <utility>

#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

// The internal id of an index holds its level and, for an item, its section.
constexpr quintptr kRoot = 0;
constexpr quintptr kSection = 1;
constexpr quintptr kFirstItem = 2;  // items of section i have the id kFirstItem + i

std::size_t SectionOf(const QModelIndex& index) {
  const auto id = index.internalId();
  return id >= kFirstItem ? id - kFirstItem : static_cast<std::size_t>(index.row());
}

// The marks differ in shape, not only in colour.
class MarkEngine final : public QIconEngine {
 public:
  explicit MarkEngine(LanguageMark mark) : mark_(mark) {}

  QIconEngine* clone() const override { return new MarkEngine(mark_); }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    const QPalette colors = QApplication::palette();
    QColor color = colors.color(mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::Text);
    if (mark_ == LanguageMark::Translated) color.setAlphaF(0.6F);
    const double side = std::min(rect.width(), rect.height());
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(QRectF(rect).center());
    painter->scale(side / 16, side / 16);  // coordinates run from -8 to 8
    painter->setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    Draw(*painter, color, colors.color(mode == QIcon::Selected ? QPalette::Highlight : QPalette::Base));
    painter->restore();
  }

 private:
  void Draw(QPainter& painter, const QColor& color, const QColor& ground) const {
    switch (mark_) {
      case LanguageMark::Missing:
        painter.setBrush(color);
        painter.drawEllipse(QPointF(0, 0), 5.5, 5.5);
        painter.setPen(QPen(ground, 2, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -3.2), QPointF(0, 0.6));
        painter.drawPoint(QPointF(0, 3.4));
        return;
      case LanguageMark::Untranslated:
        return painter.drawEllipse(QPointF(0, 0), 4.5, 4.5);
      case LanguageMark::Translated: {
        const QPointF tick[] = {{-4.5, 0.5}, {-1.5, 3.5}, {4.5, -3.5}};
        return painter.drawPolyline(tick, 3);
      }
      case LanguageMark::Extra:
        return painter.drawLine(QPointF(-4, 0), QPointF(4, 0));
      case LanguageMark::None:
        return;
    }
  }

  LanguageMark mark_;
};

}  // namespace

QIcon MarkIcon(LanguageMark mark) { return QIcon(new MarkEngine(mark)); }

QString MarkText(LanguageMark mark) {
  switch (mark) {
    case LanguageMark::Missing:
      return "missing";
    case LanguageMark::Untranslated:
      return "not translated";
    case LanguageMark::Translated:
      return "translated";
    case LanguageMark::Extra:
      return "not in the original";
    case LanguageMark::None:
      break;
  }
  return {};
}

LanguageTreeModel::LanguageTreeModel(Marking marking, QObject* parent)
    : QAbstractItemModel(parent), marking_(std::move(marking)) {}

void LanguageTreeModel::Load(const std::string& root, std::vector<LanguageSection> sections) {
  beginResetModel();
  root_ = root;
  sections_ = std::move(sections);
  endResetModel();
}

void LanguageTreeModel::Follow(const std::vector<LanguageSection>& sections) {
  for (std::size_t i = 0; i < sections.size(); ++i) {
    const int row = static_cast<int>(i);
    if (i == sections_.size()) {
      beginInsertRows(index(0, 0), row, row);
      sections_.push_back({sections[i].name, {}});
      endInsertRows();
    }
    const auto known = static_cast<int>(sections_[i].items.size());
    const auto now = static_cast<int>(sections[i].items.size());
    if (now > known) beginInsertRows(createIndex(row, 0, kSection), known, now - 1);
    sections_[i] = sections[i];
    if (now > known) endInsertRows();
  }
  Refresh();
}

void LanguageTreeModel::Refresh() {
  if (!root_ || sections_.empty()) return;
  const int last = static_cast<int>(sections_.size()) - 1;
  for (int row = 0; row <= last; ++row) {
    const QModelIndex section = createIndex(row, 0, kSection);
    if (const int items = rowCount(section); items > 0) {
      emit dataChanged(index(0, 0, section), index(items - 1, 0, section));
    }
  }
  emit dataChanged(createIndex(0, 0, kSection), createIndex(last, 0, kSection));
}

QModelIndex LanguageTreeModel::IndexOf(const LanguageNode& node) const {
  if (!root_) return {};
  if (node.section.empty()) return createIndex(0, 0, kRoot);
  const auto section = std::ranges::find(sections_, node.section, &LanguageSection::name);
  if (section == sections_.end()) return {};
  const auto row = section - sections_.begin();
  if (node.name.empty()) return createIndex(static_cast<int>(row), 0, kSection);
  const auto item = std::ranges::find(section->items, node.name, &LanguageItem::name);
  if (item == section->items.end()) return {};
  return createIndex(static_cast<int>(item - section->items.begin()), 0, kFirstItem + static_cast<quintptr>(row));
}

LanguageNode LanguageTreeModel::NodeAt(const QModelIndex& index) const {
  if (index.internalId() == kRoot) return {};
  const LanguageSection& section = sections_[SectionOf(index)];
  return {section.name, index.internalId() == kSection ? std::string{} : ItemAt(index).name};
}

std::optional<std::string> LanguageTreeModel::TextOf(const LanguageNode& node) const {
  const QModelIndex index = IndexOf(node);
  if (!index.isValid() || index.internalId() < kFirstItem) return std::nullopt;
  return ItemAt(index).text;
}

const LanguageItem& LanguageTreeModel::ItemAt(const QModelIndex& index) const {
  return sections_[SectionOf(index)].items[static_cast<std::size_t>(index.row())];
}

QModelIndex LanguageTreeModel::index(int row, int column, const QModelIndex& parent) const {
  if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
  if (!parent.isValid()) return createIndex(row, 0, kRoot);
  if (parent.internalId() == kRoot) return createIndex(row, 0, kSection);
  return createIndex(row, 0, kFirstItem + static_cast<quintptr>(parent.row()));
}

QModelIndex LanguageTreeModel::parent(const QModelIndex& child) const {
  if (!child.isValid() || child.internalId() == kRoot) return {};
  if (child.internalId() == kSection) return createIndex(0, 0, kRoot);
  return createIndex(static_cast<int>(SectionOf(child)), 0, kSection);
}

int LanguageTreeModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return root_ ? 1 : 0;
  if (parent.internalId() == kRoot) return static_cast<int>(sections_.size());
  if (parent.internalId() == kSection) return static_cast<int>(sections_[SectionOf(parent)].items.size());
  return 0;
}

QString LanguageTreeModel::Caption(const QModelIndex& index) const {
  if (index.internalId() == kRoot) return ToQt(*root_);
  if (index.internalId() == kSection) return ToQt(sections_[SectionOf(index)].name);
  const LanguageItem& item = ItemAt(index);
  const QString text = OneLine(item.text);
  const QString caption = ToQt(item.name) + " = " + (text.isRightToLeft() ? Isolated(text) : text);
  return QApplication::isRightToLeft() ? Isolated(caption) : caption;
}

QVariant LanguageTreeModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return Caption(index);
  if (role != kMarkRole && role != Qt::DecorationRole && role != Qt::ToolTipRole && role != Qt::AccessibleTextRole) {
    return {};
  }
  const LanguageMark mark =
      marking_(NodeAt(index), index.internalId() >= kFirstItem ? ItemAt(index).text : std::string{});
  if (role == kMarkRole) return static_cast<int>(mark);
  if (mark == LanguageMark::None) return {};
  if (role == Qt::DecorationRole) return MarkIcon(mark);
  return role == Qt::ToolTipRole ? MarkText(mark) : Caption(index) + ", " + MarkText(mark);
}

LanguageTreeFilter::LanguageTreeFilter(LanguageTreeModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), model_(model) {
  // Otherwise an item would leave the tree while the user is working on it.
  setDynamicSortFilter(false);
  setRecursiveFilteringEnabled(true);
  setSourceModel(&model);
}

void LanguageTreeFilter::Refilter(bool only_open, const LanguageNode& kept) {
  only_open_ = only_open;
  kept_ = kept;
  invalidateFilter();
}

LanguageNode LanguageTreeFilter::NodeAt(const QModelIndex& index) const {
  return index.isValid() ? model_.NodeAt(mapToSource(index)) : LanguageNode{};
}

std::vector<LanguageSection> LanguageTreeFilter::Sections() const {
  std::vector<LanguageSection> shown;
  const QModelIndex root = index(0, 0);
  for (int row = 0; row < rowCount(root); ++row) {
    const QModelIndex section = index(row, 0, root);
    LanguageSection& one = shown.emplace_back(LanguageSection{NodeAt(section).section, {}});
    for (int item = 0; item < rowCount(section); ++item) {
      const LanguageNode node = NodeAt(index(item, 0, section));
      one.items.push_back({node.name, model_.TextOf(node).value_or("")});
    }
  }
  return shown;
}

bool LanguageTreeFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
  const QModelIndex source = model_.index(row, 0, parent);
  const LanguageNode node = model_.NodeAt(source);
  if (!only_open_ || node.section.empty() || node == kept_) return true;
  const auto mark = static_cast<LanguageMark>(model_.data(source, LanguageTreeModel::kMarkRole).toInt());
  // Other sections are shown only if one of their items is.
  return mark == LanguageMark::Missing || (!node.name.empty() && mark != LanguageMark::Translated);
}

}  // namespace captoria
