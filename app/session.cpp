#include "app/session.h"

#include <iostream>

#include "app/terminal.h"
#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "lang/program.h"
#include "lang/report.h"
#include "numeric/numtext.h"
#include "store/persistence.h"

namespace quorvel::app {
namespace {

const char* severityWord(int severity) {
    switch (severity) {
    case Error: return "error";
    case Warning: return "warning";
    case Information: return "info";
    default: return "note";
    }
}

// Loads the program files named with --load; false when one cannot be read.
bool loadPrograms(AppState& app, const Options& options) {
    for (const std::string& path : options.programs) {
        if (!LoadProgramFile(app, path)) {
            std::cerr << "quorvel: cannot read program file " << path << '\n';
            return false;
        }
    }
    return true;
}

// Reads the saved settings, stack and memories unless --no-state; --data-dir
// names the folder instead of the per-user one.
void loadState(AppState& app, const Options& options) {
    if (options.noState) return;
    if (options.dataDir) app.dataFolder = *options.dataDir;
    LoadState(app);
}

// Writes them back at exit unless --no-state.
void saveState(const AppState& app, const Options& options) {
    if (!options.noState) SaveState(app);
}

}  // namespace

int RunExecute(const Options& options) {
    AppState app;
    TerminalHost host(false);
    app.host = &host;
    InstallInterruptHandler();
    loadState(app, options);
    if (!loadPrograms(app, options)) return 2;

    const int entryMode = options.entryMode.value_or(app.entryMode);
    bool failed = false;
    for (const std::string& line : options.lines) {
        RunCommandLine(app, fromUtf8(line), entryMode);
        if (const auto& shown = host.shown()) {
            std::cerr << severityWord(shown->second) << ": " << toUtf8(shown->first) << '\n';
            failed = failed || shown->second >= Error;
        }
        if (app.exitRequested) break;
    }
    for (const std::u16string& text : StackListLines(app, options.plain ? 0x80 : 0, false))
        std::cout << toUtf8(text) << '\n';
    saveState(app, options);
    return failed ? 1 : 0;
}

int RunConsole(const Options& options) {
    AppState app;
    TerminalHost host(true);
    app.host = &host;
    app.consoleOpen = true;
    InstallInterruptHandler();
    loadState(app, options);
    if (!loadPrograms(app, options)) return 2;

    std::cout << "Quorvel Console\n";
    while (app.consoleOpen && !app.exitRequested) {
        std::cout << ">";
        std::cout.flush();
        bool interrupted = false;
        auto line = ReadTerminalLine(interrupted);
        if (interrupted) {
            std::cout << '\n';
            app.keptSeverity = 0;
            ReportError(app, u"User Break", Error);
            continue;
        }
        if (!line) break;
        app.abortFlag = false;   // a stop applies to the line it interrupted only
        auto result = EvaluateText(app, fromUtf8(*line));
        if (result) {
            if (auto text = DisplayText(app, *result, app.digits, 0x80)) host.consoleWrite(*text);
        }
    }
    saveState(app, options);
    return 0;
}

}  // namespace quorvel::app
