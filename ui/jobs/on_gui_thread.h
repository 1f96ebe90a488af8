// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Long work runs on a thread of its own, but only the GUI thread may touch widgets.
#pragma once

#include <QMetaObject>
#include <QObject>
#include <QThread>

namespace captoria {

// Runs `work` on the thread of `context`, which has an event loop, and waits for it to finish.
template <typename Work>
void OnGuiThread(QObject* context, Work work) {
  if (QThread::currentThread() == context->thread()) {
    work();
  } else {
    QMetaObject::invokeMethod(context, work, Qt::BlockingQueuedConnection);
  }
}

}  // namespace captoria
