// Globals.txt: the saved settings as 8-bit text lines "Key value".
#pragma once

#include <istream>
#include <ostream>

#include "lang/appstate.h"

namespace quorvel {

// Writes Base, Digits, DspFlags, EntryMode, TrigMode, WSize and one Unit line
// per dimension, in that order, each ending in "\n". A display unit that has
// no plain ASCII form is left out.
void WriteSettings(std::ostream& out, const AppState& app);
// Reads settings lines (lines end in "\n" or "\r\n"; at most 127 characters
// make one line, the rest of a longer one is read as the next line) into
// `app`: exact keys with case, atoi values, 16-bit keys truncated, Unit
// symbols looked up as base units; malformed and unknown lines are skipped.
// Then Digits is held at 1000 and the working length is set from it.
void ReadSettings(std::istream& in, AppState& app);

}  // namespace quorvel
