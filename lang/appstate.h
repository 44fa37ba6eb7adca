// AppState: the settings and run-time state of one calculator. Passed by
// reference to everything that needs it; there is no global instance.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "lang/abortpoller.h"
#include "lang/functions.h"
#include "lang/item.h"
#include "lang/variables.h"
#include "numeric/mathcontext.h"
#include "numeric/random.h"

namespace quorvel {

class Host;

struct Memory {
    int16_t number = 0;   // 1..999
    std::unique_ptr<Item> value = std::make_unique<Item>();
};

inline constexpr int32_t DefaultDigits = 80;
inline constexpr int32_t MaxDigits = 1000;

struct AppState {
    ItemList stack;                     // the main stack; head = x
    int16_t base = 10;                  // Base
    int32_t digits = DefaultDigits;     // Digits
    int32_t workingLength = 48;         // bytes of a working BigNum
    int32_t dspFlags = 0;               // DspFlags
    int16_t entryMode = 0;              // EntryMode: 0 RPN, 1 algebraic
    int16_t trigMode = 0;               // TrigMode: 1 degrees, 0 radians
    int32_t wsize = 0;                  // WSize: 0 = none
    std::array<std::u16string, 8> displayUnits{u"m", u"kg", u"s", u"mol", u"K", u"A", u"cd", u"rad"};
    int keptSeverity = 0;               // severity of the message now shown
    std::vector<Memory> memories;       // in order of creation
    VariableStore variables;            // global frame made at construction
    FunctionStore functions;            // user-defined functions, by name
    bool exitRequested = false;
    bool consoleOpen = false;
    std::atomic<bool> abortFlag{false};
    RandomState random;                 // the generator of uniform, gauss, brnd; not saved
    std::string dataFolder;
    Host* host = nullptr;               // not owned; null = nowhere to report
    CommandAbortPoller abortPoller{*this};   // asks the host; sets abortFlag, reports "Aborted"
    MathContext math{abortPoller};      // constant cache and abort polling of the mathematics

    AppState() { variables.PushFrame(); }
    AppState(const AppState&) = delete;
    AppState& operator=(const AppState&) = delete;
};

// Sets Digits as the `std` command does: 0 is ignored; above 1000 stores 1000
// and reports "Digits Limited to 1000" (severity 3); the working length
// becomes Digits / 2 + 8. A negative count is kept as given (-4 gives length
// 6); a length the formula puts below 2 bytes is held at 2.
void SetDigits(AppState& app, int32_t digits);
// The working length the settings loader derives: Digits / 2 + Digits / 100 + 8
// (at least 2). Never reports.
int32_t StartupWorkingLength(int32_t digits);

}  // namespace quorvel
