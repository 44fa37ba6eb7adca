// Division by a small integer for the series: the same long division as
// BigNum divide, step for step, so the result is identical to
// divide(a, fromInt(a.length(), v)) (tests/divide_small_test.cpp compares the
// two on many cases). Only the bookkeeping of the remainder differs.
//
// divide keeps the running remainder's magnitude in a window of bytes and
// subtracts q x divisor from it at each step. With a short divisor the
// remainder is, at every step, a short signed integer W over the dividend's
// own digits still below some decimal position p:
//     remainder = W x 10^p + (the dividend's digits below p),
// which is exact for either sign of W. A step subtracts (or, for a negative
// remainder, adds) q x divisor x 10^shift from W once p has been lowered to
// the shift, and the quotient digit goes to a signed digit array that is
// carried once at the end. The leading digits the estimates read are those of
// |W| (less one when W is negative and the dividend digits below p are not
// all zero: the magnitude is then |W| x 10^p minus them). So every step costs
// a few machine operations.
#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "numeric/bignum.h"
#include "numeric/bignum_detail.h"
#include "numeric/division_step_table.h"
#include "numeric/wide_integer.h"
#include "numeric/elementary_detail.h"

namespace quorvel::elementary_detail {

using bignum_detail::incrementExponent;
using bignum_detail::StepRow;
using bignum_detail::Wide;
using bignum_detail::WidePow10;
using bignum_detail::WideUnsigned;
using bignum_detail::wrapsInt32;

namespace {

// Adds (sign > 0) or subtracts value x 10^position (from the bottom) in
// `count` bytes, carrying or borrowing upward; nothing leaves the top.
void addSignedAt(uint8_t* bytes, std::size_t count, int value, int64_t position, int sign) {
    std::size_t i = static_cast<std::size_t>(position / 2);
    int delta = value * ((position % 2 == 0) ? 1 : 10);
    while (delta != 0 && i < count) {
        int v = bytes[i] + (sign > 0 ? delta : -delta);
        delta = 0;
        if (v >= 100) {
            delta = v / 100;
            v %= 100;
        } else if (v < 0) {
            delta = (-v + 99) / 100;
            v += delta * 100;
        }
        bytes[i] = static_cast<uint8_t>(v);
        ++i;
    }
}

constexpr int64_t Pow10[] = {1,
                             10,
                             100,
                             1000,
                             10000,
                             100000,
                             1000000,
                             10000000,
                             100000000,
                             1000000000,
                             10000000000,
                             100000000000,
                             1000000000000,
                             10000000000000,
                             100000000000000,
                             1000000000000000,
                             10000000000000000,
                             100000000000000000,
                             1000000000000000000};

constexpr double InversePow10[] = {1e0,   1e-1,  1e-2,  1e-3,  1e-4,  1e-5,  1e-6,  1e-7,  1e-8,  1e-9,
                                   1e-10, 1e-11, 1e-12, 1e-13, 1e-14, 1e-15, 1e-16, 1e-17, 1e-18};

// The units (row 0) and tens (row 1) digit of each pair 0..99.
constexpr std::array<std::array<uint8_t, 100>, 2> DigitOfPair = [] {
    std::array<std::array<uint8_t, 100>, 2> table{};
    for (std::size_t pair = 0; pair < 100; ++pair) {
        table[0][pair] = static_cast<uint8_t>(pair % 10);
        table[1][pair] = static_cast<uint8_t>(pair / 10);
    }
    return table;
}();

// Number of decimal digits of 1 <= m < 10^18.
int digitCount(int64_t m) {
    const int bits = 64 - std::countl_zero(static_cast<uint64_t>(m));
    const int below = (bits * 1233) >> 12;   // floor(log10(2^bits)), one short at most
    return below + (m >= Pow10[below] ? 1 : 0);
}

// floor(m / 10^k) for 0 <= m < 2^52 and k <= 18: a double estimate, then
// corrected by one either way (a variable 64-bit division costs more than the
// rest of a step).
int64_t dividedByPow10(int64_t m, int k) {
    int64_t q = static_cast<int64_t>(static_cast<double>(m) * InversePow10[k]);
    if (q * Pow10[k] > m) --q;
    if ((q + 1) * Pow10[k] <= m) ++q;
    return q;
}


// floor(x / d) for a divisor fixed over many divisions, by a multiply with
// its reciprocal and one correction instead of a division.
class Reciprocal {
public:
    explicit Reciprocal(uint64_t d) : d_(d), inverse_(~uint64_t{0} / d) {}
    // For x below 10^19 the estimate falls short by at most one (it is at
    // least floor(x / d - x / 2^64)); the correction is a mask, not a branch,
    // which would be mispredicted about half the time.
    uint64_t quotient(uint64_t x, uint64_t& remainder) const {
        const uint64_t q = static_cast<uint64_t>((static_cast<WideUnsigned>(x) * inverse_) >> 64);
        const uint64_t r = x - q * d_;
        const uint64_t over = uint64_t{0} - (r >= d_ ? 1u : 0u);   // all ones when short
        remainder = r - (over & d_);
        return q - over;
    }

private:
    uint64_t d_;
    uint64_t inverse_;
};

// A few 128-bit values in an open-addressed table: the offsets one tail
// candidate passed through, for the others to look up. It stops taking
// values when half full (a value left out only costs a later match).
class OffsetSet {
public:
    void insert(Wide value) {
        if (count_ >= Slots / 2) return;
        std::size_t at = slotOf(value);
        while (used(at) && keys_[at] != value) at = (at + 1) % Slots;
        if (!used(at)) {
            used_[at / 64] |= uint64_t{1} << (at % 64);
            keys_[at] = value;
            ++count_;
        }
    }
    bool contains(Wide value) const {
        for (std::size_t at = slotOf(value); used(at); at = (at + 1) % Slots) {
            if (keys_[at] == value) return true;
        }
        return false;
    }

private:
    static constexpr std::size_t Slots = 128;
    static std::size_t slotOf(Wide value) {
        const uint64_t folded = static_cast<uint64_t>(value) ^ static_cast<uint64_t>(value >> 64);
        return static_cast<std::size_t>((folded * 0x9E3779B97F4A7C15ULL) >> 57);   // top 7 bits: 0..127
    }
    bool used(std::size_t at) const { return (used_[at / 64] >> (at % 64)) & 1; }
    std::array<Wide, Slots> keys_;   // read only where used
    std::array<uint64_t, Slots / 64> used_{};
    std::size_t count_ = 0;
};

// Writes v < 10^(2 Count) as Count base-100 pairs, lowest first.
template <int Count>
void writePairs(uint64_t v, uint8_t* out) {
    static_assert(Count == 4 || Count == 6 || Count == 7);
    uint32_t low = static_cast<uint32_t>(v);
    if constexpr (Count > 4) {
        uint32_t top = static_cast<uint32_t>(v / 100000000);
        low = static_cast<uint32_t>(v % 100000000);
        if constexpr (Count == 7) {
            out[6] = static_cast<uint8_t>(top / 10000);
            top %= 10000;
        }
        out[4] = static_cast<uint8_t>(top % 100);
        out[5] = static_cast<uint8_t>(top / 100);
    }
    const uint32_t high = low / 10000;
    low %= 10000;
    out[0] = static_cast<uint8_t>(low % 100);
    out[1] = static_cast<uint8_t>(low / 100);
    out[2] = static_cast<uint8_t>(high % 100);
    out[3] = static_cast<uint8_t>(high / 100);
}

// The quotient of bytes d[0..count) (base 100, lowest first) by a divisor
// below 10^19 / 100^Pairs, Pairs bytes at a time, written to e from byte
// `at` up; rest is the remainder. False when a nonzero quotient byte would
// land above e's last byte.
template <int Pairs>
bool divideInChunks(const uint8_t* d, int32_t count, const Reciprocal& divisor, std::vector<uint8_t>& e, std::size_t at, uint64_t& rest) {
    constexpr uint64_t Scale = Pairs == 4 ? 100000000ULL : (Pairs == 6 ? 1000000000000ULL : 100000000000000ULL);   // 100^Pairs
    const std::size_t eSize = e.size();
    rest = 0;
    for (int32_t i = ((count - 1) / Pairs) * Pairs; i >= 0; i -= Pairs) {
        const std::size_t to = static_cast<std::size_t>(i) + at;
        if (i + Pairs <= count && to + Pairs <= eSize) {
            uint64_t chunk = 0;
            for (int k = Pairs - 1; k >= 0; --k) chunk = chunk * 100 + d[i + k];
            writePairs<Pairs>(divisor.quotient(rest * Scale + chunk, rest), e.data() + to);
            continue;
        }
        // The top chunk: part of it lies above the dividend or above E.
        uint64_t chunk = 0;
        for (int k = Pairs - 1; k >= 0; --k) chunk = chunk * 100 + (i + k < count ? d[i + k] : 0);
        uint64_t q = divisor.quotient(rest * Scale + chunk, rest);
        for (std::size_t k = 0; k < Pairs; ++k, q /= 100) {
            if (to + k < eSize) {
                e[to + k] = static_cast<uint8_t>(q % 100);
            } else if (q % 100 != 0) {
                return false;
            }
        }
    }
    return true;
}

// The long division replayed on one dividend and short divisor. A state of
// the division is (p, W): remainder = W x 10^p + (the dividend's digits below
// p), positions counted from the bottom of divide's window of n + 1 bytes,
// which holds the dividend in bytes n - 1 down to n - length (= 2).
class Replay {
public:
    Replay(const BigNum& a, const BigNum& b) : a_(a), length_(a.length()), n_(a.length() + 2), lastDigit_(2 * static_cast<int64_t>(a.length()) - 1) {
        lowestNonzero_ = 2 * (n_ + 1);
        for (int32_t k = 0; k < length_; ++k) {
            const int pair = a.digits[static_cast<std::size_t>(k)];
            if (pair != 0) {
                lowestNonzero_ = 2 * (k + n_ - length_) + (pair % 10 == 0 ? 1 : 0);
                break;
            }
        }
        // The divisor without its low zero bytes: its integer value and top pair.
        int32_t lowZeros = 0;
        while (b.digits[lowZeros] == 0) ++lowZeros;
        lb_ = b.length() - lowZeros;
        for (int32_t k = lb_ - 1; k >= 0; --k) divisorValue_ = divisorValue_ * 100 + b.digits[lowZeros + k];
        stepOf_ = &bignum_detail::stepRow(b.digits[lowZeros + lb_ - 1]);
    }

