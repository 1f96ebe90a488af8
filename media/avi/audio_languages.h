// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The languages of a film's audio streams, which stand in its INFO list and not with the streams: IAS1 is that of the
// first audio stream, and so on to IAS9.
#pragma once

#include <span>

#include "media/avi/avi_file.h"

namespace captoria {

// `list` for a film whose audio streams are those that had the given numbers (from 1) before, in this order. Anything
// but a sound INFO list comes back as it is.
RiffPiece WithAudioLanguages(const RiffPiece& list, std::span<const int> former_numbers);

}  // namespace captoria
