// Multi-precision integers in 16-bit limbs.
//
// `limbs` holds the limbs in use, least significant first (the vector's size is
// the count in use, never 0). After every operation the value is trimmed:
// leading zero limbs are dropped down to one limb and a zero value has sign 0.
// Nothing in this file reports a message.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvel {

struct BigInt {
    std::vector<uint16_t> limbs{0};   // in use, least significant first
    int8_t sign = 0;                  // -1, 0, +1; 0 exactly for zero

    int32_t count() const { return static_cast<int32_t>(limbs.size()); }
    bool isZero() const { return sign == 0; }

    friend bool operator==(const BigInt&, const BigInt&) = default;
};

// Non-negative integer from an unsigned 32-bit value; `capacity` limbs are
// reserved (at least 2).
BigInt bigIntFromU32(uint32_t value, int32_t capacity = 2);
// Signed 32-bit value.
BigInt bigIntFromI32(int32_t value);
// Drops leading zero limbs (keeping one) and makes a zero value sign 0.
void trim(BigInt& n);

// Sign-aware arithmetic; results are trimmed.
BigInt add(const BigInt& a, const BigInt& b);
BigInt subtract(const BigInt& a, const BigInt& b);
BigInt multiply(const BigInt& a, const BigInt& b);
// Truncating division: a = q*b + r with |r| < |b| and r taking a's sign.
// Division by zero gives std::nullopt.
struct BigIntDivision { BigInt quotient; BigInt remainder; };
std::optional<BigIntDivision> divideWithRemainder(const BigInt& a, const BigInt& b);
// Divides |n| in place by a small divisor (1..65535; any nonzero 32-bit value
// works) and returns the remainder of the magnitude; the sign is kept unless the
// quotient becomes zero. A divisor of 0 leaves n alone and returns 0.
uint32_t divideSmallInPlace(BigInt& n, uint32_t divisor);
// Multiplies |n| in place by a small factor and adds a small addend (magnitudes);
// a zero n that becomes nonzero gets sign +1, a result of zero gets sign 0.
void multiplySmallAddInPlace(BigInt& n, uint32_t factor, uint32_t addend);
// -1, 0 or 1 ordering a against b.
int compare(const BigInt& a, const BigInt& b);
// -1, 0 or 1 ordering |a| against |b|.
int compareMagnitude(const BigInt& a, const BigInt& b);
// a + value and a - value for a small signed value.
BigInt addSmall(const BigInt& a, int32_t value);
BigInt subtractSmall(const BigInt& a, int32_t value);
// -a (zero stays sign 0) and |a|.
BigInt negated(BigInt a);
BigInt absolute(BigInt a);

// Stores a signed 32-bit value and returns whether it fitted: three or more
// limbs never fit; two limbs fit when the upper limb is at most 32767 (else
// out is 0 and the call fails).
bool BigIntToInt32(const BigInt& n, int32_t& out);

}  // namespace quorvel
