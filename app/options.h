// The quorvel command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quorvel::app {

enum class RunMode { Window, Console, Execute, Screenshot, Help, Version };

struct Options {
    RunMode mode = RunMode::Window;
    std::vector<std::string> lines;        // -e LINE, in order
    std::optional<int> entryMode;          // --rpn 0, --alg 1; none = the saved mode
    bool plain = false;                    // --plain
    std::vector<std::string> programs;     // --load FILE
    std::optional<std::string> dataDir;    // --data-dir DIR
    bool noState = false;                  // --no-state
    std::string screenshot;                // --screenshot FILE
};

// Parses argv; on bad usage returns none and writes the reason to `error`.
std::optional<Options> ParseOptions(int argc, char** argv, std::string& error);

// The text of --help.
const char* UsageText();

}  // namespace quorvel::app
