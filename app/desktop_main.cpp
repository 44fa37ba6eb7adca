// quorvel-desktop: the quorvel command line with the desktop window linked in;
// quorvel starts it for the window and screenshot modes.
#include "app/launcher.h"
#include "ui/desktop.h"

namespace {

int startWindow(int argc, char** argv, const quorvel::app::Options& options) {
    const quorvel::ui::DesktopOptions desktop{options.lines,   options.entryMode, options.programs,
                                              options.dataDir, options.noState,   options.screenshot};
    if (options.mode == quorvel::app::RunMode::Screenshot) return quorvel::ui::RunScreenshot(argc, argv, desktop);
    return quorvel::ui::RunDesktop(argc, argv, desktop);
}

}  // namespace

int main(int argc, char** argv) { return quorvel::app::RunProgram(argc, argv, startWindow); }
