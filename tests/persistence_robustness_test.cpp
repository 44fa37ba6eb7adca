// Damaged, cut and hostile files, saves interrupted or killed half way, and
// two saves at once: nothing crashes and no complete file is ever lost.
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <sys/wait.h>

#include "store/atomic_file.h"
#include "store/settings_file.h"
#include "tests/persistence_testing.h"

namespace quorvel::test {
namespace {

// The stack of the hand-written file, read from it.
ItemList stackFromFile(const std::string& bytes) {
    std::istringstream in(bytes, std::ios::binary);
    ItemList stack;
    ReadStack(in, stack);
    return stack;
}

// Where each record of a written stack ends, bottom first.
std::vector<size_t> recordEnds(const ItemList& stack) {
    std::vector<size_t> ends;
    size_t total = 0;
    for (int32_t i = stack.count(); i-- > 0;) {
        std::ostringstream out(std::ios::binary);
        WriteItem(out, *stack.at(static_cast<size_t>(i)));
        total += out.str().size();
        ends.push_back(total);
    }
    return ends;
}

// The bottom `count` items of `stack`, in a stack of their own.
ItemList bottom(const ItemList& stack, size_t count) {
    ItemList part;
    for (size_t i = 0; i < count; ++i) part.push(stack.at(static_cast<size_t>(stack.count()) - 1 - i)->duplicate());
    return part;
}

// A state with a little of everything in it, different for each `variant`.
void fillState(AppState& app, int variant) {
    app.digits = 100 + variant;
    app.base = static_cast<int16_t>(variant % 2 ? 16 : 10);
    app.displayUnits[Length] = variant % 2 ? u"km" : u"ft";
    app.stack.push(Item::integer(bigIntFromI32(1000 + variant), unitsOf(1, 0, -1, 0, 0, 0, 0, 0)));
    for (int i = 0; i < 40; ++i) {
        std::vector<uint8_t> pairs(200, static_cast<uint8_t>((i + variant) % 90 + 10));
        app.stack.push(Item::real(realFromPairs(pairs, i - variant, 1)));
    }
    app.stack.push(Item::string(variant % 2 ? u"odd" : u"even"));
    addMemory(app.memories, static_cast<int16_t>(3 + variant), Item::integer(bigIntFromI32(variant)));
}

bool sameSettings(const AppState& a, const AppState& b) {
    return a.digits == b.digits && a.base == b.base && a.displayUnits == b.displayUnits;
}

class PersistenceRobustness : public ::testing::Test {
protected:
    TempFolder folder;
};

// --- Damaged files ---------------------------------------------------------------

TEST_F(PersistenceRobustness, TruncatedStackFileLoadsTheWholeRecordsBeforeTheCut) {
    const std::string bytes = hexDataFile("stack_each_type.hex");
    const ItemList whole = stackFromFile(bytes);
    const std::vector<size_t> ends = recordEnds(whole);
    ASSERT_EQ(ends.back(), bytes.size());
    writeFile(folder / "Globals.txt", "Digits 30\n");
    for (size_t cut = 0; cut <= bytes.size(); ++cut) {
        writeFile(folder / "Stack.bin", bytes.substr(0, cut));
        AppState app;
        loadFrom(app, folder.path());
        const auto complete = static_cast<size_t>(std::upper_bound(ends.begin(), ends.end(), cut) - ends.begin());
        ASSERT_TRUE(sameStack(app.stack, bottom(whole, complete))) << "cut at " << cut;
        EXPECT_EQ(app.digits, 30);
    }
}

TEST_F(PersistenceRobustness, TruncatedMemoryFileKeepsTheWholeMemoriesBeforeTheCut) {
    const std::string bytes = hexDataFile("memories_3_17.hex");
    writeFile(folder / "Globals.txt", "");
    writeFile(folder / "Stack.bin", "");
    const size_t firstEnd = 2 + 36 + 4 + 2 + 4 + 2;   // number, header, Real 2.5
    for (size_t cut = 0; cut <= bytes.size(); ++cut) {
        writeFile(folder / "Memory.bin", bytes.substr(0, cut));
        AppState app;
        loadFrom(app, folder.path());
        const size_t expected = cut == bytes.size() ? 2 : (cut >= firstEnd ? 1 : 0);
        ASSERT_EQ(app.memories.size(), expected) << "cut at " << cut;
        if (expected > 0) {
            EXPECT_EQ(app.memories[0].number, 17);
        }
    }
}

TEST_F(PersistenceRobustness, BitFlippedStackFileKeepsTheRecordsBeforeTheFlip) {
    const std::string bytes = hexDataFile("stack_each_type.hex");
    const ItemList whole = stackFromFile(bytes);
    const std::vector<size_t> ends = recordEnds(whole);
    for (size_t at = 0; at < bytes.size(); ++at) {
        const auto intact = static_cast<size_t>(std::upper_bound(ends.begin(), ends.end(), at) - ends.begin());
        for (int bit = 0; bit < 8; ++bit) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(damaged[at] ^ (1 << bit));
            const ItemList loaded = stackFromFile(damaged);
            ASSERT_GE(static_cast<size_t>(loaded.count()), intact) << "byte " << at << " bit " << bit;
            ItemList loadedBottom = bottom(loaded, intact);
            ASSERT_TRUE(sameStack(loadedBottom, bottom(whole, intact))) << "byte " << at << " bit " << bit;
        }
    }
}

TEST_F(PersistenceRobustness, BitFlippedFilesLoadThroughLoadStateWithoutHarm) {
    AppState saved;
    fillState(saved, 1);
    saved.dataFolder = folder.path().string();
    SaveState(saved);
    const std::string settings = readFile(folder / "Globals.txt");
    const std::string memories = readFile(folder / "Memory.bin");
    std::mt19937 random(5);
    for (int trial = 0; trial < 150; ++trial) {
        std::string s = settings, m = memories;
        s[random() % s.size()] ^= static_cast<char>(1 << (random() % 8));
        m[random() % m.size()] ^= static_cast<char>(1 << (random() % 8));
        writeFile(folder / "Globals.txt", s);
        writeFile(folder / "Memory.bin", m);
        AppState app;
        loadFrom(app, folder.path());
        ASSERT_LE(app.digits, 1000);
        EXPECT_EQ(app.workingLength, StartupWorkingLength(app.digits));
        EXPECT_EQ(app.stack.count(), saved.stack.count());   // the stack file was left alone
        EXPECT_LE(app.memories.size(), 1u);
    }
}

TEST_F(PersistenceRobustness, RandomBytesNeverCrashTheReaders) {
    std::mt19937 random(11);
    for (int trial = 0; trial < 2000; ++trial) {
        std::string bytes(random() % 200, '\0');
        for (char& b : bytes) b = static_cast<char>(random());
        // Small type codes and counts make the records reach their payloads.
        if (bytes.size() >= 4) {
            bytes[0] = static_cast<char>(random() % 12);
            bytes[1] = bytes[2] = bytes[3] = 0;
        }
        std::istringstream stack(bytes, std::ios::binary), memories(bytes, std::ios::binary), text(bytes);
        ItemList items;
        ReadStack(stack, items);
        std::vector<Memory> list;
        ReadMemories(memories, list);
        AppState app;
        ReadSettings(text, app);
        EXPECT_LE(app.digits, 1000);
    }
}

TEST_F(PersistenceRobustness, HugeCountsInATinyFileEndReadingAtOnce) {
    std::string bytes = hexDataFile("memories_3_17.hex");
    // Memory 5: an Integer claiming 2^31 - 1 limbs, then a few bytes.
    bytes += std::string("\x05", 1) + std::string(1, '\0') + std::string("\x01", 1) + std::string(35, '\0');
    bytes += std::string("\xff\xff\xff\x7f", 4) + "abcd";
    std::istringstream in(bytes, std::ios::binary);
    std::vector<Memory> loaded;
    const auto start = std::chrono::steady_clock::now();
    ReadMemories(in, loaded);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(loaded.size(), 2u);
}

// --- Interrupted, killed and concurrent saves ---------------------------------------

TEST_F(PersistenceRobustness, InterruptedSaveLeavesThePreviousFilesLoadable) {
    AppState before;
    fillState(before, 0);
    before.dataFolder = folder.path().string();
    SaveState(before);

    // A later save was stopped after writing its temporary files, before any
    // rename: half-written copies lie beside the real files.
    AppState after;
    fillState(after, 1);
    for (const char* name : {"Globals.txt", "Stack.bin", "Memory.bin"}) {
        std::ostringstream content(std::ios::binary);
        if (std::string(name) == "Stack.bin") WriteStack(content, after.stack);
        else content << "Base 2\nDigi";
        const std::string half = content.str().substr(0, content.str().size() / 2);
        writeFile(folder / (TemporaryPrefix(name) + "0123456789abcdef"), half);
    }

    AppState loaded;
    loadFrom(loaded, folder.path());
    EXPECT_TRUE(sameSettings(loaded, before));
    EXPECT_TRUE(sameStack(loaded.stack, before.stack));
    EXPECT_TRUE(sameMemories(loaded.memories, before.memories));

    // The next save goes through as usual.
    after.dataFolder = folder.path().string();
    SaveState(after);
    AppState again;
    loadFrom(again, folder.path());
    EXPECT_TRUE(sameStack(again.stack, after.stack));
}

TEST_F(PersistenceRobustness, SaveKilledAtAnyMomentLeavesWholeFiles) {
    AppState first, second;
    fillState(first, 0);
    fillState(second, 1);
    first.dataFolder = second.dataFolder = folder.path().string();
    SaveState(first);
    std::mt19937 random(3);
    for (int round = 0; round < 12; ++round) {
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            for (;;) {   // saves until it is killed, in the middle of whatever it does
                SaveState(second);
                SaveState(first);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % 30000));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);

