// Applying units, scaling by unit factors, conversion to the display units
// with the unit text, and the display-unit report lines.
#include "units/unitconvert.h"

#include <string>

#include "lang/appstate.h"
#include "lang/evaluator.h"
#include "lang/ops_values.h"
#include "numeric/numtext.h"
#include "units/unitrules.h"

namespace quorvel {

namespace {

// Bytes of extra width for raising a factor to a power.
constexpr int32_t PowerGuard = 2;

constexpr std::u16string_view ProductSign = u"\u00B7";   // "·"

constexpr std::array<std::u16string_view, DimensionCount> DimensionLabels{
    u"Length", u"Mass", u"Time", u"Amount", u"Temperature", u"Current", u"Luminous Int.", u"Angle"};

// x^n by repeated squaring at x's length plus a guard, rounded back.
BigNum integerPower(const BigNum& x, uint32_t n) {
    const int32_t length = x.length();
    BigNum base = resized(x, length + PowerGuard);
    BigNum result = fromInt(length + PowerGuard, 1);
    while (n != 0) {
        if ((n & 1u) != 0) result = multiply(result, base);
        n >>= 1;
        if (n != 0) base = multiply(base, base);
    }
    return resized(result, length);
}

// The factor a unit's exponent asks for: factor^|e|, inverted for negative e.
BigNum factorPower(const BigNum& factor, int32_t exponent) {
    if (exponent == 1) return factor;
    const uint32_t magnitude = exponent < 0 ? 0u - static_cast<uint32_t>(exponent) : static_cast<uint32_t>(exponent);
    BigNum power = integerPower(factor, magnitude);
    if (exponent < 0) power = divide(fromInt(power.length(), 1), power);
    return power;
}

// The dimension with the greatest non-zero exponent, the lower index on a
// tie; -1 when all are zero.
int32_t nextDimension(const UnitVector& units) {
    int32_t chosen = -1;
    for (int32_t d = 0; d < DimensionCount; ++d) {
        if (units[d] == 0) continue;
        if (chosen < 0 || units[d] > units[chosen]) chosen = d;
    }
    return chosen;
}

std::u16string asciiText(std::string_view text) { return std::u16string(text.begin(), text.end()); }

}  // namespace

std::optional<Item> EvaluateFactor(AppState& app, std::u16string_view text) { return EvaluateText(app, text); }

void ScaleItem(const AppState& app, Item& item, const Item& factor, int32_t exponent) {
    if (factor.type != ItemType::Integer && factor.type != ItemType::Real) return;
    const BigNum f = factorPower(RealOf(app, factor), exponent);
    switch (item.type) {
        case ItemType::Integer:
        case ItemType::Real:
            item = Item::real(multiply(RealOf(app, item), f), item.units);
            break;
        case ItemType::Complex: {
            const ComplexNum& z = item.asComplex();
            item = Item::complex(ComplexNum{multiply(z.re, f), multiply(z.im, f)}, item.units);
            break;
        }
        default:
            break;   // nothing to scale
    }
}

Item ApplyUnitFactors(AppState& app, const Item& value, const std::vector<UnitFactor>& factors) {
    Item result = value.duplicate();
    for (const UnitFactor& factor : factors) {
        if (factor.base != nullptr) {
            UnitVector added{};
            added[factor.base->dimension] = factor.exponent;
            result.units = AddExponents(result.units, added);
        } else {
            // A derived unit's exponents count once, whatever the factor's
            // exponent and sign: "kHz^2" is still Time -1.
            result.units = AddExponents(result.units, factor.derived->units);
        }
        if (const char16_t* text = factor.factorText()) {
            if (auto scale = EvaluateFactor(app, text)) ScaleItem(app, result, *scale, factor.exponent);
        }
    }
    return result;
}

std::optional<std::u16string> ToDisplayUnits(AppState& app, Item& item, bool wantText, int32_t flags) {
    if (item.type == ItemType::String || item.type == ItemType::VariableRef) return std::nullopt;
    const bool plain = (flags & fmt::PlainText) != 0;
    std::u16string text;
    int32_t sign = 1;
    bool positiveWritten = false;

    for (int32_t d = nextDimension(item.units); d >= 0; d = nextDimension(item.units)) {
        const int32_t e = item.units[d];
        item.units[d] = 0;
        const UnitDef* row = FindDisplayUnit(d, app.displayUnits[d]);
        if (row == nullptr) row = &SiBaseUnit(d);
        if (row->factor != nullptr) {
            if (auto scale = EvaluateFactor(app, row->factor))
                ScaleItem(app, item, *scale, static_cast<int32_t>(0u - static_cast<uint32_t>(e)));
        }
        if (!wantText) continue;

        if (!text.empty()) {
            if (!positiveWritten) {
                text += plain ? u"*" : ProductSign;
            } else if (int64_t{sign} * e < 1) {
                text += u'/';
                sign = -1;   // every later exponent is written negated
            } else {
                text += plain ? u"*" : ProductSign;
            }
        }
        if (e >= 1) positiveWritten = true;
        text += plain ? row->symbol : row->display;
        const int64_t shown = int64_t{sign} * e;
        if (shown != 1) {
            std::u16string digits = asciiText(std::to_string(static_cast<int32_t>(shown)));
            if (plain) {
                text += u'^';
            } else {
                ToSuperscript(digits);
            }
            text += digits;
        }
    }
    if (!wantText || text.empty()) return std::nullopt;
    if (text.size() > MaxUnitTextLength) text.resize(MaxUnitTextLength);
    return text;
}

AppState& EvaluationStateFor(const AppState& app) {
    // One per thread: the stack list, the console and an evaluation thread
    // may show values at the same time.
    thread_local AppState state;
    state.stack.freeAll();
    state.keptSeverity = 0;
    state.abortFlag = false;
    state.base = app.base;
    state.digits = app.digits;
    state.workingLength = app.workingLength;
    state.dspFlags = app.dspFlags;
    state.entryMode = app.entryMode;
    state.trigMode = app.trigMode;
    state.wsize = app.wsize;
    state.displayUnits = app.displayUnits;
    return state;
}

std::u16string_view DimensionLabel(int32_t dimension) {
    return dimension >= 0 && dimension < DimensionCount ? DimensionLabels[dimension] : std::u16string_view{};
}

std::array<const UnitDef*, DimensionCount> DisplayUnitRows(const AppState& app) {
    std::array<const UnitDef*, DimensionCount> rows{};
    for (int32_t d = 0; d < DimensionCount; ++d) rows[d] = FindUnit(app.displayUnits[d]);
    return rows;
}

std::array<std::u16string, DimensionCount> DisplayUnitReport(const std::array<const UnitDef*, DimensionCount>& rows) {
    std::array<std::u16string, DimensionCount> lines;
    for (int32_t d = 0; d < DimensionCount; ++d) {
        const UnitDef* row = rows[d];
        std::u16string line(DimensionLabels[d]);
        line += u" = ";
        if (row != nullptr) line += row->display;
        line += u" (";
        if (row != nullptr) line += row->name;
        line += u")";
        if (line.size() > MaxReportLineLength) line.resize(MaxReportLineLength);
        lines[d] = std::move(line);
    }
    return lines;
}

}  // namespace quorvel
