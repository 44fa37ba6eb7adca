// The little-endian Item record and the stack and memory files built of it.
#include "store/item_record.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace quorvel {

namespace {

// Bytes are fetched at most this many at a time, so a damaged count in a short
// file fails at the end of the file instead of allocating what it claims.
constexpr size_t ReadChunk = 64 * 1024;
constexpr int32_t HighestItemType = static_cast<int32_t>(ItemType::Comment);

// --- Writing -----------------------------------------------------------------

void putByte(std::ostream& out, uint8_t byte) { out.put(static_cast<char>(byte)); }

void putU16(std::ostream& out, uint16_t value) {
    putByte(out, static_cast<uint8_t>(value & 0xFF));
    putByte(out, static_cast<uint8_t>(value >> 8));
}

void putI32(std::ostream& out, int32_t value) {
    const auto bits = static_cast<uint32_t>(value);
    for (int shift = 0; shift < 32; shift += 8) putByte(out, static_cast<uint8_t>(bits >> shift));
}

void putCount(std::ostream& out, size_t count) { putI32(out, static_cast<int32_t>(count)); }

void putInteger(std::ostream& out, const BigInt& n) {
    putCount(out, n.limbs.size());
    for (uint16_t limb : n.limbs) putU16(out, limb);
    putByte(out, static_cast<uint8_t>(n.sign));
}

void putReal(std::ostream& out, const BigNum& x) {
    putCount(out, x.digits.size());
    out.write(reinterpret_cast<const char*>(x.digits.data()), static_cast<std::streamsize>(x.digits.size()));
    putI32(out, x.exponent);
    putByte(out, static_cast<uint8_t>(x.sign));
    putByte(out, static_cast<uint8_t>(x.kind));
}

// A text is written with its terminating zero, as the count says.
void putText(std::ostream& out, const std::u16string& text) {
    putCount(out, text.size() + 1);
    for (char16_t unit : text) putU16(out, static_cast<uint16_t>(unit));
    putU16(out, 0);
}

// --- Reading -----------------------------------------------------------------

// Reads exactly `count` bytes into `bytes`, growing it chunk by chunk.
bool getBytes(std::istream& in, size_t count, std::vector<uint8_t>& bytes) {
    bytes.clear();
    while (bytes.size() < count) {
        const size_t done = bytes.size();
        const size_t step = std::min(ReadChunk, count - done);
        bytes.resize(done + step);
        in.read(reinterpret_cast<char*>(bytes.data() + done), static_cast<std::streamsize>(step));
        if (static_cast<size_t>(in.gcount()) != step) return false;
    }
    return true;
}

template <size_t N>
bool getFixed(std::istream& in, std::array<uint8_t, N>& bytes) {
    in.read(reinterpret_cast<char*>(bytes.data()), N);
    return static_cast<size_t>(in.gcount()) == N;
}

bool getI32(std::istream& in, int32_t& value) {
    std::array<uint8_t, 4> b{};
    if (!getFixed(in, b)) return false;
    value = static_cast<int32_t>(static_cast<uint32_t>(b[0]) | static_cast<uint32_t>(b[1]) << 8 |
                                 static_cast<uint32_t>(b[2]) << 16 | static_cast<uint32_t>(b[3]) << 24);
    return true;
}

bool getI16(std::istream& in, int16_t& value) {
    std::array<uint8_t, 2> b{};
    if (!getFixed(in, b)) return false;
    value = static_cast<int16_t>(static_cast<uint16_t>(b[0] | b[1] << 8));
    return true;
}

bool getI8(std::istream& in, int8_t& value) {
    std::array<uint8_t, 1> b{};
    if (!getFixed(in, b)) return false;
    value = static_cast<int8_t>(b[0]);
    return true;
}

// A count of 16-bit units: never negative.
bool getUnitCount(std::istream& in, size_t& count) {
    int32_t raw = 0;
    if (!getI32(in, raw) || raw < 0) return false;
    count = static_cast<size_t>(raw);
    return true;
}

std::optional<BigInt> getInteger(std::istream& in) {
    size_t count = 0;
    std::vector<uint8_t> bytes;
    int8_t sign = 0;
    if (!getUnitCount(in, count) || !getBytes(in, 2 * count, bytes) || !getI8(in, sign)) return std::nullopt;
    BigInt n;
    n.limbs.resize(count);
    for (size_t i = 0; i < count; ++i)
        n.limbs[i] = static_cast<uint16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
    // The value the limbs hold with the sign they were written with; a count of
    // 0 reads as zero, leading zero limbs are dropped.
    n.sign = sign < 0 ? -1 : (sign > 0 ? 1 : 0);
    trim(n);
    return n;
}

std::optional<BigNum> getReal(std::istream& in) {
    int32_t length = 0;
    if (!getI32(in, length) || length < 2 || length > MaxRecordMantissaBytes) return std::nullopt;
    BigNum x;
    int8_t sign = 0;
    int8_t kind = 0;
    if (!getBytes(in, static_cast<size_t>(length), x.digits) || !getI32(in, x.exponent) || !getI8(in, sign) ||
        !getI8(in, kind))
        return std::nullopt;
    const bool pairsValid = std::all_of(x.digits.begin(), x.digits.end(), [](uint8_t d) { return d <= 99; });
    if (!pairsValid || sign < -1 || sign > 1 || kind < 0 || kind > static_cast<int8_t>(NumKind::NaN))
        return std::nullopt;
    x.sign = sign;
    x.kind = static_cast<NumKind>(kind);
    // A finite nonzero value whose leading digit is 0 is shifted up to its
    // first nonzero digit (an all-zero mantissa becomes zero).
    if (x.isFinite() && x.sign != 0 && x.digits.back() < 10) normalize(x, 0);
    return x;
}

// A text up to its first zero unit; the count includes the terminating zero.
std::optional<std::u16string> getText(std::istream& in) {
    size_t count = 0;
    std::vector<uint8_t> bytes;
    if (!getUnitCount(in, count) || !getBytes(in, 2 * count, bytes)) return std::nullopt;
    std::u16string text;
    for (size_t i = 0; i < count; ++i) {
        const auto unit = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
        if (unit == 0) break;
        text.push_back(unit);
    }
    return text;
}

// The value of a type whose record has no payload: empty, in the form each
// type's readers expect.
Item::Value emptyValue(ItemType type) {
    switch (type) {
    case ItemType::Block: return std::make_unique<Block>();
    case ItemType::Character: return char16_t{0};
    case ItemType::FunctionCall:
    case ItemType::Comment: return std::u16string();
    default: return std::monostate{};
    }
}

}  // namespace

