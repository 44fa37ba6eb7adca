// The common start of quorvel and quorvel-desktop: the command line parsed,
// the mode run, and the hand-over to quorvel-desktop for the window.
#include "app/launcher.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <unistd.h>

#include "app/session.h"

namespace quorvel::app {
namespace {

constexpr const char* DesktopProgram = "quorvel-desktop";

bool environmentSet(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

// The directory of the running program, from /proc/self/exe, else from
// argv[0] when it names a path; empty when neither tells.
std::string programDirectory(const char* argv0) {
    std::string path(4096, '\0');
    const ssize_t got = ::readlink("/proc/self/exe", path.data(), path.size() - 1);
    if (got > 0) {
        path.resize(static_cast<std::size_t>(got));
    } else {
        path = argv0 != nullptr ? argv0 : "";
    }
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

}  // namespace

bool DisplayReachable() { return environmentSet("DISPLAY") || environmentSet("WAYLAND_DISPLAY"); }

int ExecDesktopProgram(int argc, char** argv, const Options&) {
    (void)argc;
    const std::string directory = programDirectory(argv[0]);
    if (!directory.empty()) {
        const std::string path = directory + "/" + DesktopProgram;
        ::execv(path.c_str(), argv);
    }
    ::execvp(DesktopProgram, argv);
    std::cerr << "quorvel: cannot start " << DesktopProgram << ": " << std::strerror(errno) << '\n';
    return 2;
}

int RunProgram(int argc, char** argv, WindowStarter window) {
    std::string error;
    auto options = ParseOptions(argc, argv, error);
    if (!options) {
        std::cerr << "quorvel: " << error << "\nTry 'quorvel --help'.\n";
        return 2;
    }
    switch (options->mode) {
    case RunMode::Help:
        std::cout << UsageText();
        return 0;
    case RunMode::Version:
        std::cout << "Quorvel v2.1.8\n";
        return 0;
    case RunMode::Execute:
        return RunExecute(*options);
    case RunMode::Console:
        return RunConsole(*options);
    case RunMode::Window:
        if (!DisplayReachable()) return RunConsole(*options);
        return window(argc, argv, *options);
    case RunMode::Screenshot:
        return window(argc, argv, *options);
    }
    return 0;
}

}  // namespace quorvel::app
