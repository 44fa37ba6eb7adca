// Reading the numeric test-vector files of tests/data and building their values
// without the parsers under test.
#pragma once

#include <cstdint>
#include <fstream>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "numeric/bigint.h"
#include "numeric/bignum.h"

namespace quorvel::testvectors {

// One line of a vector file: its operation word, the fields before "->", the
// fields after it, and the line number for the test name.
struct VectorCase {
    std::string op;
    std::vector<std::string> args;
    std::vector<std::string> expected;
    int line = 0;
};

// All cases of `fileName` in the test data folder whose operation is in `ops`
// (every case when `ops` is empty). Blank lines and '#' comments are skipped.
inline std::vector<VectorCase> loadVectorCases(const std::string& fileName, const std::set<std::string>& ops = {}) {
    std::vector<VectorCase> cases;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/" + fileName);
    std::string text;
    int line = 0;
    while (std::getline(in, text)) {
        ++line;
        if (text.empty() || text[0] == '#') continue;
        std::istringstream words(text);
        VectorCase c;
        c.line = line;
        words >> c.op;
        if (!ops.empty() && !ops.count(c.op)) continue;
        bool after = false;
        for (std::string w; words >> w;) {
            if (w == "->") after = true;
            else (after ? c.expected : c.args).push_back(w);
        }
        cases.push_back(std::move(c));
    }
    return cases;
}

// Test name of a case: operation and line number.
inline std::string vectorCaseName(const VectorCase& c) { return c.op + "_line" + std::to_string(c.line); }

// An integer from hexadecimal text with an optional '-', limb by limb.
inline BigInt bigIntFromHex(const std::string& text) {
    BigInt n;
    size_t start = 0;
    int8_t sign = 1;
    if (!text.empty() && text[0] == '-') {
        sign = -1;
        start = 1;
    }
    n.limbs.clear();
    uint32_t limb = 0;
    int bits = 0;
    for (size_t i = text.size(); i-- > start;) {
        const char c = text[i];
        const uint32_t v = c <= '9' ? static_cast<uint32_t>(c - '0') : static_cast<uint32_t>(c - 'A' + 10);
        limb |= v << bits;
        bits += 4;
        if (bits == 16) {
            n.limbs.push_back(static_cast<uint16_t>(limb));
            limb = 0;
            bits = 0;
        }
    }
    if (bits != 0 || n.limbs.empty()) n.limbs.push_back(static_cast<uint16_t>(limb));
    while (n.limbs.size() > 1 && n.limbs.back() == 0) n.limbs.pop_back();
    n.sign = (n.limbs.size() == 1 && n.limbs[0] == 0) ? 0 : sign;
    return n;
}

// Hexadecimal text of an integer, for failure messages.
inline std::string bigIntToHex(const BigInt& n) {
    static const char* const hex = "0123456789ABCDEF";
    std::string out;
    for (uint16_t limb : n.limbs) {
        for (int k = 0; k < 4; ++k) out.push_back(hex[(limb >> (4 * k)) & 15]);
    }
    while (out.size() > 1 && out.back() == '0') out.pop_back();
    if (n.sign < 0) out.push_back('-');
    return std::string(out.rbegin(), out.rend());
}

// A finite BigNum from its fields: byte length, sign (+, -, 0), exponent and
// all 2L mantissa digits, most significant first.
inline BigNum bigNumFromFields(const std::string& length, const std::string& sign, const std::string& exponent,
                               const std::string& digits) {
    BigNum x;
    const int32_t n = std::stoi(length);
    x.digits.assign(static_cast<size_t>(n), 0);
    for (int32_t i = 0; i < 2 * n && i < static_cast<int32_t>(digits.size()); ++i) {
        uint8_t& pair = x.digits[static_cast<size_t>(n - 1 - i / 2)];
        pair = static_cast<uint8_t>(pair + (digits[static_cast<size_t>(i)] - '0') * (i % 2 == 0 ? 10 : 1));
    }
    x.exponent = std::stoi(exponent);
    x.sign = sign == "+" ? 1 : sign == "-" ? -1 : 0;
    return x;
}

// All 2L mantissa digits of a BigNum, most significant first.
inline std::string mantissaDigits(const BigNum& x) {
    std::string out;
    for (int32_t i = x.length(); i-- > 0;) {
        out.push_back(static_cast<char>('0' + x.digits[static_cast<size_t>(i)] / 10));
        out.push_back(static_cast<char>('0' + x.digits[static_cast<size_t>(i)] % 10));
    }
    return out;
}

inline std::string signText(int8_t sign) { return sign > 0 ? "+" : sign < 0 ? "-" : "0"; }

// A case of a vector file whose first argument is "D=n": the Digits it is
// shown at, and the function's own arguments after it.
struct DigitsCase {
    VectorCase c;
    int digits = 0;
    std::vector<std::string> args;   // without the D= field
};

// Failure messages name the case by its line rather than dumping its bytes.
inline void PrintTo(const DigitsCase& e, std::ostream* os) { *os << e.c.op << " line " << e.c.line; }

inline std::vector<DigitsCase> loadDigitsCases(const std::string& fileName) {
    std::vector<DigitsCase> out;
    for (VectorCase& c : loadVectorCases(fileName)) {
        DigitsCase e;
        e.digits = std::stoi(c.args.at(0).substr(2));
        e.args.assign(c.args.begin() + 1, c.args.end());
        e.c = std::move(c);
        out.push_back(std::move(e));
    }
    return out;
}

// The key of a case in a known-limits file: "op D=n args...".
inline std::string caseKey(const DigitsCase& e) {
    std::string key = e.c.op + " D=" + std::to_string(e.digits);
    for (const std::string& a : e.args) key += " " + a;
    return key;
}

// A known-limits file: key -> bound in units of the last shown digit, from
// lines "key -> within bound  # reason".
inline std::map<std::string, double> loadKnownLimits(const std::string& fileName) {
    std::map<std::string, double> limits;
    std::ifstream in(std::string(QUORVEL_TEST_DATA) + "/" + fileName);
    std::string text;
    while (std::getline(in, text)) {
        if (text.empty() || text[0] == '#') continue;
        const std::size_t arrow = text.find(" -> ");
        if (arrow == std::string::npos) continue;
        std::istringstream rest(text.substr(arrow + 4));
        std::string word;
        double bound = 0;
        rest >> word >> bound;
        if (word == "within") limits[text.substr(0, arrow)] = bound;
    }
    return limits;
}

}  // namespace quorvel::testvectors
