// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A language document as a tree: root, sections, and items as "name = text". The icon, the tool tip and the accessible
// text of an item show the state of its translation.
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

// Drawn in the colours of the current application palette.
QIcon MarkIcon(LanguageMark mark);

QString MarkText(LanguageMark mark);

class LanguageTreeModel final : public QAbstractItemModel {
 public:
  static constexpr int kMarkRole = Qt::UserRole;

  // Returns the mark of a node. `text` is the text of an item.
  using Marking = std::function<LanguageMark(const LanguageNode& node, const std::string& text)>;

  // The model is empty until Load.
  LanguageTreeModel(Marking marking, QObject* parent);

  void Load(const std::string& root, std::vector<LanguageSection> sections);

  // Updates the model to `sections`. Since the last call, only texts may have changed, and items and sections may have
  // been appended.
  void Follow(const std::vector<LanguageSection>& sections);

  // Call after marks changed.
  void Refresh();

  const std::vector<LanguageSection>& Sections() const { return sections_; }

  // Invalid if there is no such node.
  QModelIndex IndexOf(const LanguageNode& node) const;

  // `index` is valid.
  LanguageNode NodeAt(const QModelIndex& index) const;

  // The text of an item. Nothing for other nodes and for a missing item.
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

// The same tree, optionally reduced to the items that are missing or not translated. An item translated in the meantime
// stays until the next Refilter.
class LanguageTreeFilter final : public QSortFilterProxyModel {
 public:
  // `model` outlives the filter.
  LanguageTreeFilter(LanguageTreeModel& model, QObject* parent);

  // `only_open`: show only missing and untranslated items. The node `kept` and its parents are always shown.
  void Refilter(bool only_open, const LanguageNode& kept);

  // An empty node for an invalid index.
  LanguageNode NodeAt(const QModelIndex& index) const;
  QModelIndex IndexOf(const LanguageNode& node) const { return mapFromSource(model_.IndexOf(node)); }

  // The sections and items shown.
  std::vector<LanguageSection> Sections() const;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

 private:
  LanguageTreeModel& model_;
  bool only_open_ = false;
  LanguageNode kept_;
};

}  // namespace captoria
