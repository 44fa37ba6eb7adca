// The common start of the two programs: `quorvel`, which has no toolkit
// linked so that -e and --console start at once, and `quorvel-desktop`, the
// same command line with the desktop window linked in.
#pragma once

#include "app/options.h"

namespace quorvel::app {

// Starts the window (Window and Screenshot modes): in quorvel-desktop the
// window itself, in quorvel the quorvel-desktop program in its place.
using WindowStarter = int (*)(int argc, char** argv, const Options& options);

// Parses the command line and runs the mode it asks for; `window` is called
// for the window and screenshot modes (a Window without a display runs the
// console instead). Returns the exit status.
int RunProgram(int argc, char** argv, WindowStarter window);

// True when a graphical display can be reached ($DISPLAY or $WAYLAND_DISPLAY).
bool DisplayReachable();

// Replaces this process by quorvel-desktop from the directory of the running
// program (else found on PATH), with the same arguments. Returns only when
// that fails, with the exit status 2 after a message on standard error.
int ExecDesktopProgram(int argc, char** argv, const Options& options);

}  // namespace quorvel::app