    enum class Outcome { Digit, Exact, End, TooWide };
    struct Step {
        Outcome outcome;
        int q = 0;                // the signed quotient digit
        int64_t s = 0;            // its position from the quotient's top
        bool exactStep = true;    // no digit of q x divisor fell below the window
    };

    // One step of the division from state (p, W), which it advances.
    Step step(int32_t& p, int64_t& W) const {
        // Enough of the remainder in W to read its three leading digits.
        while (p > 0 && W > -1001 && W < 1001) lower(p, W);
        if (W == 0) return {Outcome::Exact};
        // |W| x 10^p, less the dividend's nonzero digits below p when W < 0.
        const int64_t lead3 = (W > 0 ? W : -W) - ((W < 0) & (p > lowestNonzero_));
        // Nearly always four digits here (the loop above stops at the fourth).
        const int count = (lead3 >= 1000 && lead3 < 10000) ? 4 : digitCount(lead3);
        // |W| stays within about 2 x lb + 6 digits; should it ever grow past
        // what 64 bits hold safely, the general division takes over.
        if (count > 15) return {Outcome::TooWide};
        const int64_t top = static_cast<int64_t>(p) + count - 1;   // position of the leading digit
        const int64_t t = 2 * static_cast<int64_t>(n_) - 1 - top;  // as a window digit from the top
        if (t > lastDigit_ + 1) return {Outcome::End};               // more than 2L digits below the start
        // The leading three digits (a shorter |W| at p = 0 reads zeros below).
        int64_t leading;
        if (count == 4) {
            leading = lead3 / 10;
        } else {
            leading = count >= 3 ? dividedByPow10(lead3, count - 3) : lead3 * Pow10[3 - count];
        }
        const int entry = (*stepOf_)[static_cast<std::size_t>(leading)];
        const int q = entry & 15;
        const int64_t s = t + (entry >> 4);
        // q x divisor with its lowest digit at `shift`; below the window's
        // bottom its digits are dropped, as divide drops them.
        const int64_t shift = shiftOf(s);
        int64_t subtrahend = q * divisorValue_;
        if (shift >= 0) {
            while (p > shift) lower(p, W);
            subtrahend *= Pow10[shift - p];
        } else {
            while (p > 0) lower(p, W);
            subtrahend = dividedByPow10(subtrahend, static_cast<int>(-shift));
        }
        // W is not zero here: its sign as a mask, subtrahend negated by it.
        const int64_t negative = W >> 63;
        W -= (subtrahend ^ negative) - negative;
        return {Outcome::Digit, static_cast<int>((q ^ negative) - negative), s, shift >= 0};
    }

