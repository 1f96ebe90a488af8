// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The languages of a film's audio streams. AVI files keep them in the INFO list, not with the streams: IAS1 is the
// language of the first audio stream, and so on up to IAS9.
#pragma once

#include <span>

#include "media/avi/avi_file.h"

namespace captoria {

// Adapts `list` to a film with other audio streams. `former_numbers` are the numbers (from 1) that its audio streams
// had in the source, in the order of the film. Any list but a valid INFO list is returned unchanged.
RiffPiece WithAudioLanguages(const RiffPiece& list, std::span<const int> former_numbers);

}  // namespace captoria
