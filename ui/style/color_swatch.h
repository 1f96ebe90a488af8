// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What a button shows of a colour it lets one choose: a square of it, and its numbers.
#pragma once

#include <QIcon>
#include <QString>

#include "settings/track_style.h"

namespace captoria {

// A filled square of 16 x 16 pixels, for icons of 16 and of 20 pixels and for screens of one, two and three pixels to
// the logical one. A thin frame keeps a square of the window's own colour in sight.
QIcon ColorSwatch(Color color);

// "RGB = (255, 255, 255)"
QString RgbText(Color color);

}  // namespace captoria
