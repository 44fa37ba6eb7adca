// Decimal multi-precision floating-point numbers.
//
// A BigNum holds sign x d1.d2d3... x 10^exponent with its mantissa in base 100:
// byte 0 is the least significant digit pair, byte length-1 the most
// significant; d1 is the tens digit of the top byte and is never 0 in a
// nonzero finite number. Infinity and NaN travel through every operation
// instead of raising errors. Nothing in this file reports a message.
#pragma once

#include <cstdint>
#include <vector>

namespace quorvel {

struct BigInt;

enum class NumKind : uint8_t { Finite = 0, Infinite = 1, NaN = 2 };

struct BigNum {
    std::vector<uint8_t> digits;   // base-100 pairs, least significant first; size >= 2
    int32_t exponent = 0;          // decimal exponent of d1
    int8_t sign = 0;               // 1, -1, or 0 for the value zero
    NumKind kind = NumKind::Finite;

    int32_t length() const { return static_cast<int32_t>(digits.size()); }
    bool isFinite() const { return kind == NumKind::Finite; }
    bool isNaN() const { return kind == NumKind::NaN; }
    bool isInfinite() const { return kind == NumKind::Infinite; }
    bool isZero() const { return kind == NumKind::Finite && sign == 0; }

    friend bool operator==(const BigNum&, const BigNum&) = default;
};

// --- Construction -----------------------------------------------------------

// Zero of `length` bytes (raised to 2).
BigNum makeZero(int32_t length);
// The canonical NaN: two zero bytes, exponent 0, sign 0, kind NaN.
BigNum makeNaN();
// Infinity of `length` bytes with the given sign (exponent 0, zero mantissa).
BigNum makeInfinity(int32_t length, int8_t sign);
// Exact value; length is max(length, digitCount/2 + 1), exponent digitCount - 1.
BigNum fromInt(int32_t length, int32_t value);
// Binary integer to length + 5 bytes, rounding half up at the last pair (via normalize).
BigNum fromInteger(const BigInt& value, int32_t length);
// Same value at `newLength` bytes (raised to 2). Dropping pairs rounds up only
// when the first dropped pair is greater than 50: exactly 50 rounds down (kept).
BigNum resized(const BigNum& a, int32_t newLength);
// target takes source's length, bytes, exponent, sign and kind.
void assign(BigNum& target, const BigNum& source);
// As assign, into `length` bytes with the rounding of resized.
void assignResized(BigNum& target, const BigNum& source, int32_t length);

// --- Arithmetic: results at max(length a, length b) ---------------------------

// a + b with one guard pair, rounded half up on the guard; never reports.
BigNum add(const BigNum& a, const BigNum& b);
// a - b with one guard pair, normalised, rounded half up; inf - inf is NaN.
BigNum subtract(const BigNum& a, const BigNum& b);
// Truncated schoolbook product with one guard pair, rounded half up (pair
// products below the guard are dropped). Zero times infinity is zero.
BigNum multiply(const BigNum& a, const BigNum& b);
// Long division; rounds up only when the final remainder pair exceeds 50.
// x / 0 is NaN; 0 / 0 is NaN with mantissa 1 and sign 1.
BigNum divide(const BigNum& a, const BigNum& b);
void addInPlace(BigNum& a, const BigNum& b);
void multiplyInPlace(BigNum& a, const BigNum& b);
void divideInPlace(BigNum& a, const BigNum& b);

// Graded comparison: the sign orders a against b. +-20 means a different sign,
// exponent or special value; +-10 a difference before the last pair or of a
// whole unit of 100 or more; a magnitude below 10 is the difference in units
// of the last pair. Both NaN compare 0.
int compare(const BigNum& a, const BigNum& b);
// Compares |a| with the one-digit integer d: -1, 0 or 1 (infinity and NaN 1,
// zero -1).
int compareWithDigit(const BigNum& a, int d);

// --- Digit-level helpers -----------------------------------------------------

// Shifts out leading zero digits feeding in the guard pair's digits; rounds up
// at the last digit on a guard of 50 or more (or a single remaining digit >= 5
// after a one-digit shift). An all-zero mantissa with a nonzero guard takes the
// guard's digits; all zero, or an exponent that would wrap, gives zero.
void normalize(BigNum& a, int guard);
// Adds a small value at a decimal position counted from the least significant
// digit (0 = last digit), with carry; a carry out of the top shifts the mantissa
// right one digit and raises the exponent (to infinity past INT32_MAX).
void addAtDigit(BigNum& a, int value, int32_t position);
// Subtracts a small value at a decimal position with borrow.
void subtractAtDigit(BigNum& a, int value, int32_t position);
// One-digit right shift of the mantissa; `incoming` becomes d1.
void shiftRightOneDigit(BigNum& a, int incoming);
// Decimal digit number `position` (0 = d1); beyond the mantissa reads 0.
int decimalDigitAt(const BigNum& a, int32_t position);
// Two-digit value starting at a decimal offset from the bottom of the
// mantissa; offset -1 gives the lowest digit x 10, out-of-range digits read 0.
int pairAt(const BigNum& a, int32_t offset);

// --- Functions ---------------------------------------------------------------

// Newton iteration, one byte wider than a, until successive iterates agree
// within 9 units of the last pair. NaN in gives NaN, a negative gives a 2-byte
// NaN, zero gives zero, +infinity gives +infinity.
BigNum squareRoot(const BigNum& a);

// --- Integer conversions -----------------------------------------------------

// Integer parts; infinity and NaN give 0.
BigInt toInteger(const BigNum& a);        // truncated toward zero
BigInt floorToInteger(const BigNum& a);
BigInt ceilToInteger(const BigNum& a);
BigInt roundToInteger(const BigNum& a);   // halves away from zero
// Clears the fraction digits in place (zero when |a| < 1).
void truncateInPlace(BigNum& a);
// The digits after the decimal point, with a's sign, normalised; infinity
// gives zero, NaN a NaN with a zero mantissa.
BigNum fractionPart(const BigNum& a);

// --- Constants (computed by the mathematics library) -------------------------
// ComputePi, ComputeE and ComputeEulerGamma live in numeric/constants.h.

}  // namespace quorvel
