// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// What the program remembers apart from its tracks' styles. Every field has the name of its key; the key table
// (settings/key_table.cpp) gives its meaning and its default.
#pragma once

#include <array>
#include <string>

#include "settings/track_style.h"

namespace captoria {

// A player offers eight subtitle streams of a film, so at most eight tracks can be open and are remembered.
constexpr int kMostTracks = 8;

struct Settings {
  std::string Lang;
  bool UseBmpToXSub = false;
  std::string DivXMuxPath;
  std::string bmpToxSubPath;
  std::array<bool, kMostTracks> right_to_left{};  // by track index, also of tracks that are not open
  std::string BatchToRun;
  int BackColor = 0;  // red + 256 x green + 65536 x blue
  bool Preview = false;
  bool deleteTemp = false;
  bool deleteBmp = false;
  bool deleteOther = false;
  bool ReplaceDivX = false;
  int FrameForPreview = 0;
  int ForceVideoHeight = 0;  // pixels; 0 is the video's own
  bool UsePalMode1 = false;
  int LoadSubManyTimes = 0;  // at least 1
  bool UnLoadSrt = false;
  bool LoadSrtAuto = false;
  bool LoadSrtAutoFolder = false;
  std::string LoadSrtAutoFolderText;
  bool LoadAviAuto = false;
  bool LoadAviAutoFolder = false;
  std::string LoadAviAutoFolderText;
  bool ShowDos = false;
  bool ShowDosPause = false;
  bool WaitToEndDos = false;
  int ShowDosCombo = 0;
  bool RunDivX = false;
  bool AutoShowAviInfo = false;
  float MiddlePos = 0;  // twips, as are the four below
  Font list_font;       // of the current track's cue lists
  float MainX = 0;
  float MainY = 0;
  float MainWidth = 0;
  float MainHeight = 0;
  bool ShowWelcome = false;
};

// The width of the subtitle bitmaps in pixels.
constexpr int BitmapWidth(const Settings& settings) { return settings.UseBmpToXSub ? 720 : 640; }

}  // namespace captoria
