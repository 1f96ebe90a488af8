// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A language document as a tree: its root, the sections below it, and in each its items as "name = text". An item
// tells by an icon, by its tool tip and to screen readers how far its translation is.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QSortFilterProxyModel>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "localisation/language_edit.h"

namespace captoria {

enum class LanguageMark { None, Missing, Untranslated, Translated, Extra };

// In the colours of the application's palette at the time it is painted.
QIcon MarkIcon(LanguageMark mark);

QString MarkText(LanguageMark mark);

class LanguageTreeModel final : public QAbstractItemModel {
 public:
  static constexpr int kMarkRole = Qt::UserRole;

  // Gives the mark of a node. An item's text comes with it.
  using Marking = std::function<LanguageMark(const LanguageNode& node, const std::string& text)>;

  // Without a document, and so without any row.
  LanguageTreeModel(Marking marking, QObject* parent);

  void Load(const std::string& root, std::vector<LanguageSection> sections);

  // The document as it is now: since the last call texts were changed, items appended to sections and sections to the
  // root; nothing else.
  void Follow(const std::vector<LanguageSection>& sections);

  // Marks have changed.
  void Refresh();

  const std::vector<LanguageSection>& Sections() const { return sections_; }

  // Invalid when there is no such node.
  QModelIndex IndexOf(const LanguageNode& node) const;

  // `index` is valid.
  LanguageNode NodeAt(const QModelIndex& index) const;

  // Of an item; nothing for other nodes and when there is none.
  std::optional<std::string> TextOf(const LanguageNode& node) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex&) const override { return 1; }
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString Caption(const QModelIndex& index) const;
  const LanguageItem& ItemAt(const QModelIndex& index) const;

  Marking marking_;
  std::optional<std::string> root_;
  std::vector<LanguageSection> sections_;
};

// The same tree, on demand with nothing but the items that are missing or not translated. What was translated since
// stays until the next Refilter.
class LanguageTreeFilter final : public QSortFilterProxyModel {
 public:
  // `model` outlives the filter.
  LanguageTreeFilter(LanguageTreeModel& model, QObject* parent);

  // All others are in the tree only when `only_open` is false, but for the node `kept` and what it is in.
  void Refilter(bool only_open, const LanguageNode& kept);

  // Root: none is selected.
  LanguageNode NodeAt(const QModelIndex& index) const;
  QModelIndex IndexOf(const LanguageNode& node) const { return mapFromSource(model_.IndexOf(node)); }

  // What is in the tree.
  std::vector<LanguageSection> Sections() const;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  LanguageTreeModel& model_;
  bool only_open_ = false;
  LanguageNode kept_;
};

}  // namespace captoria
