// Building BigNums for tests straight from their digits, without the number
// parser, and describing them in failure messages.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "numeric/bignum.h"

namespace quorvel::test {

// A finite BigNum of `length` bytes whose mantissa digits, most significant
// first, are `digits` (at most 2 * length of them, the rest 0); all-zero digits
// give zero.
inline BigNum bigNumFromDigits(int32_t length, std::string_view digits, int32_t exponent, int sign) {
    BigNum x = makeZero(length);
    bool nonzero = false;
    for (int32_t k = 0; k < static_cast<int32_t>(digits.size()) && k < 2 * x.length(); ++k) {
        const int d = digits[static_cast<std::size_t>(k)] - '0';
        nonzero = nonzero || d != 0;
        uint8_t& byte = x.digits[static_cast<std::size_t>(x.length() - 1 - k / 2)];
        byte = static_cast<uint8_t>(byte + (k % 2 == 0 ? d * 10 : d));
    }
    if (!nonzero) return x;
    x.exponent = exponent;
    x.sign = static_cast<int8_t>(sign < 0 ? -1 : 1);
    return x;
}

// A BigNum of `length` bytes from "[-]d[.ddd]e<exponent>" or "0"; the digits
// are taken exactly.
inline BigNum bigNumFromText(int32_t length, std::string_view text) {
    int sign = 1;
    if (!text.empty() && text[0] == '-') {
        sign = -1;
        text.remove_prefix(1);
    }
    std::string digits;
    std::size_t i = 0;
    for (; i < text.size() && text[i] != 'e'; ++i) {
        if (text[i] != '.') digits.push_back(text[i]);
    }
    const int32_t exponent = (i < text.size()) ? std::atoi(std::string(text.substr(i + 1)).c_str()) : 0;
    return bigNumFromDigits(length, digits, exponent, sign);
}

// "+d.ddd...e<exp> (L=n)" with all mantissa digits, or the special kind.
inline std::string describe(const BigNum& x) {
    std::string kind = x.isNaN() ? "NaN " : x.isInfinite() ? "inf " : "";
    std::string out = kind + (x.sign > 0 ? "+" : x.sign < 0 ? "-" : "0");
    for (int32_t i = x.length(); i-- > 0;) {
        const int byte = x.digits[static_cast<std::size_t>(i)];
        out.push_back(static_cast<char>('0' + byte / 10));
        if (i == x.length() - 1) out.push_back('.');
        out.push_back(static_cast<char>('0' + byte % 10));
    }
    return out + "e" + std::to_string(x.exponent) + " (L=" + std::to_string(x.length()) + ")";
}

}  // namespace quorvel::test
