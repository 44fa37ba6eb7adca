// Item: the one value record of the calculator, and ItemList, the list that
// holds Items (the main stack is one; its head is the top of the stack).
//
// Items are move-only values; a deep copy is made only on purpose with
// duplicate() or assignFrom(), following the copy rules of each type.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/complex.h"
#include "units/unitvector.h"

namespace quorvel {

struct KeywordEntry;
struct Item;

enum class ItemType : int32_t {
    Null = 0,
    Integer = 1,
    ReservedNumeric = 2,   // counted as numeric; never produced
    Real = 3,
    Complex = 4,
    Block = 5,
    String = 6,
    VariableRef = 7,
    Character = 8,
    Keyword = 9,
    FunctionCall = 10,
    Comment = 11,
};

// Owned array of Items (type 5). Nothing in the command language makes one.
struct Block {
    std::vector<Item> items;
};

struct Item {
    using Value = std::variant<std::monostate,            // Null, ReservedNumeric, cleared
                               BigInt,                    // Integer
                               BigNum,                    // Real
                               ComplexNum,                // Complex
                               std::unique_ptr<Block>,    // Block
                               std::u16string,            // String, VariableRef, FunctionCall, Comment
                               char16_t,                  // Character
                               const KeywordEntry*>;      // Keyword (shared static row)

    ItemType type = ItemType::Null;
    UnitVector units{};
    Value value;

    Item() = default;
    Item(Item&&) noexcept = default;
    Item& operator=(Item&&) noexcept = default;
    Item(const Item&) = delete;
    Item& operator=(const Item&) = delete;

    static Item integer(BigInt n, const UnitVector& units = {});
    static Item real(BigNum x, const UnitVector& units = {});
    static Item complex(ComplexNum z, const UnitVector& units = {});
    static Item string(std::u16string text);
    static Item variableRef(std::u16string name);
    static Item functionCall(std::u16string name);
    static Item comment(std::u16string text);
    static Item character(char16_t c);
    static Item keyword(const KeywordEntry& row);

    // Releases the value and leaves the cleared state: type Character with the
    // character 0 and no units (deliberately not Null).
    void clearValue();
    // A new Item with the same units and type and a deep copy of the value;
    // Block, FunctionCall, Null and ReservedNumeric copies get an empty value.
    Item duplicate() const;
    // Clears this Item, then copies units, type and value from source by the
    // rules of duplicate().
    void assignFrom(const Item& source);

    bool isNumeric() const {
        return type == ItemType::Integer || type == ItemType::ReservedNumeric ||
               type == ItemType::Real || type == ItemType::Complex;
    }

    // Typed access; valid only for the matching type.
    const BigInt& asInteger() const { return std::get<BigInt>(value); }
    const BigNum& asReal() const { return std::get<BigNum>(value); }
    const ComplexNum& asComplex() const { return std::get<ComplexNum>(value); }
    const std::u16string& asText() const { return std::get<std::u16string>(value); }
    char16_t asCharacter() const { return std::get<char16_t>(value); }
    const KeywordEntry& asKeyword() const { return *std::get<const KeywordEntry*>(value); }
};

// A list of Items whose head is the top of a stack. Token lists use the same
// type with the first token at the head.
class ItemList {
public:
    // Puts an Item at the head.
    void push(Item item) { items_.push_front(std::move(item)); }
    // Appends an Item at the tail.
    void append(Item item) { items_.push_back(std::move(item)); }
    // Takes the head off; none when the list is empty.
    std::optional<Item> pop();
    // Takes the Item at `index` (0 = head) out of the list; an index past the
    // end is no element and nothing happens.
    std::optional<Item> unlink(size_t index);
    // Destroys every Item.
    void freeAll() { items_.clear(); }

    int32_t count() const { return static_cast<int32_t>(items_.size()); }
    bool empty() const { return items_.empty(); }
    // Item at `index` from the head (0 = top); nullptr past the end.
    Item* at(size_t index) { return index < items_.size() ? &items_[index] : nullptr; }
    const Item* at(size_t index) const { return index < items_.size() ? &items_[index] : nullptr; }
    Item* head() { return at(0); }
    Item* tail() { return items_.empty() ? nullptr : &items_.back(); }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::deque<Item> items_;
};

}  // namespace quorvel
