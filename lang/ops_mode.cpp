// Mode commands: the number base (`base`, `bin`, `oct`, `dec`, `hex`), the
// display format and digit count (`std`, `fix`, `sci`) and the word size
// (`wsize`). Each operand is an Integer without units, consumed on success;
// nothing is pushed.
#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

// Format bits kept when the display format changes: everything but Fixed
// (0x20), Scientific (0x40) and the 0x80 bit.
constexpr int32_t KeptFormatBits = 0x1F;
constexpr int32_t FixedFormat = 0x20;
constexpr int32_t ScientificFormat = 0x40;

// The refusal for an operand that is not an Integer without units, if any.
std::optional<Refusal> modeOperandRefusal(const Item& x) {
    if (x.type != ItemType::Integer) return Refusal{InvalidDataType};
    if (hasUnits(x.units)) return Refusal{InvalidUnits};
    return std::nullopt;
}

// The operand as a signed 32-bit value; none when it does not fit (more than
// two limbs, or an upper limb above 32767).
std::optional<int32_t> smallValue(const Item& x) {
    int32_t value = 0;
    if (!BigIntToInt32(x.asInteger(), value)) return std::nullopt;
    return value;
}

void setBase(AppState& app, int16_t base) { app.base = base; }

// `fix` and `sci`: 0 <= n <= 2 * working length - 12 digits, else "Digits
// Outside Range"; Digits becomes n, the working length stays.
void setFormat(AppState& app, ItemList& list, int32_t formatBit) {
    UnaryHandler(app, list, [formatBit](AppState& a, const Item& x) -> Outcome {
        if (auto refusal = modeOperandRefusal(x)) return *refusal;
        const auto n = smallValue(x);
        if (!n || *n < 0 || *n > 2 * a.workingLength - 12) return Refusal{u"Digits Outside Range"};
        a.digits = *n;
        a.dspFlags = (a.dspFlags & KeptFormatBits) | formatBit;
        return NoResult{};
    });
}

}  // namespace

// `base`: 2..36, else "Base Outside Range" (a value too large to read counts
// as outside).
void opBase(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refusal = modeOperandRefusal(x)) return *refusal;
        const int32_t base = smallValue(x).value_or(0);
        if (base < 2 || base > 36) return Refusal{u"Base Outside Range"};
        setBase(a, static_cast<int16_t>(base));
        return NoResult{};
    });
}

void opBin(AppState& app, ItemList&) { setBase(app, 2); }
void opOct(AppState& app, ItemList&) { setBase(app, 8); }
void opDec(AppState& app, ItemList&) { setBase(app, 10); }
void opHex(AppState& app, ItemList&) { setBase(app, 16); }

// `std`: back to the Standard format as soon as the operand is accepted, even
// when n is then ignored (0, or too large to read). Otherwise Digits becomes
// n (at most 1000, with a warning) and the working length n / 2 + 8; a
// negative n is stored as it stands.
void opStd(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refusal = modeOperandRefusal(x)) return *refusal;
        a.dspFlags &= KeptFormatBits;
        if (const auto n = smallValue(x); n && *n != 0) SetDigits(a, *n);
        return NoResult{};
    });
}

void opFix(AppState& app, ItemList& list) { setFormat(app, list, FixedFormat); }
void opSci(AppState& app, ItemList& list) { setFormat(app, list, ScientificFormat); }

// `wsize`: the word size in bits; a value too large to read stores 0 (no word
// size) and a negative one is stored as it is.
void opWsize(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refusal = modeOperandRefusal(x)) return *refusal;
        a.wsize = smallValue(x).value_or(0);
        return NoResult{};
    });
}

}  // namespace quorvel