void WriteItem(std::ostream& out, const Item& item) {
    putI32(out, static_cast<int32_t>(item.type));
    for (int32_t exponent : item.units) putI32(out, exponent);
    switch (item.type) {
    case ItemType::Integer:
        if (const auto* n = std::get_if<BigInt>(&item.value)) putInteger(out, *n);
        else putInteger(out, BigInt{});
        break;
    case ItemType::Real:
        if (const auto* x = std::get_if<BigNum>(&item.value)) putReal(out, *x);
        else putReal(out, makeZero(2));
        break;
    case ItemType::Complex:
        if (const auto* z = std::get_if<ComplexNum>(&item.value)) {
            putReal(out, z->re);
            putReal(out, z->im);
        } else {
            putReal(out, makeZero(2));
            putReal(out, makeZero(2));
        }
        break;
    case ItemType::String:
    case ItemType::VariableRef:
        if (const auto* text = std::get_if<std::u16string>(&item.value)) putText(out, *text);
        else putText(out, std::u16string());
        break;
    default:
        break;   // no payload
    }
}

std::optional<Item> ReadItem(std::istream& in) {
    int32_t rawType = 0;
    if (!getI32(in, rawType) || rawType < 0 || rawType > HighestItemType) return std::nullopt;
    Item item;
    item.type = static_cast<ItemType>(rawType);
    for (int32_t& exponent : item.units)
        if (!getI32(in, exponent)) return std::nullopt;
    switch (item.type) {
    case ItemType::Integer: {
        auto n = getInteger(in);
        if (!n) return std::nullopt;
        item.value = std::move(*n);
        break;
    }
    case ItemType::Real: {
        auto x = getReal(in);
        if (!x) return std::nullopt;
        item.value = std::move(*x);
        break;
    }
    case ItemType::Complex: {
        auto re = getReal(in);
        if (!re) return std::nullopt;
        auto im = getReal(in);
        if (!im) return std::nullopt;
        item.value = ComplexNum{std::move(*re), std::move(*im)};
        break;
    }
    case ItemType::String:
    case ItemType::VariableRef: {
        auto text = getText(in);
        if (!text) return std::nullopt;
        item.value = std::move(*text);
        break;
    }
    default:
        item.value = emptyValue(item.type);
        break;
    }
    return item;
}

void WriteStack(std::ostream& out, const ItemList& stack) {
    for (int32_t i = stack.count(); i-- > 0;) WriteItem(out, *stack.at(static_cast<size_t>(i)));
}

void ReadStack(std::istream& in, ItemList& stack) {
    while (auto item = ReadItem(in)) stack.push(std::move(*item));
}

void WriteMemories(std::ostream& out, const std::vector<Memory>& memories) {
    for (const Memory& memory : memories) {
        if (!memory.value || memory.value->type == ItemType::Null) continue;
        putU16(out, static_cast<uint16_t>(memory.number));
        WriteItem(out, *memory.value);
    }
}

void ReadMemories(std::istream& in, std::vector<Memory>& memories) {
    int16_t number = 0;
    while (getI16(in, number)) {
        auto item = ReadItem(in);
        if (!item) return;
        Memory memory;
        memory.number = number;
        *memory.value = std::move(*item);
        memories.push_back(std::move(memory));
    }
}

}  // namespace quorvel
