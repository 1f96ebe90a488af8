// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

#include "ui/preview/frame_loader.h"

#include <cmath>
#include <utility>

#include "media/video/frame_decoder.h"
#include "pipeline/avi_inspection.h"
#include "ui/preview/picture_view.h"
#include "ui/texts/qt_text.h"

namespace captoria {
namespace {

QString WhyNotOpened(const Error& error, const std::string& path) {
  if (error.kind == ErrorKind::Unsupported) {
    return QStringLiteral("No suitable decompressor found for this video stream!");
  }
  return QStringLiteral("There was an error working with the file:\r\n") + ToQt(path);
}

QString NotFoundText() { return QStringLiteral("Frame not found"); }

// If the film's length is known, the frame should exist.
QString WhyNoFrame(const Error& error, const std::string& path, qint64 frames) {
  if (frames == 0 && error.kind == ErrorKind::NotFound) return NotFoundText();
  return QStringLiteral("Can not get frame of file '") + ToQt(path) + '\'';
}

// Duration of the video stream in milliseconds. The film's own duration may be that of a longer sound stream; frames
// computed from it would drift away from the cues.
qint64 DurationOf(const FrameDecoder& film, const std::string& path) {
  const auto video = GetAviStreamInfo(path, StreamKind::Video);
  if (!video || !*video || (*video)->fps <= 0) return film.Duration();
  return std::llround(1000.0 * static_cast<double>(film.FrameCount()) / static_cast<double>((*video)->fps));
}

}  // namespace

// Stops work that a newer request replaced.
class FrameLoader::Watch final : public JobProgress {
 public:
  Watch(const std::atomic<std::uint64_t>& newest, std::uint64_t own) : newest_(newest), own_(own) {}
  bool Report(std::size_t, std::size_t) override { return newest_ == own_; }

 private:
  const std::atomic<std::uint64_t>& newest_;
  std::uint64_t own_;
};

// The open film. Used only by the worker thread.
class FrameLoader::Film {
 public:
  explicit Film(FrameLoader& loader) : loader_(loader) {}

  void Open(const std::string& path, const Ticket& ticket) {
    decoder_.reset();
    path_ = path;
    if (path.empty()) return;
    Watch watch(loader_.film_, ticket.film);
    auto opened = FrameDecoder::Open(path, watch);
    if (!opened) return Fail(true, ticket, WhyNotOpened(opened.error(), path));
    decoder_ = std::move(*opened);
    const int width = decoder_->Width(), height = decoder_->Height();
    const qint64 frames = decoder_->FrameCount(), duration = DurationOf(*decoder_, path);
    loader_.Send(true, ticket, [=](FrameLoader& to) { emit to.Opened(width, height, frames, duration); });
  }

  void Get(qint64 number, const Ticket& ticket) {
    if (!decoder_) return;
    const qint64 frames = decoder_->FrameCount();
    if (frames > 0 && number > frames) return Fail(false, ticket, NotFoundText());
    Watch watch(loader_.frame_, ticket.frame);
    auto frame = decoder_->Frame(number, watch);
    if (!frame) return Fail(false, ticket, WhyNoFrame(frame.error(), path_, frames));
    const QImage image = ToImage(std::move(*frame));
    loader_.Send(false, ticket, [=](FrameLoader& to) { emit to.FrameReady(number, image); });
  }

 private:
  void Fail(bool is_of_film, const Ticket& ticket, const QString& why) {
    loader_.Send(is_of_film, ticket, [=](FrameLoader& to) { emit to.Failed(why); });
  }

  FrameLoader& loader_;
  std::string path_;
  std::optional<FrameDecoder> decoder_;
};

FrameLoader::FrameLoader(QObject* parent) : QObject(parent) {
  connect(
      this, &FrameLoader::Answered, this, [](const std::function<void()>& answer) { answer(); }, Qt::QueuedConnection);
  worker_ = std::jthread([this](const std::stop_token& stop) { Work(stop); });
}

FrameLoader::~FrameLoader() {
  Close();  // stops the current decoding
  worker_.request_stop();
  worker_.join();
}

void FrameLoader::Open(const std::string& path) {
  ++film_;
  ++frame_;
  Place({.path = path, .frame{}, .ticket = Newest()});
}

void FrameLoader::Request(qint64 frame) {
  ++frame_;
  Place({.path{}, .frame = frame, .ticket = Newest()});
}

void FrameLoader::Close() { Open({}); }

void FrameLoader::Place(Order order) {
  {
    const std::lock_guard lock(mutex_);
    // A film that is still waiting to be opened has to be opened before its frame.
    if (!order.path && next_) order.path = std::move(next_->path);
    next_ = std::move(order);
  }
  wake_.notify_one();
}

void FrameLoader::Work(const std::stop_token& stop) {
  Film film(*this);
  for (;;) {
    std::unique_lock lock(mutex_);
    if (!wake_.wait(lock, stop, [this] { return next_.has_value(); })) return;
    const Order order = *std::exchange(next_, std::nullopt);
    lock.unlock();
    if (stop.stop_requested()) return;
    if (order.path) film.Open(*order.path, order.ticket);
    if (order.frame) film.Get(*order.frame, order.ticket);
  }
}

void FrameLoader::Send(bool is_of_film, const Ticket& ticket, std::function<void(FrameLoader&)> answer) {
  // Checked again on arrival: a newer request may have come in the meantime.
  emit Answered([this, is_of_film, ticket, answer = std::move(answer)] {
    const Ticket newest = Newest();
    if (is_of_film ? newest.film == ticket.film : newest.frame == ticket.frame) answer(*this);
  });
}

}  // namespace captoria
