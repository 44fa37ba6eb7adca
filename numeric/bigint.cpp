// Multi-precision integers in 16-bit limbs: construction, sign-aware
// arithmetic, truncating division (Knuth's algorithm D) and comparison.
#include "numeric/bigint.h"

#include <algorithm>
#include <bit>
#include <cstdlib>

namespace quorvel {
namespace {

using Limbs = std::vector<uint16_t>;

constexpr uint32_t LimbBase = 0x10000;

void trimLimbs(Limbs& limbs) {
    while (limbs.size() > 1 && limbs.back() == 0) limbs.pop_back();
    if (limbs.empty()) limbs.push_back(0);
}

bool limbsAreZero(const Limbs& limbs) { return limbs.size() == 1 && limbs[0] == 0; }

// Orders two trimmed magnitudes.
int compareLimbs(const Limbs& a, const Limbs& b) {
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    for (size_t i = a.size(); i-- > 0;) {
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    }
    return 0;
}

Limbs addLimbs(const Limbs& a, const Limbs& b) {
    const Limbs& longer = a.size() >= b.size() ? a : b;
    const Limbs& shorter = a.size() >= b.size() ? b : a;
    Limbs sum(longer.size() + 1, 0);
    uint32_t carry = 0;
    for (size_t i = 0; i < longer.size(); ++i) {
        uint32_t t = uint32_t{longer[i]} + carry;
        if (i < shorter.size()) t += shorter[i];
        sum[i] = static_cast<uint16_t>(t);
        carry = t >> 16;
    }
    sum[longer.size()] = static_cast<uint16_t>(carry);
    trimLimbs(sum);
    return sum;
}

// a - b for magnitudes with a >= b.
Limbs subtractLimbs(const Limbs& a, const Limbs& b) {
    Limbs difference(a.size(), 0);
    int32_t borrow = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        int32_t t = int32_t{a[i]} - borrow - (i < b.size() ? int32_t{b[i]} : 0);
        borrow = t < 0 ? 1 : 0;
        difference[i] = static_cast<uint16_t>(t + (borrow ? int32_t{LimbBase} : 0));
    }
    trimLimbs(difference);
    return difference;
}

// Schoolbook product; each step a*b + r + carry fits in 32 bits.
Limbs multiplyLimbs(const Limbs& a, const Limbs& b) {
    if (limbsAreZero(a) || limbsAreZero(b)) return Limbs{0};
    Limbs product(a.size() + b.size(), 0);
    for (size_t i = 0; i < a.size(); ++i) {
        const uint32_t ai = a[i];
        if (ai == 0) continue;
        uint32_t carry = 0;
        for (size_t j = 0; j < b.size(); ++j) {
            uint32_t t = ai * b[j] + product[i + j] + carry;
            product[i + j] = static_cast<uint16_t>(t);
            carry = t >> 16;
        }
        product[i + b.size()] = static_cast<uint16_t>(carry);
    }
    trimLimbs(product);
    return product;
}

// Divides a magnitude by a one-limb (or wider) divisor in place; returns the remainder.
uint32_t divideLimbsBySmall(Limbs& limbs, uint32_t divisor) {
    uint64_t remainder = 0;
    for (size_t i = limbs.size(); i-- > 0;) {
        const uint64_t current = (remainder << 16) | limbs[i];
        limbs[i] = static_cast<uint16_t>(current / divisor);
        remainder = current % divisor;
    }
    trimLimbs(limbs);
    return static_cast<uint32_t>(remainder);
}

// Knuth's algorithm D on magnitudes: u = q*v + r, v nonzero with two or more limbs
// and u >= v.
void divideLimbs(const Limbs& u, const Limbs& v, Limbs& quotient, Limbs& remainder) {
    const size_t n = v.size();
    const size_t m = u.size();
    const int shift = std::countl_zero(v[n - 1]);

    Limbs vn(n), un(m + 1);
    for (size_t i = n - 1; i > 0; --i)
        vn[i] = static_cast<uint16_t>((v[i] << shift) | (shift ? v[i - 1] >> (16 - shift) : 0));
    vn[0] = static_cast<uint16_t>(v[0] << shift);
    un[m] = static_cast<uint16_t>(shift ? u[m - 1] >> (16 - shift) : 0);
    for (size_t i = m - 1; i > 0; --i)
        un[i] = static_cast<uint16_t>((u[i] << shift) | (shift ? u[i - 1] >> (16 - shift) : 0));
    un[0] = static_cast<uint16_t>(u[0] << shift);

    quotient.assign(m - n + 1, 0);
    const uint64_t top = vn[n - 1];
    const uint64_t second = vn[n - 2];
    for (size_t j = m - n + 1; j-- > 0;) {
        const uint64_t numerator = (uint64_t{un[j + n]} << 16) | un[j + n - 1];
        uint64_t qhat = numerator / top;
        uint64_t rhat = numerator % top;
        while (qhat >= LimbBase || qhat * second > ((rhat << 16) | un[j + n - 2])) {
            --qhat;
            rhat += top;
            if (rhat >= LimbBase) break;
        }
        // Multiply and subtract qhat * vn from the window of un.
        int64_t borrow = 0;
        for (size_t i = 0; i < n; ++i) {
            const uint64_t p = qhat * vn[i];
            const int64_t t = int64_t{un[i + j]} - borrow - static_cast<int64_t>(p & 0xFFFF);
            un[i + j] = static_cast<uint16_t>(t);
            borrow = static_cast<int64_t>(p >> 16) - (t >> 16);
        }
        const int64_t t = int64_t{un[j + n]} - borrow;
        un[j + n] = static_cast<uint16_t>(t);
        if (t < 0) {
            // qhat was one too large: add the divisor back.
            --qhat;
            uint32_t carry = 0;
            for (size_t i = 0; i < n; ++i) {
                const uint32_t s = uint32_t{un[i + j]} + vn[i] + carry;
                un[i + j] = static_cast<uint16_t>(s);
                carry = s >> 16;
            }
            un[j + n] = static_cast<uint16_t>(un[j + n] + carry);
        }
        quotient[j] = static_cast<uint16_t>(qhat);
    }
    trimLimbs(quotient);

    remainder.assign(n, 0);
    for (size_t i = 0; i < n; ++i)
        remainder[i] = static_cast<uint16_t>((un[i] >> shift) | (shift ? un[i + 1] << (16 - shift) : 0));
    trimLimbs(remainder);
}

BigInt makeSigned(Limbs limbs, int sign) {
    BigInt n;
    n.limbs = std::move(limbs);
    n.sign = static_cast<int8_t>(sign);
    trim(n);
    return n;
}

}  // namespace

