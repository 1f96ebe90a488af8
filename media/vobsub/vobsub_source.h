// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The subtitles of a VobSub pair as XSUB packets, in the language in use, placed on the frame of the index.
#pragma once

#include <memory>
#include <string>

#include "base/finding.h"
#include "base/result.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

// A picture without an end stays until the next picture, the last picture for 5 seconds. As on a disc player, the next
// picture always ends the one before. Pictures that cannot be read, or with a time that XSUB cannot express, are left
// out and counted in `findings`. Damaged if no picture remains, NotFound without the .sub file.
Result<std::shared_ptr<SubtitleSource>> OpenVobSub(const std::string& idx_path, Findings* findings = nullptr);

}  // namespace captoria
