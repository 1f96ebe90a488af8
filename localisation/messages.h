// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The texts of message boxes. Each window numbers its messages; a language document may replace each text.
#pragma once

#include <string>

#include "localisation/language_document.h"

namespace captoria {

struct Message {
  const char* window;  // part of the format of language files
  int number;
  const char* text;  // English, built in
};

namespace messages {

constexpr Message kFileNotFound{"Form1", 1, "File not found"};
constexpr Message kOutsideFitted{"Form1", 2,
                                 " subtitle(s) are outside safe viewing area, but program will fit these subtitles by "
                                 "decreasing font size."};  // after a count
constexpr Message kLoadAvi{"Form1", 3, "Load a valid avi file"};
constexpr Message kLoadSubtitle{"Form1", 4, "Load a subtitle file"};
constexpr Message kNoFileInfo{"Form1", 5, "Error geting info for file"};
constexpr Message kFinished{"Form1", 8, "Creation Finished!"};
constexpr Message kBatchError{"Form1", 9, "Error in batch at line "};  // before its number
constexpr Message kUnknownStreams{"Form1", 10,
                                  "There are unknown streams at loaded avi file. You want to remove them?"};
constexpr Message kOutsideNotFitted{"Form1", 11,
                                    " subtitle(s) are outside safe viewing area and program will NOT fit these "
                                    "subtitles by decreasing font size."};  // after a count
constexpr Message kFailed{"Form1", 12, "Creation failed"};
constexpr Message kNothingToSave{"Form2", 1, "Nothing to save"};
constexpr Message kSelectToUpdate{"Form3", 1, "Select something to update"};
constexpr Message kSetSomething{"frmSelectSubs", 1, "Please set something"};
constexpr Message kSubtitlesSelected{"frmSelectSubs", 2, " subtitles selected"};  // after a count

constexpr Message kSetMuxPath{"frmAskForDivXMux", 1, "Please set a path"};
constexpr Message kSetValidMuxPath{"frmAskForDivXMux", 2, "Please set a valid path"};
constexpr Message kSetConverterPath{"frmAskForbmptoxsub", 1, "Please set a path"};
constexpr Message kSetValidConverterPath{"frmAskForbmptoxsub", 2, "Please set a valid path"};

// For translators.
constexpr Message kAll[]{
    kFileNotFound, kOutsideFitted,     kLoadAvi,          kLoadSubtitle,    kNoFileInfo,       kFinished,
    kBatchError,   kUnknownStreams,    kOutsideNotFitted, kFailed,          kNothingToSave,    kSelectToUpdate,
    kSetSomething, kSubtitlesSelected, kSetMuxPath,       kSetValidMuxPath, kSetConverterPath, kSetValidConverterPath};

}  // namespace messages

// The message in the document's language, else its English text.
std::string MessageText(const LanguageDocument& language, const Message& message);

}  // namespace captoria
