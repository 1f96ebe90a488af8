// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// Texts of a window that are not the caption of a widget, such as the words around a number. In a language file they
// are in the same element as the window's captions, for example "Form1_Design".
#pragma once

#include <string>

#include "localisation/language_document.h"

namespace captoria {

// Window and key are part of the format of language files.
struct WindowText {
  const char* window;
  const char* key;
  const char* text;  // English, built in
};

namespace window_texts {

// Titles of the dialogs for the font and the colours of a track.
constexpr WindowText kFont{"Form1", "lblFontTitle", "Font"};
constexpr WindowText kForeColor{"Form1", "lblTitle_color", "Fore color"};
constexpr WindowText kOutlineColor{"Form1", "lblTitle_outcolor", "Outline color"};
constexpr WindowText kShadowColor{"Form1", "lblTitle_shadowcolor", "Shadow color"};

// Shown in place of a picture.
constexpr WindowText kChooseSubtitle{"Form1", "lblChooseSubtitle", "Choose a subtitle to see it here."};
constexpr WindowText kOpenVideo{"Form1", "lblOpenVideo", "Open a video to see its picture here."};

// Tabs of the tracks: the first track, whose number is replaced for the others, and the tab that adds a track.
constexpr WindowText kFirstTab{"Form1", "TabStrip1_1", "Subtitle 1"};
constexpr WindowText kNewTab{"Form1", "TabStrip1_2", "<New>"};

// The list of cues: titles of the columns, and descriptions of a cue.
constexpr WindowText kNumber{"Form1", "lblNumber", "#"};
constexpr WindowText kShow{"Form1", "lblShow", "Show"};
constexpr WindowText kHide{"Form1", "lblHide", "Hide"};
constexpr WindowText kText{"Form1", "lblText", "Text"};
constexpr WindowText kTag{"Form1", "lblTag", "Font size and pos: "};    // before the cue's tag
constexpr WindowText kFitTag{"Form1", "lblFitTag", "Fit font size: "};  // the same, in the list of cues outside
constexpr WindowText kOutside{"Form1", "lblOutside", ", outside safe viewing area"};  // after the cue's number

// Long work: the current step, the time left, and the film's position in a list.
constexpr WindowText kCreateBitmaps{"Form1", "lblCreateBitmaps", "Creating Bitmaps..."};  // before their number
constexpr WindowText kWritingFilm{"Form1", "lblWritingFilm", "Writing the film"};
constexpr WindowText kTimeLeft{"Form1", "lblTimeLeft", ", %1 s left"};
constexpr WindowText kJobItem{"Form1", "lblJobItem", "%1 of %2, %3: "};  // position, number of films, file name
constexpr WindowText kStopJob{"Form1", "lblStopJob", "A film is being made. Stop it?"};
constexpr WindowText kBatchStopped{"Form1", "lblBatchStopped", "Stopped. %1 of %2 videos were converted."};

// Titles of the columns of the stream table.
constexpr WindowText kStream{"Form1", "lblStream", "Stream"};
constexpr WindowText kInformation{"Form1", "lblInformation", "Information"};

// Status bar.
constexpr WindowText kBatch{"Form1", "lblBatch", "Batch commands executed in file "};          // before a file name
constexpr WindowText kSubOut{"Form1", "lblSubOut", " subtitle(s) outside safe viewing area"};  // after a count
constexpr WindowText kSubSelected{"Form1", "lblSubSelected", " subtitle(s) selected"};         // after a count

// Options.
constexpr WindowText kReplaceBatch{"Form2", "lblReplaceBatch", "%1 already exists. Do you want to replace it?"};
constexpr WindowText kForceVideoHeightHelp{"Form2", "lblForceVideoHeightHelp",
                                           "Check this and type a big number (like 570) and 99% the subtitles will "
                                           "appear at the bottom of the movie"};
constexpr WindowText kUsePalMode1Help{"Form2", "lblUsePalMode1Help",
                                      "PALMODE1:\r\nMoves subtitles to NTSC save area for PAL->NTSC "
                                      "conversion.\r\n\r\nPALMODE2 (default):\r\nUse original subtitle position."};

// For translators.
constexpr WindowText kAll[]{
    kFont,           kForeColor,     kOutlineColor, kShadowColor, kChooseSubtitle, kOpenVideo,    kFirstTab,
    kNewTab,         kNumber,        kShow,         kHide,        kText,           kTag,          kFitTag,
    kOutside,        kCreateBitmaps, kWritingFilm,  kTimeLeft,    kJobItem,        kStopJob,      kBatchStopped,
    kStream,         kInformation,   kBatch,        kSubOut,      kSubSelected,    kReplaceBatch, kForceVideoHeightHelp,
    kUsePalMode1Help};

}  // namespace window_texts

// The section of a language file that holds the captions and texts of `window`.
inline std::string DesignSection(const std::string& window) { return window + "_Design"; }

// The text in the document's language, else in English.
std::string TextOf(const LanguageDocument& language, const WindowText& text);

}  // namespace captoria
