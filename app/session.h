// The two ways quorvel runs on a terminal.
#pragma once

#include "app/options.h"

namespace quorvel::app {

// Runs each -e line in order, prints the stack and the messages; returns the
// exit status (1 when a line ended with an error showing).
int RunExecute(const Options& options);

// The console reader on the terminal until end of input or `exit`.
int RunConsole(const Options& options);

}  // namespace quorvel::app