    // The whole division from the first step, as E: the correction pair
    // 0..99 in byte 0, then the quotient in length + 1 bytes (the top one
    // for overflow). False when the remainder grew too wide for the replay.
    bool runWhole(std::vector<uint8_t>& e) const;

    // The last `tailDigits` digits (even, 12 to MaxTailDigits) replayed from
    // every state the division can be in when it reaches them (see
    // runTail): E without those digits in `prefix`, and in `ends` each
    // distinct way the replays end, as an offset to add to it. False when
    // the replay cannot tell.
    bool runTail(int tailDigits, std::vector<uint8_t>& prefix, std::vector<Wide>& ends) const;

    // E's digits above the last `tailDigits` (even, 20 to 2L - 4),
    // the tail left zero, when the digits below cannot change them (see
    // runTop); false otherwise.
    bool runTop(int tailDigits, std::vector<uint8_t>& e) const;

    // 9 x 10^(MaxTailDigits + 3), the largest offset a digit adds, stays
    // inside 128 bits.
    static constexpr int MaxTailDigits = 32;

private:
    // E without its last tailDigits digits, m0 (see runTail), and r0; false
    // when a nonzero byte of it would land above E.
    bool prefix(int tailDigits, std::vector<uint8_t>& e, int64_t& r0) const;

