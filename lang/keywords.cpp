// The keyword table and its two lookups. The table is one constexpr array in
// its stored order, bucket by bucket; the first-letter bucket index is derived
// from the rows at compile time, and everything that can be checked about the
// rows is checked there too.
#include "lang/keywords.h"

#include <array>
#include <cstdlib>

#include "lang/handlers.h"

namespace quorvel {

namespace {

constexpr uint32_t flags(uint32_t precedence, uint32_t operands) {
    return precedence | (operands << 8);
}

// Stored order: buckets p, b, g, s, n, operators, l, m, z, o, u, i, e, r, w,
// t, x, c, d, y, h, f, a. Lookup goes through the bucket index, so the order
// of buckets does not matter, but within the operator bucket every two-character
// operator comes before the one-character operator that is its prefix.
constexpr std::array<KeywordEntry, KeywordCount> Table{{
    // p
    {u"perm", opPerm, 82, flags(8, 2)},
    {u"pi", opPi, 83, flags(11, 0)},
    {u"pop", opPop, 85, flags(9, 1)},
    {u"pow", opPow, 84, flags(7, 2)},
    {u"print", opPrint, 86, flags(9, 1)},
    {u"push", opPush, 87, flags(9, 1)},
    // b
    {u"base", opBase, 15, flags(9, 1)},
    {u"bern", opBern, 16, flags(9, 1)},
    {u"bi", opBi, 17, flags(9, 1)},
    {u"bin", opBin, 18, flags(0, 0)},
    {u"brnd", opBrnd, 19, flags(9, 0)},
    // g
    {u"gamma", opGamma, 53, flags(9, 1)},
    {u"gauss", opGauss, 54, flags(9, 0)},
    // s
    {u"sci", opSci, 96, flags(9, 1)},
    {u"sfresnel", opSfresnel, 97, flags(9, 1)},
    {u"shift", opShift, 98, flags(9, 2)},
    {u"sin", opSin, 99, flags(9, 1)},
    {u"sinc", opSinc, 100, flags(9, 1)},
    {u"sinh", opSinh, 101, flags(9, 1)},
    {u"sqr", opSqr, 102, flags(9, 1)},
    {u"sqrt", opSqrt, 103, flags(9, 1)},
    {u"std", opStd, 104, flags(9, 1)},
    {u"sto", opSto, 105, flags(9, 2)},
    {u"sub", opSub, 106, flags(5, 2)},
    {u"swap", opSwap, 108, flags(0, 0)},
    // n
    {u"neg", opNeg, 74, flags(8, 1)},
    {u"nand", opNand, 73, flags(4, 2)},
    {u"nint", opNint, 76, flags(9, 1)},
    {u"nor", opNor, 77, flags(3, 2)},
    {u"not", opNot, 78, flags(10, 1)},
    // operators, longest match first
    {u"+=", opAddAssign, 5, flags(1, 2)},
    {u"-=", opSubAssign, 107, flags(1, 2)},
    {u"+", opAdd, 4, flags(5, 2)},
    {u"-", opSub, 106, flags(5, 2)},
    {u"*=", opMulAssign, 72, flags(1, 2)},
    {u"/=", opDivAssign, 33, flags(1, 2)},
    {u"//", opNothing, 24, flags(0, 0)},
    {u"==", opEqual, 39, flags(4, 2)},
    {u"!=", opNotEqual, 75, flags(4, 2)},
    {u">=", opGreaterEqual, 55, flags(4, 2)},
    {u"<=", opLessEqual, 68, flags(4, 2)},
    {u">", opGreater, 56, flags(4, 2)},
    {u"<", opLess, 69, flags(4, 2)},
    {u"*", opMul, 71, flags(6, 2)},
    {u"/", opDiv, 32, flags(6, 2)},
    {u"^", opPow, 84, flags(7, 2)},
    {u"!", opFact, 47, flags(10, 1)},
    {u"=", opAssign, 11, flags(1, 2)},
    // l
    {u"ln", opLn, 65, flags(9, 1)},
    {u"ln2", opLog2, 67, flags(9, 1)},
    {u"ln10", opLog10, 66, flags(9, 1)},
    {u"log", opLog10, 66, flags(9, 1)},
    {u"log2", opLog2, 67, flags(9, 1)},
    {u"log10", opLog10, 66, flags(9, 1)},
    // m
    {u"mod", opMod, 70, flags(6, 2)},
    {u"mul", opMul, 71, flags(6, 2)},
    // z
    {u"z", opZ, 119, flags(11, 0)},
    // o
    {u"oct", opOct, 80, flags(0, 0)},
    {u"or", opOr, 81, flags(3, 2)},
    // u
    {u"uniform", opUniform, 111, flags(9, 0)},
    {u"unit", opUnit, 112, flags(9, 1)},
    // i
    {u"i", opI, 58, flags(11, 0)},
    {u"if", opNothing, 59, flags(0, 0)},
    {u"im", opIm, 60, flags(9, 1)},
    {u"inf", opInf, 61, flags(11, 0)},
    {u"input", opInput, 62, flags(9, 1)},
    {u"inv", opInv, 63, flags(9, 1)},
    {u"ip", opIp, 64, flags(9, 1)},
    // e
    {u"e", opE, 37, flags(11, 0)},
    {u"else", opNothing, 38, flags(0, 0)},
    {u"erf", opErf, 40, flags(9, 1)},
    {u"euler", opEuler, 41, flags(9, 1)},
    {u"eulergamma", opEulergamma, 42, flags(11, 0)},
    {u"exit", opExit, 43, flags(0, 0)},
    {u"exp", opExp, 44, flags(9, 1)},
    {u"exp2", opExp2, 45, flags(9, 1)},
    {u"exp10", opExp10, 46, flags(9, 1)},
    // r
    {u"rad", opRad, 88, flags(9, 1)},
    {u"rcl", opRcl, 89, flags(9, 1)},
    {u"re", opRe, 90, flags(9, 1)},
    {u"red", opRed, 91, flags(6, 2)},
    {u"remunits", opRemunits, 92, flags(9, 1)},
    {u"return", opNothing, 93, flags(0, 0)},
    {u"roll", opRoll, 94, flags(0, 0)},
    {u"rot", opRot, 95, flags(9, 2)},
    // w
    {u"while", opNothing, 113, flags(0, 0)},
    {u"wsize", opWsize, 114, flags(9, 1)},
    // t
    {u"tan", opTan, 109, flags(9, 1)},
    {u"tanh", opTanh, 110, flags(9, 1)},
    // x
    {u"x", opDup, 115, flags(11, 0)},
    {u"xnor", opXnor, 116, flags(3, 2)},
    {u"xor", opXor, 117, flags(3, 2)},
    // c
    {u"ceil", opCeil, 20, flags(9, 1)},
    {u"cfresnel", opCfresnel, 21, flags(9, 1)},
    {u"clear", opClear, 22, flags(0, 0)},
    {u"clrmem", opClrmem, 23, flags(0, 0)},
    {u"comb", opComb, 25, flags(8, 2)},
    {u"conj", opConj, 26, flags(9, 1)},
    {u"const", opConst, 27, flags(9, 1)},
    {u"cos", opCos, 28, flags(9, 1)},
    {u"cosh", opCosh, 29, flags(9, 1)},
    // d
    {u"dec", opDec, 30, flags(0, 0)},
    {u"deg", opDeg, 31, flags(9, 1)},
    {u"div", opDiv, 32, flags(6, 2)},
    {u"do", opNothing, 34, flags(0, 0)},
    {u"drop", opDrop, 35, flags(0, 0)},
    {u"dup", opDup, 36, flags(0, 0)},
    // y
    {u"y", opY, 118, flags(11, 0)},
    // h
    {u"hex", opHex, 57, flags(0, 0)},
    // f
    {u"fact", opFact, 47, flags(10, 1)},
    {u"fix", opFix, 48, flags(9, 1)},
    {u"floor", opFloor, 49, flags(9, 1)},
    {u"fp", opFp, 50, flags(9, 1)},
    {u"fresnel", opFresnel, 51, flags(9, 1)},
    {u"function", opNothing, 52, flags(0, 0)},
    // a
    {u"applyunits", opApplyunits, 8, flags(10, 2)},
    {u"abs", opAbs, 1, flags(9, 1)},
    {u"acos", opAcos, 2, flags(9, 1)},
    {u"acosh", opAcosh, 3, flags(9, 1)},
    {u"add", opAdd, 4, flags(9, 2)},
    {u"ai", opAi, 6, flags(9, 1)},
    {u"and", opAnd, 7, flags(4, 2)},
    {u"asin", opAsin, 9, flags(9, 1)},
    {u"asinh", opAsinh, 10, flags(9, 1)},
    {u"atan", opAtan, 12, flags(9, 1)},
    {u"atan2", opAtan2, 13, flags(9, 2)},
    {u"atanh", opAtanh, 14, flags(9, 1)},
}};

// --- Buckets -----------------------------------------------------------------

constexpr int LetterBuckets = 26;
constexpr int OperatorBucket = 26;   // also everything that is not a letter
constexpr int BucketCount = 27;

// The bucket of a first character: a..z and A..Z give 0..25; anything else
// (taken as an unsigned 16-bit distance from 'A') is capped at 26.
constexpr int bucketOf(char16_t first) {
    if (first >= u'a' && first <= u'z') first = static_cast<char16_t>(first - u'a' + u'A');
    const auto distance = static_cast<uint16_t>(first - u'A');
    return distance < OperatorBucket ? distance : OperatorBucket;
}

struct Span {
    int begin = 0;
    int end = 0;   // one past the last row; begin == end for an empty bucket
};

constexpr std::array<Span, BucketCount> makeIndex() {
    std::array<Span, BucketCount> index{};
    for (int b = 0; b < BucketCount; ++b) {
        int i = 0;
        while (i < KeywordCount && bucketOf(Table[i].name[0]) != b) ++i;
        int j = i;
        while (j < KeywordCount && bucketOf(Table[j].name[0]) == b) ++j;
        index[b] = {i, j};
    }
    return index;
}

constexpr std::array<Span, BucketCount> Index = makeIndex();

// --- Compile-time checks of the rows -----------------------------------------

constexpr int length(const char16_t* s) {
    int n = 0;
    while (s[n] != 0) ++n;
    return n;
}

constexpr bool sameText(const char16_t* a, const char16_t* b) {
    int i = 0;
    while (a[i] != 0 && a[i] == b[i]) ++i;
    return a[i] == b[i];
}

constexpr bool isPrefix(const char16_t* prefix, const char16_t* s) {
    for (int i = 0; prefix[i] != 0; ++i)
        if (prefix[i] != s[i]) return false;
    return true;
}

// Each bucket's rows are contiguous: every row lies inside its bucket's span.
constexpr bool bucketsContiguous() {
    int rowsInSpans = 0;
    for (const Span& span : Index) rowsInSpans += span.end - span.begin;
    return rowsInSpans == KeywordCount;
}

constexpr int nonEmptyBuckets(int first, int last) {
    int n = 0;
    for (int b = first; b <= last; ++b) n += Index[b].begin != Index[b].end;
    return n;
}

constexpr bool emptyBucket(char16_t letter) {
    const Span span = Index[bucketOf(letter)];
    return span.begin == span.end;
}

constexpr bool namesUnique() {
    for (int i = 0; i < KeywordCount; ++i)
        for (int j = i + 1; j < KeywordCount; ++j)
            if (sameText(Table[i].name, Table[j].name)) return false;
    return true;
}

// Words are lower-case letters and digits; operators are punctuation.
constexpr bool wordsLowerCase() {
    for (const KeywordEntry& row : Table) {
        if (bucketOf(row.name[0]) == OperatorBucket) continue;
        for (int i = 0; row.name[i] != 0; ++i) {
            const char16_t c = row.name[i];
            if (!((c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9'))) return false;
        }
    }
    return true;
}

constexpr bool rowFieldsValid() {
    for (const KeywordEntry& row : Table) {
        if (length(row.name) == 0) return false;   // handlers are named functions, never null
        if (row.tokenId < 1 || row.tokenId > 119 || row.tokenId == 79) return false;
        if (row.flags > 0xFFFF) return false;
        const int precedence = row.precedence();
        const int operands = row.operandCount();
        if (precedence > 11 || precedence == 2 || operands > 2) return false;
        // Commands and values take no operands through the compiler.
        if ((precedence == 0 || precedence == 11) && operands != 0) return false;
    }
    return true;
}

// Every id from 1 to 119 except 79 names an operation.
constexpr bool tokenIdsComplete() {
    for (uint32_t id = 1; id <= 119; ++id) {
        bool used = false;
        for (const KeywordEntry& row : Table) used = used || row.tokenId == id;
        if (used != (id != 79)) return false;
    }
    return true;
}

// Rows that share a token id are aliases of one operation: one handler.
constexpr bool aliasesShareHandler() {
    for (const KeywordEntry& a : Table)
        for (const KeywordEntry& b : Table)
            if (a.tokenId == b.tokenId && a.handler != b.handler) return false;
    return true;
}

// Longest match: no operator is preceded by a row whose symbol is its prefix.
constexpr bool operatorsLongestFirst() {
    const Span ops = Index[OperatorBucket];
    for (int i = ops.begin; i < ops.end; ++i)
        for (int j = i + 1; j < ops.end; ++j)
            if (isPrefix(Table[i].name, Table[j].name)) return false;
    return true;
}

constexpr const KeywordEntry* rowNamed(const char16_t* name) {
    for (const KeywordEntry& row : Table)
        if (sameText(row.name, name)) return &row;
    return nullptr;
}

constexpr uint32_t tokenOf(const char16_t* name) {
    const KeywordEntry* row = rowNamed(name);
    return row ? row->tokenId : 0;
}

static_assert(Table.size() == 127);
static_assert(bucketsContiguous(), "a bucket's rows must be stored together");
static_assert(nonEmptyBuckets(0, LetterBuckets - 1) == 22, "22 letters have keywords");
static_assert(Index[OperatorBucket].end - Index[OperatorBucket].begin == 18, "18 operators");
static_assert(emptyBucket(u'J') && emptyBucket(u'K') && emptyBucket(u'Q') && emptyBucket(u'V'));
static_assert(namesUnique());
static_assert(wordsLowerCase());
static_assert(rowFieldsValid());
static_assert(tokenIdsComplete());
static_assert(aliasesShareHandler());
static_assert(operatorsLongestFirst());
static_assert(tokenOf(u"+") == TokenAdd && tokenOf(u"add") == TokenAdd);
static_assert(tokenOf(u"-") == TokenSub && tokenOf(u"sub") == TokenSub);
static_assert(tokenOf(u"//") == TokenComment);
static_assert(rowNamed(u"x")->handler == rowNamed(u"dup")->handler);
static_assert(rowNamed(u"//")->handler == rowNamed(u"if")->handler &&
              rowNamed(u"if")->handler == rowNamed(u"function")->handler);

// --- Lookup helpers ----------------------------------------------------------

constexpr char16_t foldCase(char16_t c) {
    return (c >= u'A' && c <= u'Z') ? static_cast<char16_t>(c - u'A' + u'a') : c;
}

}  // namespace

std::span<const KeywordEntry> KeywordRows() { return Table; }

const KeywordEntry* FindWord(std::u16string_view name) {
    if (name.empty()) return nullptr;
    const Span span = Index[bucketOf(name.front())];
    for (int i = span.begin; i < span.end; ++i)
        if (name == Table[i].name) return &Table[i];
    return nullptr;
}

const KeywordEntry* FindOperator(std::u16string_view text) {
    const Span span = Index[OperatorBucket];
    for (int i = span.begin; i < span.end; ++i) {
        const std::u16string_view symbol = Table[i].name;
        if (text.size() < symbol.size()) continue;
        bool equal = true;
        for (size_t k = 0; k < symbol.size() && equal; ++k)
            equal = foldCase(text[k]) == foldCase(symbol[k]);
        if (equal) return &Table[i];
    }
    return nullptr;
}

const KeywordEntry& KeywordRow(std::u16string_view name) {
    for (const KeywordEntry& row : Table)
        if (name == row.name) return row;
    // Only code names rows, and only rows that exist; a wrong name is a
    // programming error that no input can cause.
    std::abort();
}

}  // namespace quorvel