        AppState loaded;
        loadFrom(loaded, folder.path());
        EXPECT_TRUE(sameSettings(loaded, first) || sameSettings(loaded, second)) << "round " << round;
        EXPECT_TRUE(sameStack(loaded.stack, first.stack) || sameStack(loaded.stack, second.stack)) << "round " << round;
        EXPECT_TRUE(sameMemories(loaded.memories, first.memories) || sameMemories(loaded.memories, second.memories))
            << "round " << round;
    }
}

TEST_F(PersistenceRobustness, TwoSavesAtOnceLeaveOneOfThemWhole) {
    AppState first, second;
    fillState(first, 0);
    fillState(second, 1);
    first.dataFolder = second.dataFolder = folder.path().string();
    std::thread a([&] { for (int i = 0; i < 25; ++i) SaveState(first); });
    std::thread b([&] { for (int i = 0; i < 25; ++i) SaveState(second); });
    a.join();
    b.join();
    AppState loaded;
    loadFrom(loaded, folder.path());
    EXPECT_TRUE(sameStack(loaded.stack, first.stack) || sameStack(loaded.stack, second.stack));
    EXPECT_TRUE(sameMemories(loaded.memories, first.memories) || sameMemories(loaded.memories, second.memories));
    int temporaries = 0;
    for (const auto& entry : fs::directory_iterator(folder.path()))
        temporaries += entry.path().filename().string().find(".tmp-") != std::string::npos;
    EXPECT_EQ(temporaries, 0);
}

