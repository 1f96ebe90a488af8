// SPDX-FileCopyrightText: Captoria contributors
// SPDX-License-Identifier: MIT

// The terminal that a program was started from, if any.
#pragma once

namespace captoria {

// Whether a person can type an answer: standard input is a terminal.
bool InputIsTerminal();

// Waits until a line is typed. False if an Interrupt came first; one has to live.
bool AwaitLine();

// Makes writing to a reader that went away, as in "program | head", fail instead of ending the process.
void OutliveReaders();

}  // namespace captoria
