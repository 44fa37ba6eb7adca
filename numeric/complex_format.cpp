// Display text of complex values.
#include "numeric/complex.h"
#include "numeric/numtext.h"

namespace quorvel {
namespace {

constexpr char16_t TypographicMinus = u'\u2212';

bool isUnitMagnitude(const BigNum& x) { return compareWithDigit(x, 1) == 0; }

}  // namespace

std::u16string formatComplex(const ComplexNum& z, int32_t digits, int32_t flags) {
    const bool plain = (flags & fmt::PlainText) != 0;
    const bool bothParts = (flags & fmt::BothParts) != 0;
    const std::u16string times = plain ? u"*i" : u"\u00B7i";

    if (z.re.isZero() && !bothParts) {
        if (z.im.isZero()) return u"0.";
        if (!isUnitMagnitude(z.im)) return u"(" + FormatReal(z.im, digits, flags) + times + u")";
        if (z.im.sign > 0) return u"i";
        return plain ? u"-i" : std::u16string{TypographicMinus, u'i'};
    }
    std::u16string t = FormatReal(z.re, digits, flags);
    if (z.im.isZero() && !bothParts) return t;
    if (!isUnitMagnitude(z.im)) {
        std::u16string u = FormatReal(z.im, digits, flags);
        if (!u.empty() && (u[0] == u'-' || u[0] == TypographicMinus || u[0] == u'+'))
            return u"(" + t + u" " + u[0] + u" " + u.substr(1) + times + u")";
        return u"(" + t + u" + " + u + times + u")";
    }
    if (z.im.sign < 1) return u"(" + t + (plain ? u" - i)" : u" \u2212 i)");
    return u"(" + t + u" + i)";
}

}  // namespace quorvel
