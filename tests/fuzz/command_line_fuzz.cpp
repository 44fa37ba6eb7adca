// Fuzzes typed lines: any text, in RPN and in algebraic entry, must run to
// the end without a crash, a sanitizer report or a hang, and leave a stack
// whose every item can be shown. A line that runs long is stopped the way a
// user stops it, through the host's abort request.
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "numeric/numtext.h"
#include "../testhost.h"

namespace {

using namespace quorvel;
using Clock = std::chrono::steady_clock;

// Asks for an abort once a line has run for longer than its budget.
class DeadlineHost : public test::RecordingHost {
public:
    void start() { deadline_ = Clock::now() + std::chrono::milliseconds(300); }
    bool abortRequested() override { return Clock::now() > deadline_; }

private:
    Clock::time_point deadline_{};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0 || size > 512) return 0;   // the entry field holds 512 characters
    const int entryMode = data[0] & 1;
    const std::u16string line = fromUtf8(std::string(reinterpret_cast<const char*>(data + 1), size - 1));

    AppState app;
    DeadlineHost host;
    host.confirmAnswer = false;
    app.host = &host;
    host.start();
    RunCommandLine(app, line, entryMode);
    for (const Item& item : app.stack) (void)DisplayText(app, item, app.digits, 0);
    if (app.keptSeverity < 0 || app.keptSeverity > 4) std::abort();
    return 0;
}
