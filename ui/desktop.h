// Starting the calculator as a desktop window. No Qt type appears here, so
// the command-line program can call it without knowing the toolkit.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvel::ui {

struct DesktopOptions {
    std::vector<std::string> lines;         // lines run before a screenshot
    std::optional<int> entryMode;           // entry mode of those lines; none = the saved one
    std::vector<std::string> programs;      // program files loaded at start-up
    std::optional<std::string> dataDir;     // instead of the per-user folder
    bool noState = false;                   // neither load nor save the state
    std::string screenshot;                 // PNG file to write (screenshot mode)
};

// True when a graphical display can be reached ($DISPLAY or $WAYLAND_DISPLAY).
bool DisplayAvailable();

// The window until it closes: the state is loaded before it shows and saved
// after it closes (also on SIGTERM, SIGHUP or SIGINT). Returns the exit
// status (2 when a program file cannot be read).
int RunDesktop(int argc, char** argv, const DesktopOptions& options);

// Builds the window (offscreen when there is no display), runs the lines as
// if typed, and writes the window's picture to options.screenshot. Returns 0,
// 1 when the picture cannot be written, 2 when a program file cannot be read.
int RunScreenshot(int argc, char** argv, const DesktopOptions& options);

}  // namespace quorvel::ui
