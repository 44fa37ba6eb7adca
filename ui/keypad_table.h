// The keypad: one row per button position, 10 rows of 12, row-major. Every
// fact about a button (label, what it types or does, its hover text, colour
// and behaviour bits) lives in its row; nothing else describes the keys.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quorvel::ui {

struct ButtonDef {
    const char16_t* label = nullptr;         // painted text; nullptr = no button here
    const char16_t* command = nullptr;       // typed text or special action name
    const char16_t* description = nullptr;   // hover line text
    uint16_t red = 0, green = 0, blue = 0;   // face colour, 0..255 each
    uint16_t flags = 0;                      // ButtonFlag bits
};

// Behaviour bits of ButtonDef::flags.
namespace ButtonFlag {
inline constexpr uint16_t Enter = 0x1;           // execute the entry line
inline constexpr uint16_t EntryChar = 0x2;       // type one character (command's first, else label's)
inline constexpr uint16_t Command = 0x4;         // type the command text
inline constexpr uint16_t Special = 0x8;         // special action named by the command
inline constexpr uint16_t Repaint = 0x10;        // repaint the whole window afterwards
inline constexpr uint16_t RunAtOnce = 0x20;      // with Command: run also in algebraic entry
inline constexpr uint16_t OpenParen = 0x40;      // with Command: type "(" in algebraic entry
inline constexpr uint16_t Literal = 0x80;        // type the label's first character
inline constexpr uint16_t AlgebraicOnly = 0x100; // with Literal: only in algebraic entry
inline constexpr uint16_t HexDigit = 0x200;      // with EntryChar: only when Base > 10
}  // namespace ButtonFlag

inline constexpr int KeypadRows = 10;
inline constexpr int KeypadColumns = 12;

