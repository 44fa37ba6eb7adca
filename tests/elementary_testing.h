// Checking computed values against reference texts the way the display shows
// them: rounded half up to a number of significant digits.
#pragma once

#include <cmath>
#include <ostream>
#include <cstdint>
#include <string>
#include <string_view>

#include "bignum_testing.h"
#include "numeric/bignum.h"

namespace quorvel::test {

// A finite nonzero value reduced to its first `digits` significant digits,
// rounded half up on the next digit (as the display rounds), and its
// exponent; zero is the empty digit string.
struct RoundedDigits {
    std::string digits;
    int64_t exponent = 0;
    int sign = 0;
    friend bool operator==(const RoundedDigits&, const RoundedDigits&) = default;
};

inline void PrintTo(const RoundedDigits& r, std::ostream* os) {
    *os << (r.sign < 0 ? "-" : "") << (r.digits.empty() ? "0" : r.digits) << "e" << r.exponent;
}

// Rounds a digit string (most significant first) half up to `digits` digits.
inline RoundedDigits roundDigitString(std::string all, int64_t exponent, int sign, int digits) {
    RoundedDigits r;
    if (sign == 0) return r;
    while (static_cast<int>(all.size()) <= digits) all.push_back('0');
    const bool up = all[static_cast<std::size_t>(digits)] >= '5';
    all.resize(static_cast<std::size_t>(digits));
    if (up) {
        int i = digits - 1;
        while (i >= 0 && all[static_cast<std::size_t>(i)] == '9') all[static_cast<std::size_t>(i--)] = '0';
        if (i >= 0) {
            ++all[static_cast<std::size_t>(i)];
        } else {
            all.insert(all.begin(), '1');
            all.pop_back();
            ++exponent;
        }
    }
    r.digits = all;
    r.exponent = exponent;
    r.sign = sign;
    return r;
}

// All mantissa digits of a finite BigNum, most significant first.
inline std::string mantissaDigits(const BigNum& x) {
    std::string out;
    for (int32_t i = x.length(); i-- > 0;) {
        out.push_back(static_cast<char>('0' + x.digits[static_cast<std::size_t>(i)] / 10));
        out.push_back(static_cast<char>('0' + x.digits[static_cast<std::size_t>(i)] % 10));
    }
    return out;
}

inline RoundedDigits roundBigNum(const BigNum& x, int digits) {
    return roundDigitString(mantissaDigits(x), x.exponent, x.sign, digits);
}

// A reference text "[-]d.ddd...e<exp>" or "0" rounded to `digits` digits.
inline RoundedDigits roundReference(std::string_view text, int digits) {
    int sign = 1;
    if (!text.empty() && text[0] == '-') {
        sign = -1;
        text.remove_prefix(1);
    }
    std::string all;
    std::size_t i = 0;
    for (; i < text.size() && text[i] != 'e'; ++i) {
        if (text[i] != '.') all.push_back(text[i]);
    }
    if (all.find_first_not_of('0') == std::string::npos) return RoundedDigits{};
    const int64_t exponent = i < text.size() ? std::stoll(std::string(text.substr(i + 1))) : 0;
    return roundDigitString(all, exponent, sign, digits);
}

// True when the reference's digits after the first `digits` read 5000... or
// 4999... for fourteen places: the value lies within 10^-13 of a rounding tie
// of the last shown digit, where any working error may tip the rounding.
inline bool nearRoundingTie(std::string_view text, int digits) {
    std::string all;
    for (char c : text.substr(0, text.find('e'))) {
        if (c >= '0' && c <= '9') all.push_back(c);
    }
    while (static_cast<int>(all.size()) < digits + 14) all.push_back('0');
    const std::string tail = all.substr(static_cast<std::size_t>(digits), 14);
    return tail == "50000000000000" || tail == "49999999999999";
}

// The decimal exponent of a reference text (0 for "0").
inline int64_t referenceExponent(std::string_view text) {
    const std::size_t e = text.find('e');
    return e == std::string_view::npos ? 0 : std::stoll(std::string(text.substr(e + 1)));
}

// |x - reference| in units of 10^unitExponent, as a double (only its size
// matters). Both are finite.
inline double errorInUnits(const BigNum& x, std::string_view reference, int64_t unitExponent) {
    const int32_t length = x.length() + 16;
    const BigNum ref = bigNumFromText(length, reference);
    const BigNum diff = subtract(resized(x, length), ref);
    if (diff.isZero()) return 0.0;
    double mantissa = 0.0;
    const std::string digits = mantissaDigits(diff);
    for (std::size_t k = 0; k < 16 && k < digits.size(); ++k) mantissa = mantissa * 10 + (digits[k] - '0');
    mantissa /= 1e15;
    return mantissa * std::pow(10.0, static_cast<double>(diff.exponent - unitExponent));
}

}  // namespace quorvel::test