TEST_F(PersistenceRobustness, AtomicWriteReplacesTheWholeFile) {
    writeFile(folder / "Stack.bin", std::string(1000, 'x'));
    ASSERT_TRUE(WriteFileAtomically(folder / "Stack.bin", "short"));
    EXPECT_EQ(readFile(folder / "Stack.bin"), "short");
}

TEST_F(PersistenceRobustness, AtomicWriteIntoAMissingFolderFailsAndChangesNothing) {
    EXPECT_FALSE(WriteFileAtomically(folder / "missing" / "Stack.bin", "data"));
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

TEST_F(PersistenceRobustness, OldLeftoverTemporariesAreRemovedAtLoadingAndFreshOnesKept) {
    const fs::path old = folder / (TemporaryPrefix("Stack.bin") + "aaaaaaaaaaaaaaaa");
    const fs::path fresh = folder / (TemporaryPrefix("Memory.bin") + "bbbbbbbbbbbbbbbb");
    const fs::path foreign = folder / "Notes.txt.tmp-cccccccccccccccc";
    writeFile(old, "old");
    writeFile(fresh, "fresh");
    writeFile(foreign, "not ours");
    fs::last_write_time(old, fs::file_time_type::clock::now() - std::chrono::hours(2));
    fs::last_write_time(foreign, fs::file_time_type::clock::now() - std::chrono::hours(2));
    AppState app;
    loadFrom(app, folder.path());
    EXPECT_FALSE(fs::exists(old));
    EXPECT_TRUE(fs::exists(fresh));    // may belong to a save running right now
    EXPECT_TRUE(fs::exists(foreign));
}

}  // namespace
}  // namespace quorvel::test
