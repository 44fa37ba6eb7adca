// The per-user data folder and the three files that keep the settings, the
// stack and the memories from one run to the next.
#pragma once

#include <string>

#include "lang/appstate.h"

namespace quorvel {

inline constexpr const char* SettingsFileName = "Globals.txt";
inline constexpr const char* StackFileName = "Stack.bin";
inline constexpr const char* MemoryFileName = "Memory.bin";

// The per-user folder: $XDG_DATA_HOME/Kestrovalian/Quorvel when that variable
// holds an absolute path, else $HOME/.local/share/Kestrovalian/Quorvel, else
// (on systems without HOME) $APPDATA/Kestrovalian/Quorvel; empty when none is set.
std::string DefaultDataFolder();

// Fills `app` (which holds its defaults) from the data folder: app.dataFolder,
// or DefaultDataFolder() when that is empty (and is then stored there). The
// folder is created when missing. Reads Globals.txt, then Stack.bin, then
// Memory.bin; a file that cannot be opened ends the loading. Never reports.
void LoadState(AppState& app);

// Writes Globals.txt, Stack.bin and Memory.bin, in that order, into
// app.dataFolder, each replacing the old file whole; a file that cannot be
// written ends the saving. Nothing happens when app.dataFolder is empty.
// Never reports.
void SaveState(const AppState& app);

}  // namespace quorvel
