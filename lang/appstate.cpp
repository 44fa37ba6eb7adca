// The digit-count settings of AppState and the working byte length of new
// reals derived from them.
#include "lang/appstate.h"

#include <algorithm>

#include "lang/report.h"

namespace quorvel {

namespace {

// No BigNum is shorter than two bytes; a working length below that (only a
// large negative digit count gives one) is held at two.
constexpr int32_t MinWorkingLength = 2;

int32_t atLeastMinimum(int32_t length) { return std::max(length, MinWorkingLength); }

}  // namespace

void SetDigits(AppState& app, int32_t digits) {
    if (digits == 0) return;
    if (digits > MaxDigits) {
        digits = MaxDigits;
        ReportError(app, u"Digits Limited to 1000", Warning);
    }
    // A negative count is stored as it stands and the length follows the same
    // formula (division truncates toward zero: -4 gives 6).
    app.digits = digits;
    app.workingLength = atLeastMinimum(digits / 2 + 8);
}

int32_t StartupWorkingLength(int32_t digits) {
    return atLeastMinimum(digits / 2 + digits / 100 + 8);
}

}  // namespace quorvel
