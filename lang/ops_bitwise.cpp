// The bitwise operations `and`, `nand`, `or`, `nor`, `xor`, `xnor`, `not`,
// `shift` and `rot`. Each Integer operand without units becomes a binary word
// of the current word size (a negative one in two's complement); the result
// is read back as a non-negative Integer without units, so it always lies in
// 0 .. 2^WSize - 1. Other types give "Invalid Data Type", units "Invalid
// Units", and a word size of 0 (or a negative one, which makes no word)
// "Invalid Word Size"; the operands then go back unchanged.
#include <optional>

#include "lang/handler.h"
#include "lang/handlers.h"
#include "lang/ops_values.h"
#include "numeric/binword.h"

namespace quorvel {

namespace {

// The refusal for operands a bitwise operation does not take, checked in the
// order type, units, word size.
template <class... Operands>
std::optional<Refusal> bitwiseRefusal(const AppState& app, const Operands&... operands) {
    if (((operands.type != ItemType::Integer) || ...)) return Refusal{InvalidDataType};
    if ((hasUnits(operands.units) || ...)) return Refusal{InvalidUnits};
    if (app.wsize <= 0) return Refusal{InvalidWordSize};
    return std::nullopt;
}

BinWord wordOf(const AppState& app, const Item& item) { return wordFromInteger(item.asInteger(), app.wsize); }

Item wordResult(const BinWord& word) { return Item::integer(integerFromWord(word)); }

using WordOperation = BinWord (*)(const BinWord&, const BinWord&);

// y op x.
template <WordOperation operation>
void logical(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) -> Outcome {
        if (auto refusal = bitwiseRefusal(a, x, y)) return *refusal;
        return wordResult(operation(wordOf(a, y), wordOf(a, x)));
    });
}

using WordMove = void (*)(BinWord&, int32_t);

// y moved by the count x. A count of 0, or one too large to read as a signed
// 32-bit value (more than 31 bits), leaves y as it is: the result is a copy
// of the operand itself, not of its word.
template <WordMove move>
void moveBits(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) -> Outcome {
        if (auto refusal = bitwiseRefusal(a, x, y)) return *refusal;
        int32_t count = 0;
        if (!BigIntToInt32(x.asInteger(), count) || count == 0) return y.duplicate();
        BinWord word = wordOf(a, y);
        move(word, count);
        return wordResult(word);
    });
}

}  // namespace

void opAnd(AppState& app, ItemList& list) { logical<andWords>(app, list); }
void opNand(AppState& app, ItemList& list) { logical<nandWords>(app, list); }
void opOr(AppState& app, ItemList& list) { logical<orWords>(app, list); }
void opNor(AppState& app, ItemList& list) { logical<norWords>(app, list); }
void opXor(AppState& app, ItemList& list) { logical<xorWords>(app, list); }
void opXnor(AppState& app, ItemList& list) { logical<xnorWords>(app, list); }

void opNot(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState& a, const Item& x) -> Outcome {
        if (auto refusal = bitwiseRefusal(a, x)) return *refusal;
        BinWord word = wordOf(a, x);
        invertWord(word);
        return wordResult(word);
    });
}

// `shift`: y shifted by x bits, toward the more significant end for x > 0.
void opShift(AppState& app, ItemList& list) { moveBits<shiftWord>(app, list); }
// `rot`: y rotated by x, the count reduced modulo the number of 16-bit limbs.
void opRot(AppState& app, ItemList& list) { moveBits<rotateWord>(app, list); }

}  // namespace quorvel
