// Conversion between numbers and text.
//
// Parsing turns UTF-16 number text into BigNum or BigInt; formatting writes the
// Standard, Fixed and Scientific display forms. Nothing here reports.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "numeric/bignum.h"
#include "numeric/bigint.h"

namespace quorvel {

// Formatting flag bits (the display flags of the application state).
namespace fmt {
inline constexpr int32_t PlusSign = 0x01;    // '+' before positive numbers
inline constexpr int32_t ZeroPad = 0x02;     // integer padding with zeros (no effect)
inline constexpr int32_t Grouping = 0x04;    // ',' every third integer digit
inline constexpr int32_t Brackets = 0x08;    // '[' ... ']' in Scientific (only ']' in exponent form)
inline constexpr int32_t BothParts = 0x10;   // complex formatter: show both parts
inline constexpr int32_t Fixed = 0x20;
inline constexpr int32_t Scientific = 0x40;
inline constexpr int32_t PlainText = 0x80;   // ASCII: '-', 'E', "inf"
}  // namespace fmt

// Decimal text to a BigNum of `limbs` bytes (2*limbs significant digits kept).
// Signs may repeat; the one character after the kept digits rounds half up; an
// integer part longer than the capacity gets too small an exponent, and an
// exponent part after more digits than fit is not read (both kept). Exponent
// digits wrap in 32 bits. Text with no significant digit gives zero.
BigNum ParseReal(int32_t limbs, std::u16string_view text);

// Text in `base` (2 upward) to a BigInt. Digits: c-'0' when that is at most 9,
// else c-55 (so only upper-case letters are digits ten and up, and the seven
// characters between '9' and 'A' read as 3..9); stops at the first non-digit.
BigInt ParseInteger(std::u16string_view text, int16_t base);

// Display text of a real in Standard (digits = significant digits, 0 = all),
// Fixed (digits = decimals) or Scientific (digits after the point) mode; Fixed
// wins over Scientific. Rounds half up on one digit; '+' (flag PlusSign) only
// for values of sign +1; a positive infinity always gets '+' in Fixed. NaN is "NaN".
std::u16string FormatReal(const BigNum& x, int32_t digits, int32_t flags);

// Display text of an integer in `base` (below 2 counts as 10); a leading letter
// digit gets a '0' in front (255 in base 16 is "0FF"); '+' under PlusSign for
// every non-negative value, zero included.
std::u16string FormatInteger(const BigInt& n, int16_t base, int32_t flags);

// Rewrites ASCII digits and signs as Unicode superscripts, in place.
void ToSuperscript(std::u16string& text);

// Stores a double and returns true, or returns false when the exponent exceeds
// 307 (or for an infinity); below 10^-308 the result is 0.0 with the sign; NaN
// gives a NaN.
bool BigNumToDouble(const BigNum& x, double& out);

// UTF-8 <-> UTF-16 at the edges of the system; invalid input becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
std::u16string fromUtf8(std::string_view text);

}  // namespace quorvel
