// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Decodes frames of a film on a worker thread. Only the newest request is answered: it stops the decoding of older
// requests, and a closed film answers nothing.
#pragma once

#include <QImage>
#include <QObject>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace captoria {

class FrameLoader final : public QObject {
  Q_OBJECT

 public:
  explicit FrameLoader(QObject* parent = nullptr);
  ~FrameLoader() override;

  // Opens a film in place of the current one. `path` may be any bytes. Answered by Opened or Failed.
  void Open(const std::string& path);

  // Decodes frame `frame`, counted from 0. Answered by FrameReady or Failed after the answer to Open; not answered if
  // the film could not be opened.
  void Request(qint64 frame);

  void Close();

 signals:
  // These three arrive on the owner's thread. `frames` and the duration of the video stream are 0 if unknown.
  void Opened(int width, int height, qint64 frames, qint64 duration_ms);
  void FrameReady(qint64 number, QImage image);
  void Failed(QString message);

  // Internal: carries an answer from the worker to the owner's thread.
  void Answered(std::function<void()> answer);

 private:
  // Numbers of the film and the frame requested last. Work carries a copy and is dropped if a newer request has
  // arrived.
  struct Ticket {
    std::uint64_t film = 0;
    std::uint64_t frame = 0;
  };
  struct Order {
    std::optional<std::string> path;  // film to open; empty to close the current one
    std::optional<qint64> frame;
    Ticket ticket;
  };
  class Film;
  class Watch;

  void Place(Order order);
  void Work(const std::stop_token& stop);
  Ticket Newest() const { return {film_, frame_}; }
  void Send(bool is_of_film, const Ticket& ticket, std::function<void(FrameLoader&)> answer);

  std::atomic<std::uint64_t> film_ = 0;
  std::atomic<std::uint64_t> frame_ = 0;
  std::mutex mutex_;  // guards next_
  std::condition_variable_any wake_;
  std::optional<Order> next_;
  std::jthread worker_;
};

}  // namespace captoria
