// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A label that opens an address when it is clicked, or on Enter or Space while it has the focus. Without an address it
// is an ordinary label.
#pragma once

#include <QLabel>

#include "platform/document_opener.h"

namespace captoria {

class LinkLabel final : public QLabel {
  Q_OBJECT

 public:
  enum class AddressIn { Caption, ToolTip };

  // `opener` outlives the label.
  LinkLabel(DocumentOpener& opener, AddressIn place, QWidget* parent);

  QString Address() const { return (place_ == AddressIn::Caption ? text() : toolTip()).trimmed(); }

 signals:
  // The address could not be opened.
  void NotOpened(const QString& reason);

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void LookLikeItsAddress();
  void Open();

  DocumentOpener& opener_;
  AddressIn place_;
};

}  // namespace captoria
