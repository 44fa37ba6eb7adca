// The special functions: `gamma`, `fact` and `!`, `comb`, `perm`, `erf`,
// `cfresnel`, `sfresnel`, `fresnel`, `ai`, `bi`, `bern` and `euler`.
//
// Every operand must be dimensionless ("Invalid Units"); the results have no
// units. Integer operands of `gamma`, `fact`, `comb` and `perm` give exact
// Integers (reduced to the word size) while the result has at most
// MaxExactDigits digits; beyond that, and for Reals, the value is a Real at
// the working length; a Complex operand gives a Complex. The poles (gamma at
// 0, -1, -2, ..., the factorial at -1, -2, ...) give the NaN or infinity of
// the numeric functions. `bern` and `euler` take a whole index n >= 0 (a Real
// is rounded to the nearest integer with "Argument Converted to Nearest
// Integer"); a negative or too large index is "Argument Outside of Range".
#include <cmath>
#include <cstdint>

#include "lang/handlers.h"
#include "lang/ops_math.h"
#include "lang/ops_values.h"
#include "numeric/special.h"
#include "units/unitrules.h"

namespace quorvel {

namespace {

// Largest index of `bern` and `euler`: the exact double sums cost about n^2
// big-integer products, so this is minutes of work, polled for abort.
constexpr int32_t MaxNumberIndex = 20000;

constexpr double Ln10 = 2.302585092994045684;

// The value of an Integer of at most two limbs as a double (for estimates).
double integerToDouble(const BigInt& n) {
    double value = 0;
    for (int32_t i = n.count(); i-- > 0;) value = value * 65536.0 + n.limbs[i];
    return n.sign < 0 ? -value : value;
}

// Decimal digits of n! for n >= 0 (an estimate, exact to a fraction of a digit).
double factorialDigits(double n) { return std::lgamma(n + 1) / Ln10; }

// The operand refusals shared by the family: types and units.
std::optional<Refusal> checkOperand(const Item& x) {
    if (!IsNumber(x)) return Refusal{InvalidDataType};
    if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
    return std::nullopt;
}

// The Real or Complex value of a function of one operand (Integers converted).
Outcome realOrComplex(AppState& app, const Item& x, RealFunction real, ComplexFunction complex) {
    if (x.type == ItemType::Complex) return UnlessAborted(app, Item::complex(complex(app.math, x.asComplex())));
    return UnlessAborted(app, Item::real(real(app.math, RealOf(app, x))));
}

BigNum realGamma(MathContext& m, const BigNum& x) { return Gamma(m, x); }
ComplexNum complexGamma(MathContext& m, const ComplexNum& z) { return Gamma(m, z); }
BigNum realFactorial(MathContext& m, const BigNum& x) { return Factorial(m, x); }
ComplexNum complexFactorial(MathContext& m, const ComplexNum& z) { return Factorial(m, z); }

// n! exactly for an Integer n >= 0 small enough, as the result Item.
std::optional<Outcome> exactFactorial(AppState& app, const BigInt& n) {
    if (n.sign < 0 || n.count() > 2) return std::nullopt;
    if (factorialDigits(integerToDouble(n)) > static_cast<double>(MaxExactDigits)) return std::nullopt;
    std::optional<BigInt> value = FactorialInt(app.math, n);
    if (!value) return std::nullopt;
    return UnlessAborted(app, IntegerResult(app, std::move(*value), NoUnits));
}

// --- Combinations and permutations ---------------------------------------------------

// Estimated decimal digits of C(n, k) (or of the permutation count) for
// Integers of at most two limbs; an infinity when no estimate applies.
double combinationDigits(double n, double k, bool permutation) {
    if (k < 0) return 0;
    if (n < 0) {
        // (-1)^k C(k - n - 1, k); |n (n-1) ... (n-k+1)| = (|n| + k - 1)! / (|n| - 1)!.
        const double m = -n;
        return permutation ? (std::lgamma(m + k) - std::lgamma(m)) / Ln10
                           : (std::lgamma(m + k) - std::lgamma(k + 1) - std::lgamma(m)) / Ln10;
    }
    if (n < k) return 0;
    const double top = std::lgamma(n + 1) - std::lgamma(n - k + 1);
    return (permutation ? top : top - std::lgamma(k + 1)) / Ln10;
}

enum class Counting { Comb, Perm };

template <Counting C>
Outcome counting(AppState& app, const Item& n, const Item& k) {
    if (auto refused = checkOperand(n)) return *refused;
    if (auto refused = checkOperand(k)) return *refused;
    if (n.type == ItemType::Complex || k.type == ItemType::Complex) {
        const ComplexNum a = ComplexOf(app, n);
        const ComplexNum b = ComplexOf(app, k);
        return UnlessAborted(app, Item::complex(C == Counting::Comb ? Comb(app.math, a, b) : Perm(app.math, a, b)));
    }
    if (n.type == ItemType::Integer && k.type == ItemType::Integer && n.asInteger().count() <= 2 &&
        k.asInteger().count() <= 2) {
        const double digits = combinationDigits(integerToDouble(n.asInteger()), integerToDouble(k.asInteger()),
                                                C == Counting::Perm);
        if (digits <= static_cast<double>(MaxExactDigits)) {
            std::optional<BigInt> value = C == Counting::Comb ? CombInt(app.math, n.asInteger(), k.asInteger())
                                                              : PermInt(app.math, n.asInteger(), k.asInteger());
            if (value) return UnlessAborted(app, IntegerResult(app, std::move(*value), NoUnits));
        }
    }
    const BigNum a = RealOf(app, n);
    const BigNum b = RealOf(app, k);
    return UnlessAborted(app, Item::real(C == Counting::Comb ? Comb(app.math, a, b) : Perm(app.math, a, b)));
}

// --- Fresnel pair ------------------------------------------------------------------------

// `fresnel` leaves two values: 1/2 - C(x) in y and 1/2 - S(x) in x (the top).
void fresnelPair(AppState& app, ItemList& list) {
    std::array<Item, 1> popped;
    if (!PopOperands(app, list, popped)) return;
    const Item& x = Resolve(app, popped[0]);
    if (auto refused = checkOperand(x)) {
        FinishHandler(app, list, popped, *refused);
        return;
    }
    Item c;
    Item s;
    if (x.type == ItemType::Complex) {
        ComplexFresnelValues values = FresnelPair(app.math, x.asComplex());
        c = Item::complex(std::move(values.c));
        s = Item::complex(std::move(values.s));
    } else {
        FresnelValues values = FresnelPair(app.math, RealOf(app, x));
        c = Item::real(std::move(values.c));
        s = Item::real(std::move(values.s));
    }
    if (app.abortFlag) {
        FinishHandler(app, list, popped, Refusal{Aborted});
        return;
    }
    list.push(std::move(c));
    list.push(std::move(s));
}

// --- Bernoulli and Euler numbers ------------------------------------------------------------

// The whole index of `bern`/`euler`: an Integer as it is, a Real rounded to
// the nearest integer (with the warning when it had a fraction). None with
// the refusal when it is negative, too large or not a number.
struct Index {
    int32_t n = 0;
    bool converted = false;
};

std::variant<Index, Refusal> indexOf(const Item& x) {
    if (!IsIntegerOrReal(x)) return Refusal{InvalidDataType};
    if (!IsDimensionless(x.units)) return Refusal{InvalidUnits};
    Index index;
    BigInt whole;
    if (x.type == ItemType::Integer) {
        whole = x.asInteger();
    } else {
        const BigNum& v = x.asReal();
        if (!v.isFinite() || (!v.isZero() && v.exponent > 9)) return Refusal{ArgumentOutsideOfRange};
        whole = roundToInteger(v);
        index.converted = !fractionPart(v).isZero();
    }
    if (!BigIntToInt32(whole, index.n) || index.n < 0 || index.n > MaxNumberIndex) return Refusal{ArgumentOutsideOfRange};
    return index;
}

enum class Number { Bernoulli, Euler };

template <Number N>
void numberHandler(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        auto found = indexOf(x);
        if (auto* refused = std::get_if<Refusal>(&found)) return *refused;
        const Index index = std::get<Index>(found);
        if (index.converted) ReportError(a, ArgumentConvertedToNearestInteger, Warning);
        const int32_t L = a.workingLength;
        if (N == Number::Bernoulli) {
            // The odd numbers past B_1 are zero.
            if (index.n >= 3 && index.n % 2 == 1) return Item::real(makeZero(L));
            return UnlessAborted(a, Item::real(BernoulliNumber(a.math, index.n, L)));
        }
        if (index.n % 2 == 1) return Item::integer(BigInt{});
        std::optional<BigInt> value = EulerNumberInt(a.math, index.n);
        if (!value) return Refusal{Aborted};
        return UnlessAborted(a, Item::integer(std::move(*value)));
    });
}

}  // namespace

