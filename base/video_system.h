// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The television systems. Subtitles are placed on the frame of one of them, whatever the size of the video.
#pragma once

#include <string_view>

namespace captoria {

enum class VideoSystem { Ntsc, Pal };

// As list files and users write it.
constexpr std::string_view NameOf(VideoSystem system) { return system == VideoSystem::Pal ? "PAL" : "NTSC"; }

// Of the frame, in pixels.
constexpr int HeightOf(VideoSystem system) { return system == VideoSystem::Pal ? 576 : 480; }

}  // namespace captoria
