// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Pictures of a film, decoded beside the window. Only what was asked for last is answered: a newer request stops the
// decoding of an older one, and nothing comes of a film that was closed.
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

  // Another film in the place of the one before. `path` may be any bytes. Answered by Opened or Failed.
  void Open(const std::string& path);

  // Frame `frame` of the film, counted from 0. Answered by FrameReady or Failed, after the answer to Open; not at all
  // when the film could not be opened.
  void Request(qint64 frame);

  void Close();

 signals:
  // These three on the thread of the loader's owner. Frames and duration, which is that of the pictures, are 0 when not
  // known.
  void Opened(int width, int height, qint64 frames, qint64 duration_ms);
  void FrameReady(qint64 number, QImage image);
  void Failed(QString message);

  // The worker's way to that thread; of nobody else's concern.
  void Answered(std::function<void()> answer);

 private:
  // Counts of what was asked for. What is worked on has the counts of its time and is in vain when they have changed.
  struct Ticket {
    std::uint64_t film = 0;
    std::uint64_t frame = 0;
  };
  struct Order {
    std::optional<std::string> path;  // of another film; empty for none
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
  std::mutex mutex_;  // for next_
  std::condition_variable_any wake_;
  std::optional<Order> next_;
  std::jthread worker_;
};

}  // namespace captoria
