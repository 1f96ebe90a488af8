// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/jobs/job.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <algorithm>
#include <thread>

#include "localisation/window_texts.h"
#include "ui/texts/captions.h"
#include "ui/texts/qt_text.h"

namespace captoria {

class JobBar::Reporter final : public JobProgress {
 public:
  Reporter(std::shared_ptr<State> state, std::shared_ptr<std::atomic<bool>> stop)
      : state_(std::move(state)), stop_(std::move(stop)) {}

  bool Report(std::size_t done, std::size_t total) override {
    state_->total = total;
    state_->done = done;
    return !*stop_;
  }

 private:
  std::shared_ptr<State> state_;
  std::shared_ptr<std::atomic<bool>> stop_;
};

JobBar::JobBar(const LanguageDocument& language, QWidget* parent)
    : QWidget(parent),
      language_(language),
      label_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      cancel_(new QPushButton("&Cancel", this)),
      state_(std::make_shared<State>()),
      stop_(std::make_shared<std::atomic<bool>>(false)) {
  setObjectName("jobBar");
  cancel_->setObjectName("cmdCancelJob");
  cancel_->setIcon(QIcon(":/icons/cancel.svg"));
  bar_->setAccessibleName("Progress");
  bar_->setObjectName("barJob");
  label_->setObjectName("lblJob");
  label_->setProperty(kShowsData, true);
  label_->setAccessibleName("What is being done");
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(label_);
  layout->addWidget(bar_, 1);
  layout->addWidget(cancel_);
  connect(cancel_, &QPushButton::clicked, this, [this] {
    cancel_->setEnabled(false);
    Stop();
  });
  connect(&timer_, &QTimer::timeout, this, &JobBar::ShowState);
  hide();
}

void JobBar::Run(const std::function<void()>& work, const QStringList& items) {
  if (busy_) return;
  busy_ = true;
  *stop_ = false;
  state_->item = 0;
  state_->done = 0;
  state_->total = 0;
  items_ = items;
  since_.start();
  cancel_->setEnabled(true);
  label_->clear();
  bar_->setRange(0, 0);
  bar_->setValue(0);
  constexpr int kLookEvery = 50;  // milliseconds
  timer_.start(kLookEvery);
  show();
  emit Began();
  QEventLoop loop;
  std::thread thread([&] {
    work();
    QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
  });
  loop.exec();
  thread.join();
  timer_.stop();
  hide();
  busy_ = false;
  emit Ended();
}

std::unique_ptr<JobProgress> JobBar::BeginWork(Work work) {
  state_->work = work;
  state_->done = 0;
  state_->total = 0;
  return std::make_unique<Reporter>(state_, stop_);
}

void JobBar::BeginItem(int index) {
  state_->done = 0;
  state_->total = 0;
  state_->work = Work::Bitmaps;
  state_->item = index;
}

QString JobBar::ItemText() const {
  if (items_.isEmpty()) return {};
  const int item = state_->item;
  return ToQt(TextOf(language_, window_texts::kJobItem)).arg(item + 1).arg(items_.size()).arg(items_.at(item));
}

void JobBar::ShowState() {
  const std::size_t done = state_->done, total = state_->total;
  const bool drawing = state_->work == Work::Bitmaps;
  const QString item = ItemText();
  label_->setText(item);
  if (total == 0 || done == 0 || done > total) return;
  // A film's two halves take about the same time on a fast disk; on a slow one the second does.
  const double half = static_cast<double>(done) / static_cast<double>(total) / 2;
  const double part =
      (state_->item + half + (drawing ? 0 : 0.5)) / static_cast<double>(std::max<qsizetype>(1, items_.size()));
  constexpr int kSteps = 1000;
  bar_->setRange(0, kSteps);
  bar_->setValue(std::max(bar_->value(), static_cast<int>(part * kSteps)));
  const QString what = ToQt(TextOf(language_, drawing ? window_texts::kCreateBitmaps : window_texts::kWritingFilm));
  label_->setText(item + what + (drawing ? QString::number(done) : QString{}) + TimeLeft(part));
}

QString JobBar::TimeLeft(double part) const {
  constexpr qint64 kTellsNothing = 500;  // milliseconds
  const qint64 passed = since_.elapsed();
  if (part <= 0 || passed < kTellsNothing) return {};
  const auto seconds = static_cast<qint64>(static_cast<double>(passed) * (1 - part) / part / 1000) + 1;
  return ToQt(TextOf(language_, window_texts::kTimeLeft)).arg(seconds);
}

}  // namespace captoria
