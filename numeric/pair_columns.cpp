// Column sums of base-100 pairs with their carries: the inner loop of add,
// subtract and the multiply by a single pair.
//
// A plain loop waits at every pair for the carry out of the one below. Here
// eight columns are taken at once in a 64-bit word, one column a byte
// (little-endian machines; others take the plain loop). A column sum c is at
// most 198 and the carry into it at most 1, so a column passes a carry on
// when c >= 100 (it generates one) or when c = 99 and one comes in (it
// propagates one). With the generating columns as 0x01 bytes moved one byte
// up, and the propagating ones as 0xFF bytes, a single 64-bit addition
// ripples each carry through its run of 0xFF bytes and stops at the first
// other byte: the bytes it changed are exactly those that receive a carry.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "numeric/bignum_detail.h"

namespace quorvel::bignum_detail {

namespace {

constexpr uint64_t EachByte(uint64_t byte) { return byte * 0x0101010101010101ULL; }

constexpr uint64_t Lows = EachByte(0x01);
constexpr uint64_t Highs = EachByte(0x80);
constexpr uint64_t Sevens = EachByte(0x7F);
constexpr uint64_t Nineties = EachByte(99);
constexpr uint64_t ToHundred = EachByte(128 - 100);   // 0x80 set in a byte >= 100 (bytes below 228)

// 0x01 in each byte of at least 100.
uint64_t atLeastHundred(uint64_t bytes) { return ((bytes + ToHundred) & Highs) >> 7; }

// 0xFF in each byte equal to 99, 0x00 elsewhere.
uint64_t ninetyNines(uint64_t bytes) {
    const uint64_t z = bytes ^ Nineties;                       // zero where the byte is 99
    const uint64_t nonzero = ((z & Sevens) + Sevens) | z;      // 0x80 set in every nonzero byte
    return ((~nonzero & Highs) >> 7) * 0xFF;
}

// Eight columns: c holds the sums (each at most 198); carryIn is 0 or 1.
// Writes the pairs and returns the carry out of the top column.
uint64_t carryWord(uint64_t c, uint64_t carryIn, uint64_t& pairs) {
    const uint64_t generates = atLeastHundred(c);
    const uint64_t propagates = ninetyNines(c);
    const uint64_t arrivals = (generates << 8) + carryIn;        // no column both generates and propagates
    const uint64_t rippled = propagates + arrivals;
    const uint64_t received = (rippled ^ propagates) & Lows;     // the carry into each column
    const uint64_t carryOut = (generates >> 56) | (rippled < propagates ? 1 : 0);
    const uint64_t v = c + received;                             // at most 199 a byte
    pairs = v - atLeastHundred(v) * 100;
    return carryOut;
}

uint64_t load(const uint8_t* p) {
    uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

void store(uint8_t* p, uint64_t word) { std::memcpy(p, &word, sizeof word); }

}  // namespace

int addPairColumns(const uint8_t* x, const uint8_t* y, bool complementY, int carryIn, uint8_t* out, std::size_t count) {
    uint64_t carry = static_cast<uint64_t>(carryIn);
    std::size_t k = 0;
    if constexpr (std::endian::native == std::endian::little) {
        for (; k + 8 <= count; k += 8) {
            const uint64_t ys = complementY ? Nineties - load(y + k) : load(y + k);   // 99 - y per byte: no borrows
            uint64_t pairs;
            carry = carryWord(load(x + k) + ys, carry, pairs);   // at most 198 a byte: no carries between bytes
            store(out + k, pairs);
        }
    }
    for (; k < count; ++k) {
        const uint64_t sum = x[k] + (complementY ? 99u - y[k] : y[k]) + carry;
        carry = sum >= 100 ? 1 : 0;
        out[k] = static_cast<uint8_t>(sum - 100 * carry);
    }
    return static_cast<int>(carry);
}

}  // namespace quorvel::bignum_detail
