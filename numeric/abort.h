// Stopping long computations on the user's request.
//
// The numeric library knows nothing of windows, consoles or messages, so it
// asks an AbortPoller. The owner of the running command (the language layer)
// implements one over its host: `poll` looks for the user's stop request,
// sets its abort flag and reports "Aborted"; `aborted` only reads that flag.
// The flag is cleared by the owner before each new command, never here.
//
// A poller is reached through the MathContext of the computation
// (numeric/mathcontext.h), which holds a non-owning reference to it; the
// poller must outlive every computation that uses it. Nothing here is global.
#pragma once

namespace quorvel {

class AbortPoller {
public:
    virtual ~AbortPoller() = default;

    // True once the running command has been stopped; only reads the flag.
    virtual bool aborted() const = 0;
    // Looks once for a stop request; on one, sets the flag and reports
    // "Aborted". Returns the flag.
    virtual bool poll() = 0;
};

// A poller that never stops anything: for computations nobody can interrupt
// (tests, start-up work, tools).
class NeverAbort final : public AbortPoller {
public:
    bool aborted() const override { return false; }
    bool poll() override { return false; }
};

// The check of every long loop, once per iteration: the flag first, then one
// poll. True when the loop must stop now and return its partial result.
inline bool PollAbort(AbortPoller& poller) { return poller.aborted() || poller.poll(); }

}  // namespace quorvel
