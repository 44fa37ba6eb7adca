// The abort poller over the calculator's host.
#include "lang/abortpoller.h"

#include "lang/appstate.h"
#include "lang/host.h"
#include "lang/report.h"

namespace quorvel {

bool CommandAbortPoller::aborted() const { return app_.abortFlag.load(std::memory_order_relaxed); }

bool CommandAbortPoller::poll() {
    if (aborted()) return true;
    if (app_.host == nullptr || !app_.host->abortRequested()) return false;
    app_.abortFlag = true;
    ReportError(app_, u"Aborted", Error);
    return true;
}

}  // namespace quorvel
