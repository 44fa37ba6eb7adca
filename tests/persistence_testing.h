// Shared pieces of the persistence tests: a throw-away data folder, the hex
// text form of expected files, item comparison and small value builders.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "lang/appstate.h"
#include "lang/item.h"
#include "store/item_record.h"
#include "store/persistence.h"

namespace quorvel::test {

namespace fs = std::filesystem;

// A fresh empty folder under the test temp dir, removed again at the end.
class TempFolder {
public:
    TempFolder() {
        static std::atomic<int> serial{0};
        path_ = fs::path(::testing::TempDir()) /
                ("quorvel_store_" + std::to_string(::getpid()) + "_" + std::to_string(serial++));
        fs::remove_all(path_);
        fs::create_directories(path_);
    }
    ~TempFolder() {
        std::error_code error;
        fs::remove_all(path_, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const fs::path& path() const { return path_; }
    fs::path operator/(const std::string& name) const { return path_ / name; }

private:
    fs::path path_;
};

inline std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

inline void writeFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

// The bytes of a hex text: pairs of hex digits separated by blanks; '#' starts
// a comment that runs to the end of the line.
inline std::string bytesFromHex(const std::string& text) {
    std::string bytes;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        line = line.substr(0, line.find('#'));
        std::istringstream words(line);
        std::string word;
        while (words >> word) {
            EXPECT_EQ(word.size() % 2, 0u) << "odd hex word " << word;
            for (size_t i = 0; i + 1 < word.size(); i += 2)
                bytes.push_back(static_cast<char>(std::stoi(word.substr(i, 2), nullptr, 16)));
        }
    }
    return bytes;
}

inline std::string hexDataFile(const std::string& name) {
    return bytesFromHex(readFile(fs::path(QUORVEL_TEST_DATA) / name));
}

// Type, units and value equal (the value compared by its type's own rules).
inline ::testing::AssertionResult sameItem(const Item& a, const Item& b) {
    if (a.type != b.type)
        return ::testing::AssertionFailure()
               << "type " << static_cast<int>(a.type) << " vs " << static_cast<int>(b.type);
    if (a.units != b.units) return ::testing::AssertionFailure() << "units differ";
    if (a.value != b.value) return ::testing::AssertionFailure() << "values differ";
    return ::testing::AssertionSuccess();
}

inline ::testing::AssertionResult sameStack(const ItemList& a, const ItemList& b) {
    if (a.count() != b.count())
        return ::testing::AssertionFailure() << "count " << a.count() << " vs " << b.count();
    for (int32_t i = 0; i < a.count(); ++i) {
        auto same = sameItem(*a.at(static_cast<size_t>(i)), *b.at(static_cast<size_t>(i)));
        if (!same) return same << " at stack position " << i;
    }
    return ::testing::AssertionSuccess();
}

inline ::testing::AssertionResult sameMemories(const std::vector<Memory>& a, const std::vector<Memory>& b) {
    if (a.size() != b.size()) return ::testing::AssertionFailure() << "count " << a.size() << " vs " << b.size();
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].number != b[i].number)
            return ::testing::AssertionFailure() << "number " << a[i].number << " vs " << b[i].number;
        auto same = sameItem(*a[i].value, *b[i].value);
        if (!same) return same << " in memory " << a[i].number;
    }
    return ::testing::AssertionSuccess();
}

// A BigNum from its pairs written most significant first, as one reads them.
inline BigNum realFromPairs(std::vector<uint8_t> pairsHighFirst, int32_t exponent, int8_t sign,
                            NumKind kind = NumKind::Finite) {
    BigNum x;
    x.digits.assign(pairsHighFirst.rbegin(), pairsHighFirst.rend());
    x.exponent = exponent;
    x.sign = sign;
    x.kind = kind;
    return x;
}

inline BigInt integerFromLimbs(std::vector<uint16_t> limbsLowFirst, int8_t sign) {
    BigInt n;
    n.limbs = std::move(limbsLowFirst);
    n.sign = sign;
    return n;
}

inline UnitVector unitsOf(int32_t length, int32_t mass, int32_t time, int32_t amount, int32_t temperature,
                          int32_t current, int32_t luminous, int32_t angle) {
    return UnitVector{length, mass, time, amount, temperature, current, luminous, angle};
}

inline std::string stackBytes(const ItemList& stack) {
    std::ostringstream out(std::ios::binary);
    WriteStack(out, stack);
    return out.str();
}

inline std::string memoryBytes(const std::vector<Memory>& memories) {
    std::ostringstream out(std::ios::binary);
    WriteMemories(out, memories);
    return out.str();
}

inline void addMemory(std::vector<Memory>& memories, int16_t number, Item value) {
    Memory memory;
    memory.number = number;
    *memory.value = std::move(value);
    memories.push_back(std::move(memory));
}

// Loads the folder into a fresh AppState held by the caller.
inline void loadFrom(AppState& app, const fs::path& folder) {
    app.dataFolder = folder.string();
    LoadState(app);
}

}  // namespace quorvel::test
