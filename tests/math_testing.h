// Shared pieces of the mathematical handler tests: command lines at a chosen
// Digits and trig mode, and checks of the top value against reference texts
// within one unit of the last digit shown.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "tests/elementary_testing.h"
#include "tests/langtext.h"
#include "tests/ops_testing.h"

namespace quorvel::test {

// A decimal text ("-512", "0.5", "30", "1.5e-3") in the normalised form
// "[-]d.ddd...e<exponent>" of the reference files; "0" stays "0".
inline std::string normalised(std::string_view text) {
    std::string sign;
    if (!text.empty() && text[0] == '-') {
        sign = "-";
        text.remove_prefix(1);
    }
    int64_t exponent = 0;
    if (const std::size_t e = text.find_first_of("eE"); e != std::string_view::npos) {
        exponent = std::stoll(std::string(text.substr(e + 1)));
        text = text.substr(0, e);
    }
    std::string digits;
    int64_t pointAt = -1;
    for (char c : text) {
        if (c == '.') pointAt = static_cast<int64_t>(digits.size());
        else digits.push_back(c);
    }
    if (pointAt < 0) pointAt = static_cast<int64_t>(digits.size());
    const std::size_t first = digits.find_first_not_of('0');
    if (first == std::string::npos) return "0";
    exponent += pointAt - static_cast<int64_t>(first) - 1;
    std::string mantissa = digits.substr(first);
    return sign + mantissa.substr(0, 1) + "." + (mantissa.size() > 1 ? mantissa.substr(1) : "0") + "e" +
           std::to_string(exponent);
}

class MathTest : public HandlerTest {
protected:
    // refuses() after clearing the message strip, so that a second refusal
    // in the same test shows its own message.
    ::testing::AssertionResult refusesAgain(Handler handler, std::u16string_view message) {
        ClearMessage(app);
        return refuses(handler, message);
    }

    void rpn(std::u16string_view line) { RunCommandLine(app, line, 0); }
    void alg(std::u16string_view line) { RunCommandLine(app, line, 1); }
    void degrees() { app.trigMode = 1; }

    // The top entry's display text in plain ASCII at the current Digits.
    std::string shown() const {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return "<empty>";
        auto text = DisplayText(app, *top, app.digits, 0x80);
        return text ? toUtf8(*text) : "<none>";
    }

    // `value` agrees with the reference text within `units` units of its
    // `digits`-th significant digit; a zero reference takes its unit from
    // `scaleExponent` (the exponent of the larger part of a complex value).
    static ::testing::AssertionResult near(const BigNum& value, std::string_view text, int32_t digits,
                                           int64_t scaleExponent, double units = 1.0) {
        if (!value.isFinite()) return ::testing::AssertionFailure() << "value is not finite";
        const std::string reference = normalised(text);
        const bool zero = reference == "0";
        const int64_t exponent = zero ? scaleExponent : referenceExponent(reference);
        const double error = errorInUnits(value, zero ? std::string_view("0") : reference, exponent - digits + 1);
        if (error <= units) return ::testing::AssertionSuccess();
        return ::testing::AssertionFailure() << "error " << error << " units; got " << realText(value)
                                             << " expected " << reference;
    }

    // The top is a Real within one unit of the last of app.digits digits of
    // `reference` (a text "d.ddd" or "d.ddde-12"), with `units`.
    ::testing::AssertionResult topRealNear(std::string_view reference, const UnitVector& units = NoUnits) const {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return ::testing::AssertionFailure() << "empty stack";
        if (top->type != ItemType::Real) return ::testing::AssertionFailure() << "type " << int(top->type);
        if (top->units != units) return ::testing::AssertionFailure() << "units differ";
        return near(top->asReal(), reference, app.digits, referenceExponent(normalised(reference)));
    }

    // The top is a Complex whose parts are within one unit of the last digit
    // of the larger part (zero parts included) of the references.
    ::testing::AssertionResult topComplexNear(std::string_view re, std::string_view im) const {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return ::testing::AssertionFailure() << "empty stack";
        if (top->type != ItemType::Complex) return ::testing::AssertionFailure() << "type " << int(top->type);
        if (hasUnits(top->units)) return ::testing::AssertionFailure() << "has units";
        const std::string r = normalised(re);
        const std::string i = normalised(im);
        const int64_t scale = std::max<int64_t>(r == "0" ? INT32_MIN : referenceExponent(r),
                                                i == "0" ? INT32_MIN : referenceExponent(i));
        if (auto r = near(top->asComplex().re, re, app.digits, scale); !r) return r << " (real part)";
        if (auto r = near(top->asComplex().im, im, app.digits, scale); !r) return r << " (imaginary part)";
        return ::testing::AssertionSuccess();
    }

    // The top is a Complex with exactly these parts (decimal texts).
    ::testing::AssertionResult topComplexIs(std::u16string_view re, std::u16string_view im) {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return ::testing::AssertionFailure() << "empty stack";
        if (top->type != ItemType::Complex) return ::testing::AssertionFailure() << "type " << int(top->type);
        const ComplexNum& z = top->asComplex();
        if (compare(z.re, number(re)) != 0 || compare(z.im, number(im)) != 0)
            return ::testing::AssertionFailure() << "value " << realText(z.re) << " + " << realText(z.im) << "i";
        return ::testing::AssertionSuccess();
    }

    // The top is a Real infinity of the given sign.
    ::testing::AssertionResult topIsInfinity(int sign) const {
        const Item* top = app.stack.at(0);
        if (top == nullptr || top->type != ItemType::Real || !top->asReal().isInfinite() || top->asReal().sign != sign)
            return ::testing::AssertionFailure() << "top is not an infinity of sign " << sign;
        return ::testing::AssertionSuccess();
    }
};

}  // namespace quorvel::test
