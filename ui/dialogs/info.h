// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A table of text with two columns and a movable divider. The cells of one column may offer a list of texts to choose
// from. Lines and columns are numbered from 1.
//
// A line or column out of range shows a message box, changes nothing and returns an empty value.
#pragma once

#include <QFont>
#include <QPointer>
#include <QStringList>
#include <QTableWidget>
#include <QWidget>

#include "platform/prompts.h"

class QComboBox;

namespace captoria {

class Info final : public QWidget {
  Q_OBJECT

 public:
  // `prompts` outlives the panel.
  Info(Prompts& prompts, QWidget* parent);

  // Position of the divider, in pixels from the leading edge.
  int MiddleWidth() const;
  void SetMiddleWidth(int width);

  QFont Font(int line, int column) const;
  void SetFont(int line, int column, const QFont& font);

  // The column whose cells offer the list; 0 for none.
  int ColumnForCombo() const { return combo_column_; }
  void SetColumnForCombo(int column);
  void ComboClear();
  void ComboAddItem(const QString& text);

  // The item selected first if the cell's own text is not in the list. Ignored if `text` is not in the list either.
  void SetComboText(const QString& text);

  Qt::Alignment VerticalAlingment(int line, int column) const;
  void SetVerticalAlingment(int line, int column, Qt::Alignment alignment);
  Qt::Alignment Alingment(int line, int column) const;
  void SetAlingment(int line, int column, Qt::Alignment alignment);

  // A line break starts a new line in the cell.
  QString Caption(int line, int column) const;
  void SetCaption(int line, int column, const QString& text);

  int LineCount() const { return table_->rowCount(); }

  // Minimum height of a line in pixels; cells with several lines of text are higher.
  int LineHeight() const { return line_height_; }
  void SetLineHeight(int height);

  void Clear() { table_->setRowCount(0); }
  void RemoveLine(int line);

  // Missing texts are empty; texts after the second are ignored.
  void AddLine(const QStringList& texts, Qt::Alignment alignment = Qt::AlignLeading,
               Qt::Alignment vertical = Qt::AlignVCenter);

  QString Title1() const { return table_->horizontalHeaderItem(0)->text(); }
  void SetTitle1(const QString& text);
  QString Title2() const { return table_->horizontalHeaderItem(1)->text(); }
  void SetTitle2(const QString& text);

 signals:
  // The user chose another text for the cell.
  void CaptionChosen(int line, int column);

 private:
  class ComboDelegate;

  void BuildTable();
  bool HasLine(int line) const;
  QTableWidgetItem* Cell(int line, int column) const;  // null after a message
  void Align(int line, int column, Qt::Alignment alignment, Qt::Alignment kept);
  bool OffersList(const QModelIndex& cell) const;
  void OpenList(const QModelIndex& cell);
  void Copy() const;

  Prompts& prompts_;
  QTableWidget* table_;
  int line_height_ = 0;
  int combo_column_ = 0;
  QStringList combo_items_;
  QString combo_text_;
  QPointer<QComboBox> editor_;
};

}  // namespace captoria
