#include "app/options.h"

#include <string_view>

namespace quorvel::app {

std::optional<Options> ParseOptions(int argc, char** argv, std::string& error) {
    Options options;
    bool console = false;
    for (int i = 1; i < argc; ++i) {
        std::string_view arg = argv[i];
        auto value = [&](std::string& out) {
            if (i + 1 >= argc) {
                error = std::string("option ") + std::string(arg) + " needs a value";
                return false;
            }
            out = argv[++i];
            return true;
        };
        std::string text;
        if (arg == "-e" || arg == "--execute") {
            if (!value(text)) return std::nullopt;
            options.lines.push_back(text);
        } else if (arg == "--console") {
            console = true;
        } else if (arg == "--rpn") {
            options.entryMode = 0;
        } else if (arg == "--alg") {
            options.entryMode = 1;
        } else if (arg == "--plain") {
            options.plain = true;
        } else if (arg == "--load") {
            if (!value(text)) return std::nullopt;
            options.programs.push_back(text);
        } else if (arg == "--data-dir") {
            if (!value(text)) return std::nullopt;
            options.dataDir = text;
        } else if (arg == "--screenshot") {
            if (!value(options.screenshot)) return std::nullopt;
        } else if (arg == "--no-state") {
            options.noState = true;
        } else if (arg == "--help" || arg == "-h") {
            options.mode = RunMode::Help;
            return options;
        } else if (arg == "--version") {
            options.mode = RunMode::Version;
            return options;
        } else {
            error = "unknown argument: " + std::string(arg);
            return std::nullopt;
        }
    }
    if (console && !options.lines.empty()) {
        error = "--console and -e cannot be used together";
        return std::nullopt;
    }
    if (console && !options.screenshot.empty()) {
        error = "--console and --screenshot cannot be used together";
        return std::nullopt;
    }
    if (!options.screenshot.empty()) options.mode = RunMode::Screenshot;
    else if (!options.lines.empty()) options.mode = RunMode::Execute;
    else options.mode = console ? RunMode::Console : RunMode::Window;
    return options;
}

const char* UsageText() {
    return R"(Usage: quorvel [OPTIONS]
       quorvel -e LINE [-e LINE ...] [OPTIONS]
       quorvel --console [OPTIONS]
       quorvel --screenshot FILE [-e LINE ...] [OPTIONS]

Quorvel, a multi-precision RPN and algebraic calculator. Without -e,
--console or --screenshot it opens its desktop window when a display is
available ($DISPLAY or $WAYLAND_DISPLAY), else the console on the terminal.

  -e, --execute LINE  Run LINE as if typed into the entry field and Enter
                      pressed. Repeat for several lines; they run in order on
                      the same stack. Afterwards the stack is printed to
                      standard output as the stack list shows it, deepest item
                      first and x last, one item per line as "LABEL :<TAB>TEXT"
                      (labels x, y, z, then 4, 5, ...); texts over 450
                      characters continue on lines starting with a tab.
                      After each LINE a message that is showing goes to
                      standard error as "error: TEXT", "warning: TEXT",
                      "info: TEXT" or "note: TEXT".
  --console           Read command lines from the terminal (or a pipe) and
                      print each result; the default without -e when no
                      display is available.
                      Ctrl+C stops a running computation ("User Break").
                      Type exit or end the input to leave.
  --screenshot FILE   Build the desktop window (offscreen when there is no
                      display), run the -e lines in it as if typed, and
                      write the window's picture to FILE as PNG.
  --rpn, --alg        Entry mode for -e lines: RPN or algebraic (default:
                      the saved entry mode).
  --plain             Plain ASCII output ("-" for minus, "E" exponents).
  --load FILE         Load a program file of function definitions first
                      (repeatable).
  --data-dir DIR      Keep settings, stack and memories in DIR instead of
                      $XDG_DATA_HOME/Kestrovalian/Quorvel.
  --no-state          Neither load nor save settings, stack and memories.
  --help              Show this text.
  --version           Show the version.

Exit status: 0 on success, 1 when a LINE ended with an error showing,
2 for bad usage.
)";
}

}  // namespace quorvel::app
