// Binary words: conversions, the logical operations, rotation and shift.
#include "numeric/binword.h"

#include <algorithm>
#include <cstdlib>

namespace quorvel {

namespace {

void maskTop(BinWord& word) { word.limbs.back() &= TopLimbMask(word.bits); }

template <class Combine>
BinWord combine(const BinWord& a, const BinWord& b, Combine op) {
    BinWord result = a;
    for (int32_t i = 0; i < a.limbCount(); ++i) {
        const uint16_t other = i < b.limbCount() ? b.limbs[i] : uint16_t{0};
        result.limbs[i] = static_cast<uint16_t>(op(a.limbs[i], other));
    }
    maskTop(result);
    return result;
}

// Bit shifts by 1..15 over the whole limb array: what leaves one limb enters
// its neighbour. `wrap` feeds the bits leaving one end into the other end.
void shiftBitsUp(std::vector<uint16_t>& limbs, int b, bool wrap) {
    const uint16_t top = limbs.back();
    for (size_t i = limbs.size(); i-- > 0;) {
        const uint16_t below = i > 0 ? limbs[i - 1] : (wrap ? top : uint16_t{0});
        limbs[i] = static_cast<uint16_t>((limbs[i] << b) | (below >> (16 - b)));
    }
}

void shiftBitsDown(std::vector<uint16_t>& limbs, int b, bool wrap) {
    const uint16_t bottom = limbs.front();
    for (size_t i = 0; i < limbs.size(); ++i) {
        const uint16_t above = i + 1 < limbs.size() ? limbs[i + 1] : (wrap ? bottom : uint16_t{0});
        limbs[i] = static_cast<uint16_t>((limbs[i] >> b) | (above << (16 - b)));
    }
}

}  // namespace

int32_t WordLimbCount(int32_t bits) { return bits / 16 + (bits % 16 != 0 ? 1 : 0); }

uint16_t TopLimbMask(int32_t bits) {
    return bits % 16 != 0 ? static_cast<uint16_t>((1u << (bits % 16)) - 1) : uint16_t{0xFFFF};
}

BinWord makeWord(int32_t bits) {
    BinWord word;
    word.bits = bits;
    word.limbs.assign(static_cast<size_t>(WordLimbCount(bits)), 0);
    return word;
}

BinWord wordFromInteger(const BigInt& n, int32_t bits) {
    BinWord word = makeWord(bits);
    std::copy_n(n.limbs.begin(), std::min(word.limbCount(), n.count()), word.limbs.begin());
    maskTop(word);
    if (n.sign < 0) {
        // Two's complement of the magnitude: invert, add one with the carry
        // running upward while a limb overflows, mask again.
        for (uint16_t& limb : word.limbs) limb = static_cast<uint16_t>(~limb);
        for (uint16_t& limb : word.limbs)
            if (++limb != 0) break;
        maskTop(word);
    }
    return word;
}

BigInt integerFromWord(const BinWord& word) {
    BigInt n;
    n.limbs = word.limbs;
    n.sign = 1;
    trim(n);
    return n;
}

BigInt ReduceToWordSize(const BigInt& n, int32_t bits) {
    // A non-negative value that already fits is its own word; this saves
    // building a word for the common case of small results in a large size.
    const int32_t limbCount = WordLimbCount(bits);
    if (n.sign >= 0 &&
        (n.count() < limbCount || (n.count() == limbCount && (n.limbs.back() & ~TopLimbMask(bits)) == 0)))
        return n;
    return integerFromWord(wordFromInteger(n, bits));
}

void invertWord(BinWord& word) {
    for (uint16_t& limb : word.limbs) limb = static_cast<uint16_t>(~limb);
    maskTop(word);
}

BinWord andWords(const BinWord& a, const BinWord& b) {
    return combine(a, b, [](uint16_t x, uint16_t y) { return x & y; });
}
BinWord orWords(const BinWord& a, const BinWord& b) {
    return combine(a, b, [](uint16_t x, uint16_t y) { return x | y; });
}
BinWord xorWords(const BinWord& a, const BinWord& b) {
    return combine(a, b, [](uint16_t x, uint16_t y) { return x ^ y; });
}

BinWord nandWords(const BinWord& a, const BinWord& b) {
    BinWord result = andWords(a, b);
    invertWord(result);
    return result;
}
BinWord norWords(const BinWord& a, const BinWord& b) {
    BinWord result = orWords(a, b);
    invertWord(result);
    return result;
}
BinWord xnorWords(const BinWord& a, const BinWord& b) {
    BinWord result = xorWords(a, b);
    invertWord(result);
    return result;
}

void rotateWord(BinWord& word, int32_t count) {
    if (count == 0) return;
    const int64_t limbCount = word.limbCount();
    const bool up = count > 0;
    // Reduced by the number of limbs, not of bits: kept on purpose.
    const int64_t m = std::llabs(static_cast<int64_t>(count)) % limbCount;
    const int64_t k = m / 16;
    const int b = static_cast<int>(m % 16);
    if (k > 0) {
        // Whole limbs, in place with wrap-around.
        const auto middle = up ? word.limbs.end() - k : word.limbs.begin() + k;
        std::rotate(word.limbs.begin(), middle, word.limbs.end());
    }
    if (b > 0 && m < limbCount) {
        if (up) shiftBitsUp(word.limbs, b, true);
        else shiftBitsDown(word.limbs, b, true);
    }
    maskTop(word);
}

void shiftWord(BinWord& word, int32_t count) {
    if (count == 0) return;
    const int64_t limbCount = word.limbCount();
    const bool up = count > 0;
    const int64_t s = std::llabs(static_cast<int64_t>(count));
    const int64_t k = std::min(s / 16, limbCount);
    const int b = static_cast<int>(s % 16);
    if (k > 0) {
        // Whole limbs with zero fill.
        if (up) {
            std::copy_backward(word.limbs.begin(), word.limbs.end() - k, word.limbs.end());
            std::fill(word.limbs.begin(), word.limbs.begin() + k, uint16_t{0});
        } else {
            std::copy(word.limbs.begin() + k, word.limbs.end(), word.limbs.begin());
            std::fill(word.limbs.end() - k, word.limbs.end(), uint16_t{0});
        }
    }
    // The sub-limb part only for a count below the number of limbs: a
    // comparison against the limb count that is kept on purpose.
    if (b > 0 && s < limbCount) {
        if (up) shiftBitsUp(word.limbs, b, false);
        else shiftBitsDown(word.limbs, b, false);
    }
    maskTop(word);
}

}  // namespace quorvel
