// Small complex helpers of the special functions.
#include <cmath>
#include <cstdint>

#include "numeric/elementary_detail.h"
#include "numeric/numtext.h"
#include "numeric/special_detail.h"

namespace quorvel::special_detail {

bool complexTermIsNegligible(const ComplexNum& t, int32_t bound) {
    return elementary_detail::termIsNegligible(t.re, bound) && elementary_detail::termIsNegligible(t.im, bound);
}

ComplexNum complexDivideBySmall(const ComplexNum& z, int32_t v) {
    return ComplexNum{elementary_detail::divideBySmall(z.re, v), elementary_detail::divideBySmall(z.im, v)};
}

ComplexNum complexScale(const BigNum& x, const ComplexNum& z) { return ComplexNum{multiply(x, z.re), multiply(x, z.im)}; }

ComplexNum complexNegated(const ComplexNum& z) {
    return ComplexNum{elementary_detail::negated(z.re), elementary_detail::negated(z.im)};
}

bool complexIsNonFinite(const ComplexNum& z) { return !z.re.isFinite() || !z.im.isFinite(); }

ComplexNum complexNaN() { return ComplexNum{makeNaN(), makeNaN()}; }

bool complexModulusAsDouble(const ComplexNum& z, double& out) {
    if (complexIsNonFinite(z)) return false;
    double re = 0.0;
    double im = 0.0;
    if (!BigNumToDouble(z.re, re) || !BigNumToDouble(z.im, im)) return false;
    out = std::sqrt(re * re + im * im);
    return std::isfinite(out);
}

}  // namespace quorvel::special_detail
