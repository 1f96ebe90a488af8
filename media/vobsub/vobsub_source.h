// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The subtitles of a VobSub pair as XSUB packets: those of the language in use, placed on the frame of the index.
#pragma once

#include <memory>
#include <string>

#include "base/finding.h"
#include "base/result.h"
#include "media/xsub/subtitle_source.h"

namespace captoria {

// A picture without an end stays until the next one, the last for 5 seconds; no picture stays longer than until the
// next one, as on a disc player. Pictures that cannot be read, or are to be shown at a time XSUB cannot tell, are left
// out and counted in `findings`; Damaged when none is left, NotFound without the .sub file.
Result<std::shared_ptr<SubtitleSource>> OpenVobSub(const std::string& idx_path, Findings* findings = nullptr);

}  // namespace captoria
