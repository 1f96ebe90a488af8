// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A table of two columns of texts with a movable divider between them; the cells of one column can be given another
// text of a list. Lines and columns are numbered from 1.
//
// A line or a column that there is none of is told in a message box, changes nothing, and gives an empty value.
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

  // Where the divider is, in pixels from the edge that lines begin at.
  int MiddleWidth() const;
  void SetMiddleWidth(int width);

  QFont Font(int line, int column) const;
  void SetFont(int line, int column, const QFont& font);

  // The column whose cells offer the list of texts; 0 for none.
  int ColumnForCombo() const { return combo_column_; }
  void SetColumnForCombo(int column);
  void ComboClear();
  void ComboAddItem(const QString& text);

  // The item that the list opens with over a cell whose own text is none of its items. A text that is no item itself
  // changes nothing.
  void SetComboText(const QString& text);

  Qt::Alignment VerticalAlingment(int line, int column) const;
  void SetVerticalAlingment(int line, int column, Qt::Alignment alignment);
  Qt::Alignment Alingment(int line, int column) const;
  void SetAlingment(int line, int column, Qt::Alignment alignment);

  // Line breaks are shown as such.
  QString Caption(int line, int column) const;
  void SetCaption(int line, int column, const QString& text);

  int LineCount() const { return table_->rowCount(); }

  // The least height of a line in pixels; texts of several lines get more.
  int LineHeight() const { return line_height_; }
  void SetLineHeight(int height);

  void Clear() { table_->setRowCount(0); }
  void RemoveLine(int line);

  // Texts that are missing are empty, those beyond the second column are not shown.
  void AddLine(const QStringList& texts, Qt::Alignment alignment = Qt::AlignLeading,
               Qt::Alignment vertical = Qt::AlignVCenter);

  QString Title1() const { return table_->horizontalHeaderItem(0)->text(); }
  void SetTitle1(const QString& text);
  QString Title2() const { return table_->horizontalHeaderItem(1)->text(); }
  void SetTitle2(const QString& text);

 signals:
  // A person has given the cell another text of the list.
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
