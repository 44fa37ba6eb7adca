// The abort poller of the running command: long computations ask it, once
// per step, whether the user wants them stopped.
#pragma once

#include "numeric/abort.h"

namespace quorvel {

struct AppState;

// Polls the calculator's host for a stop request (Ctrl+C in the terminal,
// Escape in the window). On one it sets AppState::abortFlag and reports
// "Aborted" (severity 4); the flag then stays set until the next command
// clears it, so every loop of the command stops at its next poll.
class CommandAbortPoller final : public AbortPoller {
public:
    // `app` must outlive the poller (AppState owns it).
    explicit CommandAbortPoller(AppState& app) : app_(app) {}

    // The abort flag of the calculator.
    bool aborted() const override;
    // One look at the host: sets the flag and reports on a request.
    bool poll() override;

private:
    AppState& app_;
};

}  // namespace quorvel
