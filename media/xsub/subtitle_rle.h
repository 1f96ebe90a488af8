// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The run-length code of four-colour subtitle pictures, the same for DVD sub-pictures and XSUB.
//
// A code is a run's length followed by the two bits of its colour, in as few nibbles as hold them: one for lengths up
// to 3, two up to 15, three up to 63, four up to 255. Length 0, in four nibbles, runs to the end of the row. Rows begin
// on a byte. A picture is coded as two fields: its even rows, then its odd ones.
#pragma once

#include <cstddef>

#include "base/bytes.h"
#include "media/xsub/subtitle_picture.h"

namespace captoria {

enum class Field { Even, Odd };

// Appends the code of one field of `picture` to `code`.
void EncodeField(const SubtitlePicture& picture, Field field, Bytes& code);

// Fills the rows of one field from the beginning of `code` and gives the bytes used. A run is cut at the end of its
// row, and what a code that breaks off leaves open is colour 0.
std::size_t DecodeField(ByteView code, Field field, SubtitlePicture& picture);

}  // namespace captoria
