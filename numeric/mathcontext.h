// The state the mathematical functions share: the constant cache and the
// abort poller.
//
// One MathContext belongs to one calculator (the language layer keeps it in
// its application state, for the life of the process) and is passed by
// reference to every function that sums a series or needs a constant. There
// is no global instance. Not thread-safe: one computation at a time.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "numeric/abort.h"
#include "numeric/bignum.h"

namespace quorvel {

class MathContext {
public:
    // A context whose computations cannot be aborted.
    MathContext() : poller_(&never_) {}
    // A context polling `poller`, which must outlive the context's use.
    explicit MathContext(AbortPoller& poller) : poller_(&poller) {}
    MathContext(const MathContext&) = delete;
    MathContext& operator=(const MathContext&) = delete;

    // Polls through `poller` from now on (it must outlive its use here).
    void setPoller(AbortPoller& poller) { poller_ = &poller; }
    // Back to the poller that never aborts.
    void clearPoller() { poller_ = &never_; }
    AbortPoller& poller() { return *poller_; }

    // True once the running command has been stopped (the flag only).
    bool aborted() const { return poller_->aborted(); }
    // The per-iteration check of long loops: true when the loop must stop.
    bool PollAbort() { return quorvel::PollAbort(*poller_); }

    // A new copy of a constant rounded to `bytes` mantissa bytes, or nothing
    // for an unknown key. Keys: '2' ln 2, 'd' 180/pi, 'e' e, 'g' Euler's
    // gamma, 'l' ln 10, 'p' pi. A cached value is used when it holds at least
    // bytes + 2 bytes, otherwise it is computed again and kept. A value whose
    // computation was aborted is returned but not kept.
    std::optional<BigNum> GetConstant(int32_t bytes, char key);

private:
    // Index of a key in the cache, or -1.
    static int slotOf(char key);

    NeverAbort never_;
    AbortPoller* poller_;   // not owned
    std::array<std::optional<BigNum>, 6> cache_{};
};

}  // namespace quorvel
