// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Sets the object name, by which language files and tests find a part of the window.
#pragma once

#include <QString>

namespace captoria {

template <typename Object>
Object* Named(Object* object, const QString& name) {
  object->setObjectName(name);
  return object;
}

}  // namespace captoria