inline constexpr std::array<ButtonDef, KeypadRows * KeypadColumns> ButtonTable{{
    {u"WSize", u"wsize", u"Unsigned Binary Word Size", 160, 160, 0, 0x4},  // 1.1
    {u"Clip", u"clip", u"Copy x to Clipboard", 255, 96, 64, 0x8},  // 1.2
    {u"Dsp Units", u"unit", u"Set Display Units", 255, 192, 255, 0x8},  // 1.3
    {u"Std", u"std", u"Standard Number Format", 160, 64, 0, 0x54},  // 1.4
    {u"Fix", u"fix", u"Fixed Decimal Number Format", 160, 64, 0, 0x54},  // 1.5
    {u"Sci", u"sci", u"Scientific Notation Number Format", 160, 64, 0, 0x54},  // 1.6
    {},  // 1.7
    {u"Roll", u"roll", u"Roll 3 Stack Items (z → x → y → z)", 255, 160, 128, 0x24},  // 1.8
    {u"Swap", u"swap", u"Swap 2 Stack Items (x ↔ y)", 255, 160, 128, 0x24},  // 1.9
    {u"Drop", u"drop", u"Drop Top Stack Item", 255, 160, 128, 0x24},  // 1.10
    {u"Dup", u"dup", u"Duplicate Top Stack Item", 255, 160, 128, 0x24},  // 1.11
    {u"Clear", u"clear", u"Clear Stack", 255, 96, 64, 0x24},  // 1.12
    {u"Cmd", u"cmd", u"Command Line", 32, 128, 32, 0x8},  // 2.1
    {},  // 2.2
    {u"+ Units", u"entry", u"Units Entry", 255, 224, 208, 0x8},  // 2.3
    {u"− Units", u"remunits", u"Remove Units", 255, 224, 208, 0x4},  // 2.4
    {u"(", nullptr, u"( Character", 255, 255, 255, 0x180},  // 2.5
    {u",", nullptr, u", Character", 255, 255, 255, 0x180},  // 2.6
    {u")", nullptr, u") Character", 255, 255, 255, 0x180},  // 2.7
    {u"Sto", u"sto", u"Store Memory", 128, 160, 255, 0x44},  // 2.8
    {u"Rcl", u"rcl", u"Recall Memory", 128, 160, 255, 0x44},  // 2.9
    {u"x", u"x", u"Duplicate x", 255, 160, 128, 0x4},  // 2.10
    {u"y", u"y", u"Duplicate y", 255, 160, 128, 0x4},  // 2.11
    {u"z", u"z", u"Duplicate z", 255, 160, 128, 0x4},  // 2.12
    {u"LoadPgm", u"load", u"Load Program", 32, 128, 32, 0x8},  // 3.1
    {},  // 3.2
    {},  // 3.3
    {u"Const", u"const", u"Lookup Constant", 255, 224, 208, 0x8},  // 3.4
    {u"yCx", u"comb", u"x Combinations of y", 80, 255, 255, 0x44},  // 3.5
    {u"yPx", u"perm", u"x Permutations of y", 80, 255, 255, 0x44},  // 3.6
    {u"erf(x)", u"erf", u"Error Function", 80, 255, 255, 0x44},  // 3.7
    {u"Γ(x)", u"gamma", u"Gamma Function", 80, 255, 255, 0x44},  // 3.8
    {u"x*", u"conj", u"Complex Conjugate of x", 80, 255, 255, 0x44},  // 3.9
    {u"2ˣ", u"exp2", u"2 Raised to Power", 80, 255, 255, 0x44},  // 3.10
    {u"10ˣ", u"exp10", u"10 Raised to Power", 80, 255, 255, 0x44},  // 3.11
    {u"eˣ", u"exp", u"e Raised to Power", 80, 255, 255, 0x44},  // 3.12
    {},  // 4.1
    {},  // 4.2
    {},  // 4.3
    {u"Cₓ", u"cfresnel", u"Cosine Fresnel Integral", 80, 255, 255, 0x44},  // 4.4
    {u"Sₓ", u"sfresnel", u"Sine Fresnel Integral", 80, 255, 255, 0x44},  // 4.5
    {u"Ƒₓ", u"fresnel", u"Fresnel Integral", 80, 255, 255, 0x44},  // 4.6
    {u"atan(y/x)", u"atan2", u"Quadrant Correct Arc-Tangent of y / x", 0, 255, 0, 0x44},  // 4.7
    {u"y red x", u"red", u"y reduce x (-x/2 ≤ result < x/2)", 80, 255, 255, 0x44},  // 4.8
    {u"x!", u"fact", u"factorial", 80, 255, 255, 0x44},  // 4.9
    {u"log₂(x)", u"log2", u"Logarithm Base 2", 80, 255, 255, 0x44},  // 4.10
    {u"log₁₀(x)", u"log10", u"Logarithm Base 10", 80, 255, 255, 0x44},  // 4.11
    {u"ln(x)", u"ln", u"Natural Logarithm", 80, 255, 255, 0x44},  // 4.12
    {},  // 5.1
    {},  // 5.2
    {},  // 5.3
    {u"Bₓ", u"bern", u"Bernoulli Number", 80, 255, 255, 0x44},  // 5.4
    {u"Eₓ", u"euler", u"Euler Number", 80, 255, 255, 0x44},  // 5.5
    {u"cosh(x)", u"cosh", u"Hyperbolic Cosine", 128, 255, 0, 0x44},  // 5.6
    {u"cos(x)", u"cos", u"Cosine", 0, 255, 0, 0x44},  // 5.7
    {u"y mod x", u"mod", u"y modulo x (0 ≤ result < x)", 80, 255, 255, 0x44},  // 5.8
    {u"1 / x", u"inv", u"Reciprocal", 80, 255, 255, 0x44},  // 5.9
    {u"|x|", u"abs", u"Absolute Value", 80, 255, 255, 0x44},  // 5.10
    {u"x²", u"sqr", u"Square", 80, 255, 255, 0x44},  // 5.11
    {u"yˣ", u"^", u"y Raised to Power", 80, 255, 255, 0x4},  // 5.12
    {u"not x", u"not", u"Binary Not", 255, 255, 0, 0x4},  // 6.1
    {u"BRnd", u"brnd", u"Binary Random Bits", 255, 192, 224, 0x4},  // 6.2
    {},  // 6.3
    {u"Re(x)", u"re", u"Real Part", 96, 160, 160, 0x44},  // 6.4
    {u"nint(x)", u"nint", u"Nearest Integer", 96, 160, 160, 0x44},  // 6.5
    {u"acosh(x)", u"acosh", u"Hyperbolic Arc-Cosine", 128, 255, 0, 0x44},  // 6.6
    {u"acos(x)", u"acos", u"Arc-Cosine", 0, 255, 0, 0x44},  // 6.7
    {u"π", u"pi", u"Pi", 128, 255, 160, 0x4},  // 6.8
    {u"EE", nullptr, u"Exponent Entry", 255, 255, 255, 0x2},  // 6.9
    {u"−x", u"neg", u"Negate", 80, 255, 255, 0x44},  // 6.10
    {u"√x", u"sqrt", u"Square Root", 80, 255, 255, 0x44},  // 6.11
    {u"y ÷ x", u"/", u"Divide", 80, 255, 255, 0x4},  // 6.12
    {u"y Shift x", u"shift", u"Binary Shift x bits", 255, 255, 0, 0x4},  // 7.1
    {u"y Rot x", u"rot", u"Binary Rotate x bits", 255, 255, 0, 0x4},  // 7.2
    {u"#", nullptr, u"# Character (Base integer entry)", 255, 255, 255, 0x80},  // 7.3
    {u"Im(x)", u"im", u"Imaginary Part", 96, 160, 160, 0x44},  // 7.4
    {u"ceil(x)", u"ceil", u"Least Integer Not Less Than", 96, 160, 160, 0x44},  // 7.5
    {u"sinh(x)", u"sinh", u"Hyperbolic Sine", 128, 255, 0, 0x44},  // 7.6
    {u"sin(x)", u"sin", u"Sine", 0, 255, 0, 0x44},  // 7.7
    {u"i", u"i", u"Imaginary Number", 128, 255, 160, 0x4},  // 7.8
    {u"7", nullptr, u"Digit 7", 255, 255, 255, 0x2},  // 7.9
    {u"8", nullptr, u"Digit 8", 255, 255, 255, 0x2},  // 7.10
    {u"9", nullptr, u"Digit 9", 255, 255, 255, 0x2},  // 7.11
    {u"y × x", u"*", u"Multiply", 80, 255, 255, 0x4},  // 7.12
    {u"y and x", u"and", u"Binary And", 255, 255, 0, 0x4},  // 8.1
    {u"y nand x", u"nand", u"Binary Not And", 255, 255, 0, 0x4},  // 8.2
    {u"E", nullptr, u"Hex Digit E", 255, 255, 255, 0x202},  // 8.3
    {u"F", nullptr, u"Hex Digit F", 255, 255, 255, 0x202},  // 8.4
    {u"floor(x)", u"floor", u"Greatest Integer Not Greater Than", 96, 160, 160, 0x44},  // 8.5
    {u"asinh(x)", u"asinh", u"Hyperbolic Arc-Sine", 128, 255, 0, 0x44},  // 8.6
    {u"asin(x)", u"asin", u"Arc-Sine", 0, 255, 0, 0x44},  // 8.7
    {u"γ", u"eulergamma", u"Euler-Maclaurin Constant", 128, 255, 160, 0x4},  // 8.8
    {u"4", nullptr, u"Digit 4", 255, 255, 255, 0x2},  // 8.9
    {u"5", nullptr, u"Digit 5", 255, 255, 255, 0x2},  // 8.10
    {u"6", nullptr, u"Digit 6", 255, 255, 255, 0x2},  // 8.11
    {u"y − x", u"-", u"Subtraction", 80, 255, 255, 0x4},  // 8.12
    {u"y or x", u"or", u"Binary Or", 255, 255, 0, 0x4},  // 9.1
    {u"y nor x", u"nor", u"Binary Not Or", 255, 255, 0, 0x4},  // 9.2
    {u"C", nullptr, u"Hex Digit C", 255, 255, 255, 0x202},  // 9.3
    {u"D", nullptr, u"Hex Digit D", 255, 255, 255, 0x202},  // 9.4
    {u"FP(x)", u"fp", u"Fractional Part", 96, 160, 160, 0x44},  // 9.5
    {u"tanh(x)", u"tanh", u"Hyperbolic Tangent", 128, 255, 0, 0x44},  // 9.6
    {u"tan(x)", u"tan", u"Tangent", 0, 255, 0, 0x44},  // 9.7
    {u"gauss", u"gauss", u"Gaussian or Normal Random Number", 160, 80, 255, 0x4},  // 9.8
    {u"1", nullptr, u"Digit 1", 255, 255, 255, 0x2},  // 9.9
    {u"2", nullptr, u"Digit 2", 255, 255, 255, 0x2},  // 9.10
    {u"3", nullptr, u"Digit 3", 255, 255, 255, 0x2},  // 9.11
    {u"y + x", u"+", u"Addition", 80, 255, 255, 0x4},  // 9.12
    {u"y xor x", u"xor", u"Binary Exclusive Or", 255, 255, 0, 0x4},  // 10.1
    {u"y xnor x", u"xnor", u"Binary Not Exclusive Or", 255, 255, 0, 0x4},  // 10.2
    {u"A", nullptr, u"Hex Digit A", 255, 255, 255, 0x202},  // 10.3
    {u"B", nullptr, u"Hex Digit B", 255, 255, 255, 0x202},  // 10.4
    {u"IP(x)", u"ip", u"Integer Part", 96, 160, 160, 0x44},  // 10.5
    {u"atanh(x)", u"atanh", u"Hyperbolic Arc-Tangent", 128, 255, 0, 0x44},  // 10.6
    {u"atan(x)", u"atan", u"Arc-Tangent", 0, 255, 0, 0x44},  // 10.7
    {u"uniform", u"uniform", u"Uniform Random Number", 160, 80, 255, 0x4},  // 10.8
    {u"0", nullptr, u"Digit 0", 255, 255, 255, 0x2},  // 10.9
    {u".", nullptr, u"Decimal Point", 255, 255, 255, 0x2},  // 10.10
    {u"−", u"-", u"Negative Sign", 255, 255, 255, 0x2},  // 10.11
    {u"Enter", nullptr, u"Enter", 160, 160, 160, 0x1},  // 10.12
}};

