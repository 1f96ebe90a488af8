// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// How a button shows the colour that it changes: a filled square and its RGB values.
#pragma once

#include <QIcon>
#include <QString>

#include "settings/track_style.h"

namespace captoria {

// A filled square of 16 x 16 pixels, for icon sizes of 16 and 20 pixels and screen scales of 1, 2 and 3. A thin frame
// keeps a square in the window's own colour visible.
QIcon ColorSwatch(Color color);

// "RGB = (255, 255, 255)"
QString RgbText(Color color);

}  // namespace captoria
