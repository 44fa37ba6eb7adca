// `mod` and `red`: the remainder of y divided by x (x the top), floored so
// that it takes x's sign: 0 <= y mod x < x for positive x (x < r <= 0 for
// negative x), and the reduction -x/2 <= y red x < x/2 (mirrored for negative
// x). Both need equal units in all eight exponents and keep them.
//
// Integers are exact (and reduced to the word size). Reals are exact too: the
// remainder of two finite decimals is itself a finite decimal, worked out at a
// length wide enough to hold the whole quotient. Choices where nothing else
// decides: a zero divisor, an infinite or NaN operand, or a quotient of more
// than MaxQuotientDigits digits gives NaN (a Real), since no remainder can be
// told from such operands at a reasonable cost.
#include <algorithm>
#include <cstdlib>

#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

constexpr int64_t MaxQuotientDigits = 4000;

enum class Remainder { Mod, Red };

bool isNegative(const BigNum& a) { return a.sign < 0; }

BigNum magnitude(BigNum a) {
    if (a.sign < 0) a.sign = 1;
    return a;
}

// Floored remainder of two integers; x is not zero.
BigInt integerMod(const BigInt& y, const BigInt& x) {
    BigInt r = divideWithRemainder(y, x)->remainder;
    if (!r.isZero() && r.sign != x.sign) r = add(r, x);
    return r;
}

// Moves a floored remainder r of x into the reduced range: r - x when 2r >= x
// (x positive) or 2r <= x (x negative).
BigInt integerRed(BigInt r, const BigInt& x) {
    const int order = compare(add(r, r), x);
    if (x.sign > 0 ? order >= 0 : order <= 0) r = subtract(r, x);
    return r;
}

// The exact floored remainder (or reduction) of two finite reals, x nonzero,
// at the larger of their lengths; NaN when the quotient is too long.
BigNum realRemainder(const BigNum& y, const BigNum& x, Remainder kind) {
    const int32_t length = std::max(y.length(), x.length());
    if (y.isZero()) return makeZero(length);
    const int64_t quotientDigits = std::max<int64_t>(int64_t{y.exponent} - x.exponent + 1, 0);
    if (quotientDigits > MaxQuotientDigits) return makeNaN();

    // Wide enough that y, the integer quotient times x, and their difference
    // are all exact.
    const int32_t wide = length + static_cast<int32_t>(quotientDigits / 2) + 3;
    const BigNum yw = resized(y, wide);
    const BigNum xw = resized(x, wide);
    // The quotient only has to be right to within one; the corrections below
    // put the remainder into range.
    const int32_t narrow = static_cast<int32_t>(quotientDigits / 2) + 4;
    BigNum q = divide(resized(y, narrow), resized(x, narrow));
    truncateInPlace(q);
    BigNum r = subtract(yw, multiply(resized(q, wide), xw));
    for (int step = 0; step < 4; ++step) {
        if (!r.isZero() && isNegative(r) != isNegative(x)) {
            r = add(r, xw);
        } else if (compare(magnitude(r), magnitude(xw)) >= 0) {
            r = subtract(r, xw);
        } else {
            break;
        }
    }
    if (kind == Remainder::Red) {
        const int order = compare(add(r, r), xw);
        if (isNegative(x) ? order <= 0 : order >= 0) r = subtract(r, xw);
    }
    return resized(r, length);
}

Outcome remainder(const AppState& app, const Item& y, const Item& x, Remainder kind) {
    if (!IsIntegerOrReal(y) || !IsIntegerOrReal(x)) return Refusal{InvalidDataType};
    if (y.units != x.units) return Refusal{IncompatibleUnits};
    if (y.type == ItemType::Integer && x.type == ItemType::Integer && !x.asInteger().isZero()) {
        BigInt r = integerMod(y.asInteger(), x.asInteger());
        if (kind == Remainder::Red) r = integerRed(std::move(r), x.asInteger());
        return IntegerResult(app, std::move(r), x.units);
    }
    const BigNum a = RealOf(app, y);
    const BigNum b = RealOf(app, x);
    if (!a.isFinite() || !b.isFinite() || b.isZero()) return Item::real(makeNaN(), x.units);
    return Item::real(realRemainder(a, b, kind), x.units);
}

}  // namespace

void opMod(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) {
        return remainder(a, y, x, Remainder::Mod);
    });
}

void opRed(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) {
        return remainder(a, y, x, Remainder::Red);
    });
}

}  // namespace quorvel