// Index of row r, column c (both from 1) in ButtonTable.
constexpr std::size_t ButtonIndex(int row, int column) {
    return static_cast<std::size_t>(KeypadColumns * (row - 1) + (column - 1));
}

namespace detail {

constexpr bool sameText(const char16_t* a, const char16_t* b) {
    if (a == nullptr || b == nullptr) return a == b;
    return std::u16string_view(a) == std::u16string_view(b);
}

constexpr int buttonCount() {
    int n = 0;
    for (const ButtonDef& row : ButtonTable) n += row.label != nullptr ? 1 : 0;
    return n;
}

// Every button has a description and one primary behaviour; modifier bits
// appear only with the bit they modify; colours are bytes; labels are unique.
constexpr bool rowsWellFormed() {
    for (std::size_t i = 0; i < ButtonTable.size(); ++i) {
        const ButtonDef& row = ButtonTable[i];
        if (row.label == nullptr) {
            if (row.command != nullptr || row.description != nullptr || row.flags != 0) return false;
            continue;
        }
        if (row.description == nullptr || row.label[0] == u'\0') return false;
        if (row.red > 255 || row.green > 255 || row.blue > 255) return false;
        const uint16_t f = row.flags;
        const uint16_t primary = f & (ButtonFlag::Enter | ButtonFlag::EntryChar | ButtonFlag::Command |
                                      ButtonFlag::Special | ButtonFlag::Literal);
        if (primary == 0 || (primary & (primary - 1)) != 0) return false;
        if ((f & ButtonFlag::HexDigit) && !(f & ButtonFlag::EntryChar)) return false;
        if ((f & (ButtonFlag::RunAtOnce | ButtonFlag::OpenParen)) && !(f & ButtonFlag::Command)) return false;
        if ((f & ButtonFlag::AlgebraicOnly) && !(f & ButtonFlag::Literal)) return false;
        if ((f & (ButtonFlag::Command | ButtonFlag::Special)) && row.command == nullptr) return false;
        for (std::size_t j = 0; j < i; ++j)
            if (sameText(ButtonTable[j].label, row.label) && row.label != nullptr) return false;
    }
    return true;
}

}  // namespace detail

static_assert(ButtonTable.size() == 120, "the keypad has 10 rows of 12 positions");
static_assert(detail::buttonCount() == 109, "109 positions hold a button, 11 are empty");
static_assert(detail::rowsWellFormed(), "keypad rows must be well formed");

}  // namespace quorvel::ui
