// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/job.h"

#include <QEventLoop>
#include <QHBoxLayout>
#include <thread>

#include "ui/captions.h"
#include "ui/hidden_text.h"

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

JobBar::JobBar(QWidget* parent)
    : QWidget(parent),
      label_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      cancel_(new QPushButton(tr("&Cancel"), this)),
      bitmaps_text_(HiddenText("lblCreateBitmaps", tr("Creating Bitmaps..."), this)),
      film_text_(HiddenText("lblWritingFilm", tr("Writing the film"), this)),
      time_text_(HiddenText("lblTimeLeft", tr(", %1 s left"), this)),
      state_(std::make_shared<State>()),
      stop_(std::make_shared<std::atomic<bool>>(false)) {
  setObjectName("jobBar");
  cancel_->setObjectName("cmdCancelJob");
  cancel_->setIcon(QIcon(":/icons/cancel.svg"));
  bar_->setAccessibleName(tr("Progress"));
  bar_->setObjectName("barJob");
  label_->setObjectName("lblJob");
  label_->setProperty(kShowsData, true);
  label_->setAccessibleName(tr("What is being done"));
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

void JobBar::Run(const std::function<void()>& work) {
  if (busy_) return;
  busy_ = true;
  *stop_ = false;
  cancel_->setEnabled(true);
  label_->clear();
  bar_->setRange(0, 0);
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
  ++state_->begun;
  return std::make_unique<Reporter>(state_, stop_);
}

void JobBar::ShowState() {
  const std::size_t done = state_->done, total = state_->total;
  if (total == 0 || done == 0 || done > total) return;
  if (shown_ != state_->begun || !since_.isValid() || done < done_at_first_) {
    shown_ = state_->begun;
    done_at_first_ = done;
    since_.start();
  }
  constexpr int kSteps = 1000;
  bar_->setRange(0, kSteps);
  bar_->setValue(static_cast<int>(done * kSteps / total));
  const QString what =
      state_->work == Work::Bitmaps ? bitmaps_text_->text() + QString::number(done) : film_text_->text();
  label_->setText(what + TimeLeft(done, total));
}

QString JobBar::TimeLeft(std::size_t done, std::size_t total) const {
  constexpr qint64 kTellsNothing = 500;  // milliseconds
  const qint64 passed = since_.elapsed();
  if (done <= done_at_first_ || passed < kTellsNothing) return {};
  const auto left =
      static_cast<double>(passed) * static_cast<double>(total - done) / static_cast<double>(done - done_at_first_);
  return time_text_->text().arg(static_cast<qint64>(left / 1000) + 1);
}

}  // namespace captoria
