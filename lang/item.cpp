// Item construction, the copy and release rules of each type, and the list
// operations that take Items out of an ItemList.
#include "lang/item.h"

#include <iterator>
#include <type_traits>
#include <utility>

namespace quorvel {

namespace {

// Builds a single value in place as its own alternative, with no variant in
// between; a whole variant (a duplicate's) is moved in.
template <class T>
Item makeItem(ItemType type, T&& value, const UnitVector& units = NoUnits) {
    Item item;
    item.type = type;
    item.units = units;
    if constexpr (std::is_same_v<std::decay_t<T>, Item::Value>) {
        item.value = std::forward<T>(value);
    } else {
        item.value.emplace<std::decay_t<T>>(std::forward<T>(value));
    }
    return item;
}

// The value a copy of `source` carries. Numbers and texts are copied deeply,
// a keyword row pointer is shared; Null, the reserved numeric type, Blocks and
// function calls give an empty value.
Item::Value copiedValue(const Item& source) {
    switch (source.type) {
        case ItemType::Integer:
        case ItemType::Real:
        case ItemType::Complex:
        case ItemType::String:
        case ItemType::VariableRef:
        case ItemType::Comment:
        case ItemType::Character:
        case ItemType::Keyword:
            return std::visit(
                [](const auto& v) -> Item::Value {
                    using V = std::decay_t<decltype(v)>;
                    if constexpr (std::is_same_v<V, std::unique_ptr<Block>>) {
                        return std::monostate{};   // a Block never reaches here
                    } else {
                        return v;
                    }
                },
                source.value);
        case ItemType::Null:
        case ItemType::ReservedNumeric:
        case ItemType::Block:
        case ItemType::FunctionCall:
            break;
    }
    return std::monostate{};
}

}  // namespace

Item Item::integer(BigInt n, const UnitVector& units) {
    return makeItem(ItemType::Integer, std::move(n), units);
}
Item Item::real(BigNum x, const UnitVector& units) {
    return makeItem(ItemType::Real, std::move(x), units);
}
Item Item::complex(ComplexNum z, const UnitVector& units) {
    return makeItem(ItemType::Complex, std::move(z), units);
}
Item Item::string(std::u16string text) { return makeItem(ItemType::String, std::move(text)); }
Item Item::variableRef(std::u16string name) {
    return makeItem(ItemType::VariableRef, std::move(name));
}
Item Item::functionCall(std::u16string name) {
    return makeItem(ItemType::FunctionCall, std::move(name));
}
Item Item::comment(std::u16string text) { return makeItem(ItemType::Comment, std::move(text)); }
Item Item::character(char16_t c) { return makeItem(ItemType::Character, c); }
Item Item::keyword(const KeywordEntry& row) { return makeItem(ItemType::Keyword, &row); }

void Item::clearValue() {
    // Releasing is done by the variant's destructors (numbers, texts, the Block
    // with every Item in it). The cleared state is a Character 0, not Null.
    value = char16_t{0};
    type = ItemType::Character;
    units = NoUnits;
}

Item Item::duplicate() const { return makeItem(type, copiedValue(*this), units); }

void Item::assignFrom(const Item& source) {
    if (&source == this) return;   // clearing first would lose the value
    Item copy = source.duplicate();
    clearValue();
    type = copy.type;
    units = copy.units;
    value = std::move(copy.value);
}

std::optional<Item> ItemList::pop() {
    if (items_.empty()) return std::nullopt;
    Item item = std::move(items_.front());
    items_.pop_front();
    return item;
}

std::optional<Item> ItemList::unlink(size_t index) {
    if (index >= items_.size()) return std::nullopt;
    auto where = items_.begin() + static_cast<std::ptrdiff_t>(index);
    Item item = std::move(*where);
    items_.erase(where);
    return item;
}

}  // namespace quorvel
