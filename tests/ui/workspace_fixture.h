// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// A session for the tests of one part of the window, with an empty data folder and prompts that follow a script.
#pragma once

#include <gmock/gmock.h>

#include <QWidget>
#include <stdexcept>
#include <string>

#include "app/workspace.h"
#include "tests/support/qt_application.h"
#include "tests/support/quiet_view.h"
#include "tests/support/scripted_prompts.h"
#include "tests/support/test_folder.h"

namespace captoria {

// The part of `window` called `name`; the member `index` if it is one of an array.
template <typename T = QWidget>
T& PartOf(const QWidget& window, const char* name, int index = -1) {
  for (T* part : window.findChildren<T*>(name)) {
    if (index < 0 || part->property("Index") == index) return *part;
  }
  throw std::out_of_range(name);
}

class WorkspaceFixture : public testing::Test {
 protected:
  static void SetUpTestSuite() { TestApplication(); }

  TestFolder folder_;
  ScriptedPrompts prompts_;
  QuietView view_;
  Workspace workspace_{{.executable = folder_.File("program"), .data = folder_.File("data")}, prompts_, view_};
};

}  // namespace captoria
