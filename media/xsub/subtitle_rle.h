// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The run-length code of four-colour subtitle pictures, the same for DVD sub-pictures and XSUB.
//
// A code is the length of a run followed by the two bits of its colour, in as few nibbles as possible: one for lengths
// up to 3, two up to 15, three up to 63, four up to 255. Length 0 in four nibbles means up to the end of the row. Every
// row begins at a byte. A picture is coded as two fields: first the even rows, then the odd rows.
#pragma once

#include <cstddef>

#include "base/bytes.h"
#include "media/xsub/subtitle_picture.h"

namespace captoria {

enum class Field { Even, Odd };

// Appends the code of one field of `picture` to `code`.
void EncodeField(const SubtitlePicture& picture, Field field, Bytes& code);

// Fills the rows of one field from the beginning of `code` and returns the number of bytes used. Runs are cut at the
// end of the row. If the code is cut off, the remaining pixels get colour 0.
std::size_t DecodeField(ByteView code, Field field, SubtitlePicture& picture);

}  // namespace captoria
