// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The name under which language files, tests and screen readers know a part of the window.
#pragma once

#include <QString>

namespace captoria {

template <typename Object>
Object* Named(Object* object, const QString& name) {
  object->setObjectName(name);
  return object;
}

}  // namespace captoria
