// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Collects the videos of a batch conversion from file dialogs and from drag and drop.
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <string>
#include <vector>

#include "automation/film_list.h"
#include "platform/prompts.h"

namespace captoria {

class frmBatch final : public QDialog {
 public:
  // `prompts` outlives the dialog. File dialogs start at `current_video`, which may be empty.
  frmBatch(Prompts& prompts, std::string current_video, QWidget* parent);

  // Whether the user closed the dialog with OK. The dialog is then hidden, and Files is valid.
  bool Confirmed() const { return result() == QDialog::Accepted; }

  std::vector<std::string> Files() const { return files_.Files(); }

  void accept() override;

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QPushButton* Button(const char* name, const QString& text, void (frmBatch::*clicked)());
  void Add();
  void AddFolder();
  void Delete();
  void Clear();
  void ShowFiles();
  void OfferWhatIsPossible();

  Prompts& prompts_;
  std::string current_video_;
  FilmList files_;
  QListWidget* list_;
  QPushButton* delete_;
  QPushButton* clear_;
};

}  // namespace captoria
