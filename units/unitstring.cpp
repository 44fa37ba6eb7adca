// The unit-string scanner and parser.
#include "units/unitstring.h"

namespace quorvel {

namespace {

constexpr int64_t LargestExponent = 2147483647;

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }

}  // namespace

UnitToken UnitScanner::next() {
    UnitToken token;
    if (stopped_) return token;
    while (pos_ < text_.size() && text_[pos_] <= 32) ++pos_;
    if (pos_ >= text_.size()) return token;

    const char16_t c = text_[pos_];
    bool negative = false;
    if ((c == u'-' || c == u'+') && pos_ + 1 < text_.size() && isDigit(text_[pos_ + 1])) {
        negative = c == u'-';
        ++pos_;
    }
    if (isDigit(text_[pos_])) {
        int64_t value = 0;
        while (pos_ < text_.size() && isDigit(text_[pos_])) {
            // Saturate one past the largest exponent: such a number changes nothing.
            if (value <= LargestExponent) value = value * 10 + (text_[pos_] - u'0');
            ++pos_;
        }
        if (value > LargestExponent) value = LargestExponent + 1;
        token.kind = UnitTokenKind::Number;
        token.number = negative ? -value : value;
        return token;
    }
    if (isLetter(c)) {
        const size_t start = pos_;
        while (pos_ < text_.size() && isLetter(text_[pos_])) ++pos_;
        const std::u16string_view name = text_.substr(start, pos_ - start);
        token.base = FindUnit(name);
        if (token.base == nullptr) token.derived = FindDerivedUnit(name);
        if (token.base == nullptr && token.derived == nullptr) {
            stopped_ = true;   // an unknown name ends the text
            return UnitToken{};
        }
        token.kind = UnitTokenKind::Name;
        return token;
    }
    ++pos_;
    token.kind = UnitTokenKind::Operator;
    token.character = c;
    return token;
}

std::vector<UnitFactor> ParseUnitString(std::u16string_view text) {
    std::vector<UnitFactor> factors;
    int32_t sign = 1;
    UnitScanner scanner(text);
    for (UnitToken token = scanner.next(); token.kind != UnitTokenKind::End; token = scanner.next()) {
        switch (token.kind) {
            case UnitTokenKind::Name:
                factors.push_back(UnitFactor{token.base, token.derived, sign});
                break;
            case UnitTokenKind::Number: {
                const int64_t magnitude = token.number < 0 ? -token.number : token.number;
                if (!factors.empty() && magnitude <= LargestExponent)
                    factors.back().exponent = sign * static_cast<int32_t>(token.number);
                break;
            }
            case UnitTokenKind::Operator:
                if (token.character == u'/') sign = -1;   // for the rest of the text
                break;
            case UnitTokenKind::End:
                break;
        }
    }
    return factors;
}

}  // namespace quorvel
