// Abort pollers for tests: one that counts the polls and stops after a
// chosen number of them.
#pragma once

#include <cstdint>

#include "numeric/abort.h"

namespace quorvel::test {

class CountingPoller : public AbortPoller {
public:
    // Sets the flag at the `stopAt`-th poll (0 = never); after reset() it
    // polls on without stopping again.
    explicit CountingPoller(int64_t stopAt = 0) : stopAt_(stopAt) {}

    bool aborted() const override { return flag_; }
    bool poll() override {
        ++polls;
        if (stopAt_ != 0 && polls == stopAt_) flag_ = true;
        return flag_;
    }
    // Clears the flag, as the owner does before a new command.
    void reset() { flag_ = false; }

    int64_t polls = 0;

private:
    int64_t stopAt_;
    bool flag_ = false;
};

}  // namespace quorvel::test
