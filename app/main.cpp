// quorvel: the desktop window, the console on a terminal, or one command
// line at a time.
#include <cstdio>
#include <iostream>

#include "app/options.h"
#include "app/session.h"
#include "ui/desktop.h"

namespace {

quorvel::ui::DesktopOptions desktopOptions(const quorvel::app::Options& options) {
    return {options.lines, options.entryMode, options.programs, options.dataDir, options.noState, options.screenshot};
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quorvel::app;
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
        if (!quorvel::ui::DisplayAvailable()) return RunConsole(*options);
        return quorvel::ui::RunDesktop(argc, argv, desktopOptions(*options));
    case RunMode::Screenshot:
        return quorvel::ui::RunScreenshot(argc, argv, desktopOptions(*options));
    }
    return 0;
}
