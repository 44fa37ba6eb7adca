// Fuzzes the Globals.txt reader. Every input must leave settings within their
// rules, and the settings it leaves must write and read back unchanged.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "store/settings_file.h"

namespace {

using namespace quorvel;

bool same(const AppState& a, const AppState& b) {
    return a.base == b.base && a.digits == b.digits && a.workingLength == b.workingLength &&
           a.dspFlags == b.dspFlags && a.entryMode == b.entryMode && a.trigMode == b.trigMode &&
           a.wsize == b.wsize && a.displayUnits == b.displayUnits;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    AppState app;
    std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
    ReadSettings(in, app);
    if (app.digits > MaxDigits || app.workingLength != StartupWorkingLength(app.digits)) std::abort();
    for (const std::u16string& symbol : app.displayUnits) {
        if (symbol.empty()) std::abort();
        for (char16_t unit : symbol)
            if (unit <= 32 || unit >= 128) std::abort();
    }
    std::ostringstream out;
    WriteSettings(out, app);
    AppState reread;
    std::istringstream back(out.str());
    ReadSettings(back, reread);
    if (!same(app, reread)) std::abort();
    return 0;
}
