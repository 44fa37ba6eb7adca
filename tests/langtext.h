// Readable texts of tokens, expression trees and statements for the language
// tests, independent of the display formatter.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "lang/exprcompiler.h"
#include "lang/item.h"
#include "lang/keywords.h"
#include "lang/program.h"

namespace quorvel::test {

inline std::string ascii(std::u16string_view text) {
    std::string out;
    for (char16_t c : text) out += c < 128 ? static_cast<char>(c) : '?';
    return out;
}

inline std::u16string wide(std::string_view text) { return std::u16string(text.begin(), text.end()); }

// Decimal text of a BigInt, by repeated division of the limbs by 10.
inline std::string integerText(const BigInt& n) {
    std::vector<uint16_t> limbs = n.limbs;
    std::string digits;
    auto isZero = [&] { return std::all_of(limbs.begin(), limbs.end(), [](uint16_t l) { return l == 0; }); };
    do {
        uint32_t remainder = 0;
        for (size_t i = limbs.size(); i-- > 0;) {
            const uint32_t value = (remainder << 16) | limbs[i];
            limbs[i] = static_cast<uint16_t>(value / 10);
            remainder = value % 10;
        }
        digits += static_cast<char>('0' + remainder);
    } while (!isZero());
    if (n.sign < 0) digits += '-';
    std::reverse(digits.begin(), digits.end());
    return digits;
}

// "d.dddEexp" of a finite real, trailing zeros dropped; "0" for zero.
inline std::string realText(const BigNum& x) {
    if (x.isNaN()) return "NaN";
    if (x.isInfinite()) return x.sign < 0 ? "-inf" : "inf";
    if (x.isZero()) return "0";
    std::string digits;
    for (size_t i = x.digits.size(); i-- > 0;) {
        digits += static_cast<char>('0' + x.digits[i] / 10);
        digits += static_cast<char>('0' + x.digits[i] % 10);
    }
    while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
    std::string text = x.sign < 0 ? "-" : "";
    text += digits.substr(0, 1);
    if (digits.size() > 1) {
        text += '.';
        text.append(digits, 1, std::string::npos);
    }
    text += 'E';
    text += std::to_string(x.exponent);
    return text;
}

// Integers in decimal, reals as "r" plus "d.dddEexp", strings in double
// quotes, variable references with "@", keywords by name, characters in
// single quotes, comments from "//", function calls as "call:name".
inline std::string describe(const Item& item) {
    switch (item.type) {
        case ItemType::Integer: return integerText(item.asInteger());
        case ItemType::Real: return "r" + realText(item.asReal());
        case ItemType::String: return "\"" + ascii(item.asText()) + "\"";
        case ItemType::VariableRef: return "@" + ascii(item.asText());
        case ItemType::Keyword: return ascii(item.asKeyword().name);
        case ItemType::Character: return "'" + ascii(std::u16string(1, item.asCharacter())) + "'";
        case ItemType::Comment: return "//" + ascii(item.asText());
        case ItemType::FunctionCall: return "call:" + ascii(item.asText());
        case ItemType::Complex: return "complex";
        case ItemType::Block: return "block";
        case ItemType::ReservedNumeric: return "reserved";
        case ItemType::Null: return "null";
    }
    return "?";
}

// The items of a list from the head, joined with " | ".
inline std::string describe(const ItemList& list) {
    std::string out;
    for (const Item& item : list) {
        if (!out.empty()) out += " | ";
        out += describe(item);
    }
    return out;
}

// "op(child, child)"; a group is "group(...)"; a function call "f(...)".
inline std::string describe(const ExprNode& node) {
    std::string text;
    if (node.item.type == ItemType::Character && node.item.asCharacter() == u'(') text = "group";
    else if (node.item.type == ItemType::FunctionCall) text = ascii(node.item.asText());
    else text = describe(node.item);
    if (node.children.empty()) return node.item.type == ItemType::Character ? text + "()" : text;
    text += "(";
    for (size_t i = 0; i < node.children.size(); ++i) text += (i ? ", " : "") + describe(node.children[i]);
    return text + ")";
}

inline std::string describe(const ExprList& nodes) {
    std::string out;
    for (const ExprNode& node : nodes) out += (out.empty() ? "" : " ; ") + describe(node);
    return out;
}

inline std::string describe(const Statement& s);

inline std::string describePart(const std::unique_ptr<Statement>& part) { return part ? describe(*part) : "none"; }
inline std::string describeCondition(const Statement& s) { return s.expression ? describe(*s.expression) : "none"; }

// block{a; b}, expr(...), return, if(c) then else e, while(c) body,
// do body while(c), function f body.
inline std::string describe(const Statement& s) {
    switch (s.kind) {
        case StatementKind::Block: {
            std::string out = "block{";
            for (size_t i = 0; i < s.children.size(); ++i) out += (i ? "; " : "") + describe(s.children[i]);
            return out + "}";
        }
        case StatementKind::Expression: return "expr(" + describeCondition(s) + ")";
        case StatementKind::Return: return "return";
        case StatementKind::Function: return "function " + ascii(s.name.asText()) + " " + describePart(s.body);
        case StatementKind::If:
            return "if(" + describeCondition(s) + ") " + describePart(s.body) +
                   (s.elsePart ? " else " + describe(*s.elsePart) : "");
        case StatementKind::While: return "while(" + describeCondition(s) + ") " + describePart(s.body);
        case StatementKind::Do: return "do " + describePart(s.body) + " while(" + describeCondition(s) + ")";
    }
    return "kind?";
}

}  // namespace quorvel::test