BigInt bigIntFromU32(uint32_t value, int32_t capacity) {
    BigInt n;
    n.limbs.reserve(static_cast<size_t>(std::max(capacity, 2)));
    n.limbs.assign({static_cast<uint16_t>(value), static_cast<uint16_t>(value >> 16)});
    n.sign = value != 0 ? 1 : 0;
    trim(n);
    return n;
}

BigInt bigIntFromI32(int32_t value) {
    const uint32_t magnitude = value < 0 ? 0u - static_cast<uint32_t>(value) : static_cast<uint32_t>(value);
    BigInt n = bigIntFromU32(magnitude);
    if (value < 0) n.sign = -1;
    return n;
}

void trim(BigInt& n) {
    trimLimbs(n.limbs);
    if (limbsAreZero(n.limbs)) n.sign = 0;
    else if (n.sign == 0) n.sign = 1;
}

BigInt add(const BigInt& a, const BigInt& b) {
    if (a.sign == 0) return b;
    if (b.sign == 0) return a;
    if (a.sign == b.sign) return makeSigned(addLimbs(a.limbs, b.limbs), a.sign);
    const int order = compareLimbs(a.limbs, b.limbs);
    if (order == 0) return BigInt{};
    if (order > 0) return makeSigned(subtractLimbs(a.limbs, b.limbs), a.sign);
    return makeSigned(subtractLimbs(b.limbs, a.limbs), b.sign);
}

BigInt subtract(const BigInt& a, const BigInt& b) { return add(a, negated(b)); }

BigInt multiply(const BigInt& a, const BigInt& b) {
    if (a.sign == 0 || b.sign == 0) return BigInt{};
    return makeSigned(multiplyLimbs(a.limbs, b.limbs), a.sign * b.sign);
}

std::optional<BigIntDivision> divideWithRemainder(const BigInt& a, const BigInt& b) {
    if (b.sign == 0) return std::nullopt;
    if (compareLimbs(a.limbs, b.limbs) < 0) return BigIntDivision{BigInt{}, a};
    Limbs quotient, remainder;
    if (b.count() == 1) {
        quotient = a.limbs;
        remainder = Limbs{static_cast<uint16_t>(divideLimbsBySmall(quotient, b.limbs[0]))};
    } else {
        divideLimbs(a.limbs, b.limbs, quotient, remainder);
    }
    return BigIntDivision{makeSigned(std::move(quotient), a.sign * b.sign),
                          makeSigned(std::move(remainder), a.sign)};
}

uint32_t divideSmallInPlace(BigInt& n, uint32_t divisor) {
    if (divisor == 0) return 0;
    const int8_t sign = n.sign;
    const uint32_t remainder = divideLimbsBySmall(n.limbs, divisor);
    n.sign = limbsAreZero(n.limbs) ? 0 : sign;
    return remainder;
}

void multiplySmallAddInPlace(BigInt& n, uint32_t factor, uint32_t addend) {
    uint64_t carry = addend;
    for (uint16_t& limb : n.limbs) {
        const uint64_t t = uint64_t{limb} * factor + carry;
        limb = static_cast<uint16_t>(t);
        carry = t >> 16;
    }
    while (carry != 0) {
        n.limbs.push_back(static_cast<uint16_t>(carry));
        carry >>= 16;
    }
    trim(n);
}

int compareMagnitude(const BigInt& a, const BigInt& b) { return compareLimbs(a.limbs, b.limbs); }

int compare(const BigInt& a, const BigInt& b) {
    if (a.sign != b.sign) return a.sign < b.sign ? -1 : 1;
    return a.sign >= 0 ? compareLimbs(a.limbs, b.limbs) : compareLimbs(b.limbs, a.limbs);
}

BigInt addSmall(const BigInt& a, int32_t value) { return add(a, bigIntFromI32(value)); }

BigInt subtractSmall(const BigInt& a, int32_t value) {
    BigInt b = bigIntFromI32(value);
    b.sign = static_cast<int8_t>(-b.sign);
    return add(a, b);
}

BigInt negated(BigInt a) {
    a.sign = static_cast<int8_t>(-a.sign);
    return a;
}

BigInt absolute(BigInt a) {
    if (a.sign < 0) a.sign = 1;
    return a;
}

bool BigIntToInt32(const BigInt& n, int32_t& out) {
    if (n.count() >= 3) {
        out = 0;
        return false;
    }
    uint32_t magnitude = n.limbs[0];
    if (n.count() == 2) {
        if (n.limbs[1] > 32767) {
            out = 0;
            return false;
        }
        magnitude |= uint32_t{n.limbs[1]} << 16;
    }
    const auto value = static_cast<int32_t>(magnitude);
    out = n.sign < 0 ? -value : value;
    return true;
}

}  // namespace quorvel