    // The dividend's digit at window position p (0 outside the dividend).
    // Without branches: which byte and which of its digits are as likely
    // one way as the other.
    int digitAt(int32_t p) const {
        const int32_t k = p / 2 - (n_ - length_);
        const uint32_t inside = uint32_t{0} - (static_cast<uint32_t>(k) < static_cast<uint32_t>(length_) ? 1u : 0u);   // a mask
        const int pair = a_.digits[static_cast<std::size_t>(static_cast<uint32_t>(k) & inside)];
        return static_cast<int>(DigitOfPair[static_cast<std::size_t>(p % 2)][static_cast<std::size_t>(pair)] & inside);
    }
    void lower(int32_t& p, int64_t& W) const {
        --p;
        W = W * 10 + digitAt(p);
    }
    // Bottom position of the divisor's lowest digit when its leading digit
    // stands at window digit s from the top.
    int64_t shiftOf(int64_t s) const { return 2 * static_cast<int64_t>(n_) - 2 * static_cast<int64_t>(lb_) - s; }
    int64_t stepLimit() const { return 20 * (2 * static_cast<int64_t>(n_) + 10); }

    const BigNum& a_;
    int32_t length_;
    int32_t n_;
    int64_t lastDigit_;
    int32_t lowestNonzero_ = 0;   // the dividend's digits below p are all zero exactly when p <= this
    int32_t lb_ = 0;
    int64_t divisorValue_ = 0;
    const StepRow* stepOf_ = nullptr;
};

bool Replay::runWhole(std::vector<uint8_t>& e) const {
    // Signed quotient digits at decimal positions from the bottom of the
    // quotient (digit s from the top lands at lastDigit - s).
    std::vector<int32_t> quotientDigits(static_cast<std::size_t>(2 * length_ + 2), 0);
    int correction = 0;
    int32_t p = 2 * (n_ + 1);   // nothing of the dividend taken into W yet
    int64_t W = 0;
    for (int64_t count = 0; count < stepLimit(); ++count) {
        const Step next = step(p, W);
        if (next.outcome == Outcome::TooWide) return false;
        if (next.outcome != Outcome::Digit) break;
        if (next.s <= lastDigit_) {
            quotientDigits[static_cast<std::size_t>(lastDigit_ - next.s)] += next.q;
        } else {
            correction += next.q * (next.s == lastDigit_ + 1 ? 10 : 1);
        }
    }
    // The signed digits carried into length + 1 bytes (modulo their range, as
    // divide's byte additions drop what leaves the top).
    e.assign(static_cast<std::size_t>(length_) + 2, 0);
    uint8_t* quotient = e.data() + 1;
    const std::size_t bytes = e.size() - 1;
    int32_t carry = 0;
    for (std::size_t byte = 0; byte < bytes; ++byte) {
        // A pair of signed digits and the carry; the floor division by 100
        // keeps the pair in 0..99 for negative values too.
        const int32_t value = quotientDigits[2 * byte] + 10 * quotientDigits[2 * byte + 1] + carry;
        const int32_t pair = ((value % 100) + 100) % 100;
        carry = (value - pair) / 100;
        quotient[byte] = static_cast<uint8_t>(pair);
    }
    while (correction < 0) {
        addSignedAt(quotient, bytes, 1, 0, -1);
        correction += 100;
    }
    while (correction >= 100) {
        addSignedAt(quotient, bytes, 1, 0, 1);
        correction -= 100;
    }
    e[0] = static_cast<uint8_t>(correction);
    return true;
}

// The tail. Write the quotient with its correction pair as one integer E,
// whose last digit is the quotient digit at s = 2L + 1, and let
// T = 2L - tailDigits. Every step before the remainder's leading digit first
// lies below window digit T places its digit at s <= T + 1, where nothing of
// q x divisor has yet been dropped; at that moment E = m x 10^tailDigits for
// some integer m, the remainder is exactly A - m x B x 10^sh (A the window's
// dividend, B the divisor, sh its shift at s = T + 1) and its magnitude is
// below 10^(2n - 1 - T). So m is one of the few integers for which that
// bound holds; from there on the division depends on nothing but the
// remainder. runTail replays every such candidate to the end and returns
// the distinct E they end with; the whole division ends with one of them.
// (They differ, when they do, by a few units of E's last digit.) Two
// candidates whose remainders meet agree from then on, so after the first
// one a candidate stops as soon as it reaches a remainder the first one had
// (while no digits have been dropped, equal offsets mean equal remainders).
bool Replay::prefix(int tailDigits, std::vector<uint8_t>& e, int64_t& r0) const {
    const int64_t T = 2 * static_cast<int64_t>(length_) - tailDigits;
    const int32_t sh = static_cast<int32_t>(shiftOf(T + 1));   // odd: tailDigits + 3 - 2 lb
    // m0 = floor(A / (B x 10^sh)) and r0 = that division's remainder over
    // 10^sh, from A' = floor(A / 10^(sh - 1)), whose digits are whole bytes
    // of the window, divided by 10 B: fourteen digits at a time when 10 B
    // is below 10^5, twelve below 10^7, else eight. Its bytes go straight to
    // E's, from byte tailDigits / 2 up.
    const uint64_t tenB = 10 * static_cast<uint64_t>(divisorValue_);
    const int32_t bottom = (sh - 1) / 2 - (n_ - length_);   // A's lowest byte as a mantissa index
    e.assign(static_cast<std::size_t>(length_) + 2, 0);
    const uint8_t* d = a_.digits.data() + bottom;   // bottom >= 0: sh is at least 12 + 3 - 10
    uint64_t rest = 0;
    const Reciprocal divisor(tenB);
    const auto at = static_cast<std::size_t>(tailDigits / 2);
    const int32_t count = length_ - bottom;
    bool divided;
    if (tenB < 100000) {
        divided = divideInChunks<7>(d, count, divisor, e, at, rest);
    } else if (tenB < 10000000) {
        divided = divideInChunks<6>(d, count, divisor, e, at, rest);
    } else {
        divided = divideInChunks<4>(d, count, divisor, e, at, rest);
    }
    r0 = static_cast<int64_t>(rest / 10);
    return divided;
}

bool Replay::runTail(int tailDigits, std::vector<uint8_t>& e, std::vector<Wide>& ends) const {
    const int64_t T = 2 * static_cast<int64_t>(length_) - tailDigits;
    if (T < 2 * tailDigits) return false;   // short values: the whole division is as quick
    const int32_t sh = static_cast<int32_t>(shiftOf(T + 1));
    int64_t r0 = 0;
    if (!prefix(tailDigits, e, r0)) return false;
    const bool belowIsNonzero = lowestNonzero_ < sh;
    // |remainder| < 10^(2n - 1 - T), that is |r0 + j B + fraction| < 10^(2 lb)
    // for m = m0 - j, the fraction being the dividend's digits below sh.
    const int64_t bound = Pow10[2 * lb_];
    const int64_t lowest = belowIsNonzero ? -bound : -bound + 1;
    const auto floorDiv = [](int64_t x, int64_t y) { return x / y - ((x % y != 0) && (x < 0)); };
    const int64_t jFirst = -floorDiv(r0 - lowest, divisorValue_);   // smallest j with r0 + jB >= lowest
    const int64_t jLast = floorDiv(bound - 1 - r0, divisorValue_);

    OffsetSet firstOffsets;   // the first candidate's offsets while exact
    bool haveFirst = false;
    ends.clear();   // E - m0 x 10^tailDigits
    for (int64_t j = jFirst; j <= jLast; ++j) {
        int32_t p = sh;
        int64_t W = r0 + j * divisorValue_;
        Wide offset = -static_cast<Wide>(j) * WidePow10[tailDigits];
        bool exactSoFar = true;
        const auto meetsFirst = [&] {
            return haveFirst && exactSoFar && firstOffsets.contains(offset);
        };
        if (!haveFirst) firstOffsets.insert(offset);
        bool merged = meetsFirst();
        for (int64_t count = 0; !merged; ++count) {
            if (count > 20 * (tailDigits + 10)) return false;
            const Step next = step(p, W);
            if (next.outcome == Outcome::TooWide) return false;
            if (next.outcome != Outcome::Digit) break;
            const int64_t weight = lastDigit_ + 2 - next.s;   // the digit counts 10^weight in E
            if (weight < 0 || weight > tailDigits + 3) return false;
            offset += next.q * WidePow10[weight];
            exactSoFar = exactSoFar && next.exactStep;
            if (!haveFirst && exactSoFar) firstOffsets.insert(offset);
            merged = meetsFirst();
        }
        if (merged) continue;   // it ends where the first one ends
        haveFirst = true;
        if (std::find(ends.begin(), ends.end(), offset) == ends.end()) ends.push_back(offset);
    }
    return haveFirst;
}

// The top. E differs from the exact quotient A / (B x 10^(sh - tailDigits))
// by far less than 10^4 units of its last digit (the final remainder and
// the digits q x divisor dropped below the window are that small), and the
// exact quotient is m0 x 10^tailDigits + (r0 + F) / B x 10^tailDigits, F in
// 0..1 from the dividend's digits below sh. With 1 <= r0 <= B - 2 that last
// part stays at least 10^tailDigits / B, at least 10^10 units, away from 0
// and from 10^tailDigits: E's digits above the tail are m0's, and the
// rounding at its end cannot carry up into them.
bool Replay::runTop(int tailDigits, std::vector<uint8_t>& e) const {
    int64_t r0 = 0;
    if (!prefix(tailDigits, e, r0)) return false;
    return r0 >= 1 && r0 <= divisorValue_ - 2;
}

// E = m0 x 10^tailDigits (in e already) + the offset, with carries; the top
// byte of E is the quotient's overflow byte. False when E leaves its bytes.
bool addOffset(std::vector<uint8_t>& e, Wide offset) {
    const bool negative = offset < 0;
    const Wide magnitude = negative ? -offset : offset;
    // Its pairs from two 64-bit halves (a 128-bit division is a library call).
    constexpr int64_t HalfPairs = 9;
    uint64_t low = static_cast<uint64_t>(magnitude % Pow10[2 * HalfPairs]);
    uint64_t high = static_cast<uint64_t>(magnitude / Pow10[2 * HalfPairs]);
    int carry = 0;
    for (std::size_t k = 0; k < e.size() && (low != 0 || high != 0 || carry != 0); ++k) {
        int digit;
        if (k < HalfPairs) {
            digit = static_cast<int>(low % 100);
            low /= 100;
        } else {
            digit = static_cast<int>(high % 100);
            high /= 100;
        }
        int v = e[k] + (negative ? -digit : digit) + carry;
        carry = 0;
        if (v >= 100) {
            v -= 100;
            carry = 1;
        } else if (v < 0) {
            v += 100;
            carry = -1;
        }
        e[k] = static_cast<uint8_t>(v);
    }
    return carry == 0 && low == 0 && high == 0;
}

// E (the correction pair, then the quotient bytes and the overflow byte)
// turned into the result, as divide finishes: an overflow byte shifted in,
// leading zeros shifted out with the correction fed in, else the final
// rounding on the correction.
BigNum finish(const std::vector<uint8_t>& e, int32_t length, int64_t exponent, int8_t sign) {
    BigNum r = makeZero(length);
    std::copy(e.begin() + 1, e.begin() + 1 + length, r.digits.begin());
    r.exponent = static_cast<int32_t>(exponent);
    r.sign = sign;
    const int correction = e[0];
    int overflow = e[static_cast<std::size_t>(length) + 1];
    if (overflow != 0) {
        int guard = correction;
        while (overflow != 0) {
            guard = (r.digits[0] % 10) * 10 + guard / 10;
            shiftRightOneDigit(r, overflow % 10);
            if (!incrementExponent(r)) return r;
            overflow /= 10;
        }
        normalize(r, guard);
    } else if (r.digits[length - 1] < 10) {
        normalize(r, correction);
    } else if (correction > 50) {
        addAtDigit(r, 1, 0);
    }
    return r;
}

// The tail's replays nearly always end in values that round to one result;
// then it is the whole division's, whichever of them that one takes.
std::optional<BigNum> resultFromTail(const Replay& replay, int tailDigits, int32_t length, int64_t exponent, int8_t sign) {
    std::vector<uint8_t> prefix;
    std::vector<Wide> ends;
    if (!replay.runTail(tailDigits, prefix, ends)) return std::nullopt;
    std::optional<BigNum> agreed;
    std::vector<uint8_t> e;
    for (const Wide end : ends) {
        e = prefix;
        if (!addOffset(e, end)) return std::nullopt;
        BigNum r = finish(e, length, exponent, sign);
        if (agreed && *agreed != r) return std::nullopt;
        agreed = std::move(r);
    }
    return agreed;
}

// Tried first: a short tail has fewer steps to replay; when its candidates
// end apart, the longest tail gives them more digits to meet in.
constexpr int ShortTail = 12;

}  // namespace

BigNum divideBySmallWith(const BigNum& a, int32_t v, bool fromTail) {
    const int32_t length = a.length();
    // A divisor of up to ten digits fills at most five bytes: at six bytes it
    // has the same top bytes as at the dividend's length, and no work to clear.
    const int32_t divisorLength = length < 6 ? length : 6;
    const BigNum b = fromInt(divisorLength, v);
    if (v <= 0 || b.length() != divisorLength || !a.isFinite() || a.isZero()) return divide(a, fromInt(length, v));
    const int8_t sign = static_cast<int8_t>(a.sign * b.sign);
    const int64_t exponent = static_cast<int64_t>(a.exponent) - b.exponent;
    if (wrapsInt32(exponent)) return makeInfinity(length, sign);

    const Replay replay(a, b);
    if (fromTail) {
        for (const int tailDigits : {ShortTail, Replay::MaxTailDigits}) {
            if (std::optional<BigNum> r = resultFromTail(replay, tailDigits, length, exponent, sign)) return *std::move(r);
        }
    }
    std::vector<uint8_t> e;
    if (replay.runWhole(e)) return finish(e, length, exponent, sign);
    return divide(a, fromInt(length, v));
}

BigNum divideBySmall(const BigNum& a, int32_t v) { return divideBySmallWith(a, v, true); }

BigNum divideBySmallForSum(const BigNum& a, int32_t v, const BigNum& sum) {
    const int32_t length = a.length();
    const int32_t divisorLength = length < 6 ? length : 6;
    const BigNum b = fromInt(divisorLength, v);
    if (v <= 0 || b.length() != divisorLength || !a.isFinite() || a.isZero() || !sum.isFinite() || sum.isZero() ||
        sum.length() != length) {
        return divideBySmall(a, v);
    }
    // E's digit i stands for 10^(X - 2L - 1 + i), X the quotient's exponent
    // before normalising (the result's exponent is X - 1, X or above); the
    // sum reads digits down to 10^(exponent - 2 length - 1) when the term's
    // exponent is not above its own. Two digits of margin.
    const int64_t X = static_cast<int64_t>(a.exponent) - b.exponent;
    const int64_t readFrom = static_cast<int64_t>(sum.exponent) - 2 * static_cast<int64_t>(sum.length()) - 1;
    int64_t tailDigits = readFrom - (X - 2 * static_cast<int64_t>(length) - 1) - 2;
    tailDigits -= tailDigits % 2;
    if (X + 2 > sum.exponent || tailDigits < 20 || wrapsInt32(X)) return divideBySmall(a, v);
    // A term wholly below the sum still needs its leading digits (its
    // exponent stops the series).
    if (tailDigits > 2 * static_cast<int64_t>(length) - 4) tailDigits = 2 * static_cast<int64_t>(length) - 4;
    const Replay replay(a, b);
    std::vector<uint8_t> e;
    if (!replay.runTop(static_cast<int>(tailDigits), e)) return divideBySmall(a, v);
    return finish(e, length, X, static_cast<int8_t>(a.sign * b.sign));
}

}  // namespace quorvel::elementary_detail
