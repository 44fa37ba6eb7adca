// Display text of reals in the Standard, Fixed and Scientific modes.
#include <cstdio>

#include "numeric/numtext.h"

namespace quorvel {
namespace {

constexpr char16_t TypographicMinus = u'\u2212';
constexpr char16_t MiddleDot = u'\u00B7';

bool plainText(int32_t flags) { return (flags & fmt::PlainText) != 0; }

// The minus sign for a negative value, '+' for a positive one under the plus flag.
void writeSign(std::u16string& out, const BigNum& x, int32_t flags) {
    if (x.sign < 0) out.push_back(plainText(flags) ? u'-' : TypographicMinus);
    else if (x.sign > 0 && (flags & fmt::PlusSign)) out.push_back(u'+');
}

// "E+5" in plain text, otherwise a middle dot, 10 and the superscript exponent.
void writeExponent(std::u16string& out, int32_t exponent, int32_t flags) {
    char buffer[16];
    if (plainText(flags)) {
        std::snprintf(buffer, sizeof buffer, "E%+ld", static_cast<long>(exponent));
        for (const char* p = buffer; *p; ++p) out.push_back(static_cast<char16_t>(*p));
        return;
    }
    std::snprintf(buffer, sizeof buffer, "%ld", static_cast<long>(exponent));
    std::u16string power;
    for (const char* p = buffer; *p; ++p) power.push_back(static_cast<char16_t>(*p));
    ToSuperscript(power);
    out.push_back(MiddleDot);
    out += u"10";
    out += power;
}

char16_t digitChar(const BigNum& x, int64_t position) {
    if (position >= 2 * int64_t{x.length()}) return u'0';
    return static_cast<char16_t>(u'0' + decimalDigitAt(x, static_cast<int32_t>(position)));
}

int digitAt(const BigNum& x, int64_t position) { return digitChar(x, position) - u'0'; }

// A comma follows a digit of exponent 3, 6, 9, ... under the grouping flag.
bool commaAfter(int64_t exponent, int32_t flags) {
    return (flags & fmt::Grouping) && exponent >= 1 && exponent % 3 == 0;
}

std::u16string infinityText(const BigNum& x, int32_t flags, bool fixedMode) {
    std::u16string out;
    if (x.sign < 0) out.push_back(plainText(flags) ? u'-' : TypographicMinus);
    else if (fixedMode || (flags & fmt::PlusSign)) out.push_back(u'+');
    out += plainText(flags) ? u"inf" : u"\u221E";
    return out;
}

std::u16string standardText(const BigNum& x, int32_t digits, int32_t flags) {
    const int64_t digitCount = 2 * int64_t{x.length()};
    const int64_t n = digits <= 0 ? digitCount : digits;
    BigNum copy = x;
    if (n < digitCount && digitAt(copy, n) >= 5) addAtDigit(copy, 1, static_cast<int32_t>(digitCount - n));

    // The form follows the exponent before rounding; the text the rounded copy.
    const int64_t unrounded = x.exponent;
    const bool exponentForm = unrounded < -3 || unrounded > n || unrounded > 9;
    const int64_t e = copy.exponent;

    std::u16string out;
    writeSign(out, x, flags);
    if (exponentForm) {
        out.push_back(digitChar(copy, 0));
        out.push_back(u'.');
        for (int64_t i = 1; i < n; ++i) out.push_back(digitChar(copy, i));
        while (out.back() == u'0') out.pop_back();
        if (out.back() == u'.') out.pop_back();
        writeExponent(out, copy.exponent, flags);
        if (flags & fmt::Brackets) out.push_back(u']');   // closing half only
        return out;
    }

    if (e < 0) {
        out += u"0.";
        out.append(static_cast<size_t>(-e - 1), u'0');
    }
    for (int64_t i = 0; i < n; ++i) {
        const int64_t place = e - i;
        out.push_back(digitChar(copy, i));
        if (place == 0) out.push_back(u'.');
        else if (commaAfter(place, flags)) out.push_back(u',');
    }
    const int64_t remaining = e - n + 1;   // integer places after the n digits
    if (remaining > 0) {
        out.append(static_cast<size_t>(remaining), u'0');
        out.push_back(u'.');
    }
    while (out.back() == u'0') out.pop_back();
    return out;
}

std::u16string fixedText(const BigNum& x, int32_t digits, int32_t flags) {
    const int64_t digitCount = 2 * int64_t{x.length()};
    const int64_t n = digits < 0 ? 0 : digits;
    BigNum copy = x;
    int64_t k = n + 1 + copy.exponent;   // the rounding digit
    // For k = 0 the unit lands one place above d1 (0.005 with two decimals is 0.01).
    if (k >= 0 && digitAt(copy, k) >= 5) addAtDigit(copy, 1, static_cast<int32_t>(digitCount - k));
    const int64_t e = copy.exponent;
    k = n + 1 + e;

    std::u16string out;
    writeSign(out, x, flags);
    int64_t decimals = 0;
    if (e < 0) {
        out += u"0.";
        for (int64_t place = -1; place > e && decimals < n; --place, ++decimals) out.push_back(u'0');
    }
    int64_t i = 0;
    for (; i < k && i < digitCount; ++i) {
        const int64_t place = e - i;
        if (place < 0 && decimals >= n) break;
        out.push_back(digitChar(copy, i));
        if (place == 0) out.push_back(u'.');
        else if (commaAfter(place, flags)) out.push_back(u',');
        if (place < 0) ++decimals;
    }
    if (e - i >= 0) {   // integer places beyond the mantissa
        for (int64_t place = e - i; place >= 0; --place) {
            out.push_back(u'0');
            if (commaAfter(place, flags)) out.push_back(u',');
        }
        out.push_back(u'.');
    }
    for (; decimals < n; ++decimals) out.push_back(u'0');
    return out;
}

std::u16string scientificText(const BigNum& x, int32_t digits, int32_t flags) {
    const int64_t digitCount = 2 * int64_t{x.length()};
    const int64_t n = digits < 0 ? 0 : digits;
    BigNum copy = x;
    if (n + 1 < digitCount && digitAt(copy, n + 1) >= 5)
        addAtDigit(copy, 1, static_cast<int32_t>(digitCount - n - 1));

    std::u16string out;
    if (flags & fmt::Brackets) out.push_back(u'[');
    writeSign(out, x, flags);
    out.push_back(digitChar(copy, 0));
    out.push_back(u'.');
    for (int64_t i = 1; i <= n; ++i) out.push_back(digitChar(copy, i));
    writeExponent(out, copy.exponent, flags);
    if (flags & fmt::Brackets) out.push_back(u']');
    return out;
}

}  // namespace

std::u16string FormatReal(const BigNum& x, int32_t digits, int32_t flags) {
    const bool fixedMode = (flags & fmt::Fixed) != 0;
    if (x.isNaN()) return u"NaN";
    if (!x.isFinite()) return infinityText(x, flags, fixedMode);
    if (fixedMode) return fixedText(x, digits, flags);
    if (flags & fmt::Scientific) return scientificText(x, digits, flags);
    return standardText(x, digits, flags);
}

}  // namespace quorvel