// `gamma`: an Integer n >= 1 gives (n - 1)! exactly.
void opGamma(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        if (x.type == ItemType::Integer && x.asInteger().sign > 0) {
            if (auto exact = exactFactorial(a, subtractSmall(x.asInteger(), 1))) return std::move(*exact);
        }
        return realOrComplex(a, x, realGamma, complexGamma);
    });
}

// `fact` and `!`: an Integer n >= 0 gives n! exactly; otherwise Gamma(x + 1).
void opFact(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        if (x.type == ItemType::Integer) {
            if (auto exact = exactFactorial(a, x.asInteger())) return std::move(*exact);
        }
        return realOrComplex(a, x, realFactorial, complexFactorial);
    });
}

// `comb`: n (second) choose k (top). `perm`: the k-permutations of n.
void opComb(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& k, const Item& n) { return counting<Counting::Comb>(a, n, k); });
}
void opPerm(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& k, const Item& n) { return counting<Counting::Perm>(a, n, k); });
}

void opErf(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        return realOrComplex(
            a, x, [](MathContext& m, const BigNum& v) { return Erf(m, v); },
            [](MathContext& m, const ComplexNum& z) { return Erf(m, z); });
    });
}

void opCfresnel(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        return realOrComplex(
            a, x, [](MathContext& m, const BigNum& v) { return FresnelC(m, v); },
            [](MathContext& m, const ComplexNum& z) { return FresnelC(m, z); });
    });
}

void opSfresnel(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        return realOrComplex(
            a, x, [](MathContext& m, const BigNum& v) { return FresnelS(m, v); },
            [](MathContext& m, const ComplexNum& z) { return FresnelS(m, z); });
    });
}

void opFresnel(AppState& app, ItemList& list) { fresnelPair(app, list); }

void opAi(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        return realOrComplex(
            a, x, [](MathContext& m, const BigNum& v) { return AiryAi(m, v); },
            [](MathContext& m, const ComplexNum& z) { return AiryAi(m, z); });
    });
}

void opBi(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refused = checkOperand(x)) return *refused;
        return realOrComplex(
            a, x, [](MathContext& m, const BigNum& v) { return AiryBi(m, v); },
            [](MathContext& m, const ComplexNum& z) { return AiryBi(m, z); });
    });
}

void opBern(AppState& app, ItemList& list) { numberHandler<Number::Bernoulli>(app, list); }
void opEuler(AppState& app, ItemList& list) { numberHandler<Number::Euler>(app, list); }

}  // namespace quorvel
