// ReportError: keeps the first error of an action visible in the message
// strip, and sends console-thread messages to the console instead.
#include "lang/report.h"

#include "lang/appstate.h"
#include "lang/host.h"

namespace quorvel {

namespace {

// Informational and confirmation messages replace anything not more severe;
// warnings and errors only replace something less severe, so a second error
// of the same severity leaves the first one showing.
bool qualifies(int severity, int kept) {
    if (severity == Confirmation || severity == Information) return severity >= kept;
    return severity > kept;
}

}  // namespace

void ReportError(AppState& app, std::u16string_view message, int severity) {
    Host* host = app.host;
    if (host == nullptr) return;   // no status area: nothing to show or keep

    if (message.empty() || severity <= Clear) {
        if (app.keptSeverity > severity) {
            app.keptSeverity = Clear;
            host->clearMessage();
        }
        return;
    }

    if (!qualifies(severity, app.keptSeverity)) return;

    if (severity >= Information && host->onConsoleThread()) {
        host->consoleWrite(message);
    } else {
        host->showMessage(message, severity);
    }
    app.keptSeverity = severity;
}

}  // namespace quorvel
