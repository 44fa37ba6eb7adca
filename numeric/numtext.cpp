// Number text: parsing of reals and integers, integer display text,
// superscripts, conversion to a machine double and UTF-8 at the edges.
#include "numeric/numtext.h"

#include <algorithm>
#include <cmath>

namespace quorvel {
namespace {

constexpr char16_t TypographicMinus = u'\u2212';
// 1 / (16 ln 2): limbs per unit of ln(base) per character.
constexpr double LimbsPerLogUnit = 0.09016844005556021;
// 16 ln 2: ln of one limb.
constexpr double LogOfLimb = 11.090354888959125;

bool isSign(char16_t c) { return c == u'+' || c == u'-'; }
bool isDecimalDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Skips a run of '+' and '-' from `i`; returns -1 when the count of '-' is odd.
int skipSigns(std::u16string_view text, size_t& i) {
    int sign = 1;
    for (; i < text.size() && isSign(text[i]); ++i) {
        if (text[i] == u'-') sign = -sign;
    }
    return sign;
}

// Stores decimal digit d at digit position p counted from the bottom of the
// mantissa: an odd position is the tens digit of byte p/2, an even one its units digit.
void storeDigit(BigNum& a, int32_t position, int digit) {
    uint8_t& pair = a.digits[static_cast<size_t>(position / 2)];
    if (position % 2 == 1) pair = static_cast<uint8_t>(digit * 10 + pair % 10);
    else pair = static_cast<uint8_t>(pair - pair % 10 + digit);
}

// The value of one integer digit character: c-48 when that is at most 9 as a
// signed 16-bit number, c-55 otherwise (so ':'..'@' read as 3..9).
int32_t integerDigitValue(char16_t c) {
    const auto low = static_cast<int16_t>(c - 48);
    if (low <= 9) return low;
    return static_cast<int32_t>(c) - 55;
}

void appendUtf8(std::string& out, uint32_t code) {
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else if (code < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (code >> 18)));
        out.push_back(static_cast<char>(0x80 | ((code >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

void appendUtf16(std::u16string& out, uint32_t code) {
    if (code < 0x10000) {
        out.push_back(static_cast<char16_t>(code));
    } else {
        code -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (code >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    }
}

}  // namespace

BigNum ParseReal(int32_t limbs, std::u16string_view text) {
    BigNum a = makeZero(limbs);
    const int32_t digitCount = 2 * a.length();
    size_t i = 0;
    const int sign = skipSigns(text, i);

    int32_t position = digitCount - 1;
    int32_t runningExponent = -1;
    bool pointSeen = false;
    bool significant = false;
    for (; i < text.size() && position >= 0; ++i) {
        const char16_t c = text[i];
        if (c == u'.') {
            pointSeen = true;
            continue;
        }
        if (!isDecimalDigit(c)) break;
        const int digit = c - u'0';
        if (!significant && digit == 0) {
            if (pointSeen) --runningExponent;
            continue;
        }
        significant = true;
        storeDigit(a, position--, digit);
        if (!pointSeen) ++runningExponent;
    }

    // Only the one character after the kept digits decides the rounding.
    const char16_t stop = i < text.size() ? text[i] : u'\0';
    if (stop >= u'5' && stop <= u'9') addAtDigit(a, 1, 0);
    if (decimalDigitAt(a, 0) == 0) return makeZero(limbs);

    a.sign = static_cast<int8_t>(sign);
    uint32_t exponent = 0;   // wraps in 32 bits, as overlong exponents do
    if (stop == u'E' || stop == u'e') {
        ++i;
        bool negative = false;
        if (i < text.size() && isSign(text[i])) negative = text[i++] == u'-';
        for (; i < text.size() && isDecimalDigit(text[i]); ++i)
            exponent = exponent * 10 + static_cast<uint32_t>(text[i] - u'0');
        if (negative) exponent = 0u - exponent;
    }
    a.exponent = static_cast<int32_t>(static_cast<uint32_t>(a.exponent) + exponent +
                                      static_cast<uint32_t>(runningExponent));
    return a;
}

BigInt ParseInteger(std::u16string_view text, int16_t base) {
    BigInt n;
    if (base >= 2) {
        const double capacity = 3 + std::trunc(static_cast<double>(text.size()) * std::log(static_cast<double>(base)) * LimbsPerLogUnit);
        n.limbs.reserve(static_cast<size_t>(capacity));
    }
    size_t i = 0;
    const int sign = skipSigns(text, i);
    for (; i < text.size(); ++i) {
        const int32_t value = integerDigitValue(text[i]);
        if (value < 0 || value >= base) break;
        multiplySmallAddInPlace(n, static_cast<uint32_t>(base), static_cast<uint32_t>(value));
    }
    trim(n);
    if (!n.isZero()) n.sign = static_cast<int8_t>(sign);
    return n;
}

std::u16string FormatInteger(const BigInt& n, int16_t base, int32_t flags) {
    const uint32_t radix = base >= 2 ? static_cast<uint32_t>(base) : 10;
    const bool grouping = (flags & fmt::Grouping) != 0;
    std::u16string text;   // written from the right, reversed at the end
    const double length = std::max(3.0, std::trunc(n.count() * LogOfLimb / std::log(double(radix))) + 4);
    text.reserve(static_cast<size_t>(grouping ? length + length / 3 + 1 : length) + 2);

    // Divide by the largest power of the base that fits in 32 bits, then split
    // each remainder into single digits.
    uint32_t chunkDivisor = radix;
    int chunkDigits = 1;
    while (uint64_t{chunkDivisor} * radix <= UINT32_MAX) {
        chunkDivisor *= radix;
        ++chunkDigits;
    }
    BigInt work = absolute(n);
    int inGroup = 0;
    auto writeDigit = [&](uint32_t digit) {
        if (grouping && inGroup == 3) {
            text.push_back(u',');
            inGroup = 0;
        }
        text.push_back(static_cast<char16_t>(digit < 10 ? u'0' + digit : u'A' + (digit - 10)));
        ++inGroup;
    };
    do {
        uint32_t chunk = divideSmallInPlace(work, chunkDivisor);
        for (int k = 0; k < chunkDigits; ++k) {
            writeDigit(chunk % radix);
            chunk /= radix;
            if (work.isZero() && chunk == 0) break;
        }
    } while (!work.isZero());

    if (text.back() >= u'A') text.push_back(u'0');
    if (n.sign < 0) text.push_back((flags & fmt::PlainText) ? u'-' : TypographicMinus);
    else if (flags & fmt::PlusSign) text.push_back(u'+');
    std::reverse(text.begin(), text.end());
    return text;
}

void ToSuperscript(std::u16string& text) {
    for (char16_t& c : text) {
        switch (c) {
        case u'+': c = u'\u207A'; break;
        case u'-': c = u'\u207B'; break;
        case u'0': c = u'\u2070'; break;
        case u'1': c = u'\u00B9'; break;
        case u'2': c = u'\u00B2'; break;
        case u'3': c = u'\u00B3'; break;
        default:
            if (c >= u'4' && c <= u'9') c = static_cast<char16_t>(u'\u2074' + (c - u'4'));
            break;
        }
    }
}

bool BigNumToDouble(const BigNum& x, double& out) {
    if (x.isNaN()) {
        out = std::nan("");
        return true;
    }
    if (x.isInfinite()) return false;
    double acc = 0.0;
    for (uint8_t pair : x.digits) acc = acc * 0.01 + pair;
    if (x.exponent > 307) return false;
    // acc is d1d2.d3...; scaling it to d1.d2... first keeps 9.9e307 finite.
    out = x.exponent >= -308 ? std::pow(10.0, x.exponent) * (acc * 0.1) : 0.0;
    if (x.sign < 0) out = -out;
    return true;
}

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t code = text[i];
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (text[i + 1] - 0xDC00u);
            ++i;
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;   // unpaired surrogate
        }
        appendUtf8(out, code);
    }
    return out;
}

std::u16string fromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    size_t i = 0;
    while (i < text.size()) {
        const auto lead = static_cast<unsigned char>(text[i]);
        int extra = 0;
        uint32_t code = lead;
        uint32_t minimum = 0;
        if (lead >= 0xF0 && lead < 0xF5) extra = 3, code = lead & 0x07, minimum = 0x10000;
        else if (lead >= 0xE0 && lead < 0xF0) extra = 2, code = lead & 0x0F, minimum = 0x800;
        else if (lead >= 0xC2 && lead < 0xE0) extra = 1, code = lead & 0x1F, minimum = 0x80;
        else if (lead >= 0x80) extra = -1;
        ++i;
        bool valid = extra >= 0;
        for (int k = 0; valid && k < extra; ++k, ++i) {
            if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
                valid = false;
                break;
            }
            code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3F);
        }
        if (valid && (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))) valid = false;
        appendUtf16(out, valid ? code : 0xFFFD);
    }
    return out;
}

}  // namespace quorvel
