// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Long work runs beside the window, but only the window's own thread may touch it.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>

namespace captoria {

// Runs `work` on the thread of `context`, and returns when it is done. That thread has an event loop.
template <typename Work>
void OnGuiThread(QObject* context, Work work) {
  if (QThread::currentThread() == context->thread()) {
    work();
  } else {
    QMetaObject::invokeMethod(context, work, Qt::BlockingQueuedConnection);
  }
}

}  // namespace captoria
