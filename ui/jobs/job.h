// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// One long piece of work beside the window, with a bar that tells how far it is and a button that stops it. The work is
// a film, of which first the bitmaps are drawn and then the file is written, or a list of such films.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <functional>
#include <memory>

#include "localisation/language_document.h"
#include "pipeline/conversion.h"

namespace captoria {

class JobBar final : public QWidget, public WorkMonitor {
  Q_OBJECT

 public:
  // The language, which may change, outlives the bar.
  JobBar(const LanguageDocument& language, QWidget* parent);

  // Runs `work` on a thread of its own and returns after it has ended; meanwhile the window keeps painting. Ignored
  // while other work runs. `items` are the names of the films of a list; empty for a single film.
  void Run(const std::function<void()>& work, const QStringList& items = {});

  bool IsBusy() const { return busy_; }

  // The work that runs is asked to stop, as by the button.
  void Stop() { *stop_ = true; }

  // For the work, on any thread: which film of the list begins, counted from 0; and where to report its progress.
  void BeginItem(int index);
  std::unique_ptr<JobProgress> BeginWork(Work work) override;

 signals:
  void Began();
  void Ended();

 private:
  // How far the work is: written by its threads, read by the window.
  struct State {
    std::atomic<Work> work = Work::Bitmaps;
    std::atomic<std::size_t> done = 0;
    std::atomic<std::size_t> total = 0;
    std::atomic<int> item = 0;
  };
  class Reporter;

  void ShowState();
  QString ItemText() const;
  QString TimeLeft(double part) const;

  const LanguageDocument& language_;
  QLabel* label_;
  QProgressBar* bar_;
  QPushButton* cancel_;
  QTimer timer_;
  QElapsedTimer since_;
  QStringList items_;
  std::shared_ptr<State> state_;
  std::shared_ptr<std::atomic<bool>> stop_;
  bool busy_ = false;
};

}  // namespace captoria
