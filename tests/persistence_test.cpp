// The data folder, LoadState and SaveState: the files kept between runs, the
// order they are read and written in, and what a missing file stops.
#include <cstdlib>

#include "tests/persistence_testing.h"

namespace quorvel::test {
namespace {

// Points XDG_DATA_HOME (and HOME) at a test folder for the life of the object.
class Environment {
public:
    // A null value removes the variable.
    Environment(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) old_ = old;
        if (value) ::setenv(name, value, 1);
        else ::unsetenv(name);
    }
    ~Environment() {
        if (old_) ::setenv(name_, old_->c_str(), 1);
        else ::unsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> old_;
};

class Persistence : public ::testing::Test {
protected:
    // Saves `app` into the test folder and loads it into a fresh state.
    void saveAndReload(AppState& app, AppState& loaded) {
        app.dataFolder = folder.path().string();
        SaveState(app);
        loadFrom(loaded, folder.path());
    }

    TempFolder folder;
};

// --- The folder --------------------------------------------------------------

TEST_F(Persistence, FirstStartCreatesBothFoldersAndKeepsTheDefaults) {
    const std::string share = (folder / "share").string();
    Environment xdg("XDG_DATA_HOME", share.c_str());
    AppState app;
    LoadState(app);
    const fs::path company = folder / "share" / "Kestrovalian";
    EXPECT_TRUE(fs::is_directory(company));
    EXPECT_TRUE(fs::is_directory(company / "Quorvel"));
    EXPECT_EQ(fs::path(app.dataFolder), company / "Quorvel");
    EXPECT_TRUE(fs::is_empty(company / "Quorvel"));   // nothing is written by loading
    EXPECT_EQ(app.base, 10);
    EXPECT_EQ(app.digits, 80);
    EXPECT_EQ(app.workingLength, 48);
    EXPECT_EQ(app.wsize, 0);
    const std::array<std::u16string, 8> si{u"m", u"kg", u"s", u"mol", u"K", u"A", u"cd", u"rad"};
    EXPECT_EQ(app.displayUnits, si);
    EXPECT_TRUE(app.stack.empty());
    EXPECT_TRUE(app.memories.empty());
}

TEST_F(Persistence, DefaultFolderFollowsXdgDataHome) {
    Environment xdg("XDG_DATA_HOME", "/data/home");
    EXPECT_EQ(DefaultDataFolder(), "/data/home/Kestrovalian/Quorvel");
}

TEST_F(Persistence, DefaultFolderFallsBackToLocalShareUnderHome) {
    Environment home("HOME", "/home/someone");
    Environment xdg("XDG_DATA_HOME", "");
    EXPECT_EQ(DefaultDataFolder(), "/home/someone/.local/share/Kestrovalian/Quorvel");
}

TEST_F(Persistence, RelativeXdgDataHomeIsIgnored) {
    Environment home("HOME", "/home/someone");
    Environment xdg("XDG_DATA_HOME", "relative/share");
    EXPECT_EQ(DefaultDataFolder(), "/home/someone/.local/share/Kestrovalian/Quorvel");
}

TEST_F(Persistence, DefaultFolderUsesAppDataWhereThereIsNoHome) {
    Environment xdg("XDG_DATA_HOME", nullptr);
    Environment home("HOME", nullptr);
    Environment roaming("APPDATA", "/roaming");
    EXPECT_EQ(DefaultDataFolder(), "/roaming/Kestrovalian/Quorvel");
}

TEST_F(Persistence, NoKnownFolderMeansNothingIsLoadedOrSaved) {
    Environment xdg("XDG_DATA_HOME", nullptr);
    Environment home("HOME", nullptr);
    Environment roaming("APPDATA", nullptr);
    EXPECT_EQ(DefaultDataFolder(), "");
    AppState app;
    LoadState(app);
    EXPECT_EQ(app.dataFolder, "");
    EXPECT_EQ(app.digits, 80);
}

TEST_F(Persistence, GivenFolderIsUsedAndCreated) {
    AppState app;
    loadFrom(app, folder / "given" / "deeper");
    EXPECT_TRUE(fs::is_directory(folder / "given" / "deeper"));
    app.stack.push(Item::integer(bigIntFromI32(4)));
    SaveState(app);
    EXPECT_TRUE(fs::exists(folder / "given" / "deeper" / "Stack.bin"));
}

// --- The edge cases of the three files ----------------------------------------

TEST_F(Persistence, DigitsLineOf5000LoadsAs1000WithWorkingLength518) {
    writeFile(folder / "Globals.txt", "Digits 5000\n");
    AppState app;
    loadFrom(app, folder.path());
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 518);
}

TEST_F(Persistence, UnitLineKmSetsTheLengthDisplayUnit) {
    writeFile(folder / "Globals.txt", "Unit km\n");
    AppState app;
    loadFrom(app, folder.path());
    EXPECT_EQ(app.displayUnits[Length], u"km");
}

TEST_F(Persistence, UnitLineKMIsIgnored) {
    writeFile(folder / "Globals.txt", "Unit KM\n");
    AppState app;
    loadFrom(app, folder.path());
    EXPECT_EQ(app.displayUnits[Length], u"m");
}

TEST_F(Persistence, UnitLineFtAfterKmLeavesFt) {
    writeFile(folder / "Globals.txt", "Unit km\nUnit ft\n");
    AppState app;
    loadFrom(app, folder.path());
    EXPECT_EQ(app.displayUnits[Length], u"ft");
}

TEST_F(Persistence, EmptyStackGivesAnEmptyStackFileThatLoadsAsAnEmptyStack) {
    AppState app, loaded;
    saveAndReload(app, loaded);
    ASSERT_TRUE(fs::exists(folder / "Stack.bin"));
    EXPECT_EQ(fs::file_size(folder / "Stack.bin"), 0u);
    EXPECT_TRUE(loaded.stack.empty());
}

TEST_F(Persistence, StringIntegerWithUnitsAndComplexComeBackInOrder) {
    AppState app, loaded;
    app.stack.push(Item::string(u"km/h"));
    app.stack.push(Item::integer(integerFromLimbs({0x1170, 0x0001}, -1), unitsOf(1, 0, -2, 0, 0, 0, 0, 0)));
    app.stack.push(Item::complex(ComplexNum{realFromPairs({30, 0, 0, 0}, 0, 1), realFromPairs({50, 0, 0, 0}, -1, -1)},
                                 unitsOf(0, 0, 0, 0, 0, 1, 0, 0)));
    saveAndReload(app, loaded);
    ASSERT_EQ(loaded.stack.count(), 3);
    EXPECT_TRUE(sameStack(loaded.stack, app.stack));
    EXPECT_EQ(loaded.stack.at(0)->type, ItemType::Complex);
    EXPECT_EQ(loaded.stack.at(1)->units, unitsOf(1, 0, -2, 0, 0, 0, 0, 0));
    EXPECT_EQ(loaded.stack.at(2)->asText(), u"km/h");
    EXPECT_EQ(loaded.stack.at(0)->asComplex().re.length(), 4);   // every digit byte kept
}

TEST_F(Persistence, Memories3And17ComeBackUnderTheSameNumbersInTheSameOrder) {
    AppState app, loaded;
    addMemory(app.memories, 17, Item::real(realFromPairs({25, 0}, 0, 1)));
    addMemory(app.memories, 3, Item::integer(bigIntFromI32(5)));
    saveAndReload(app, loaded);
    ASSERT_EQ(loaded.memories.size(), 2u);
    EXPECT_EQ(loaded.memories[0].number, 17);
    EXPECT_EQ(loaded.memories[1].number, 3);
    EXPECT_TRUE(sameMemories(loaded.memories, app.memories));
}

TEST_F(Persistence, NullMemoryIsNotSaved) {
    AppState app, loaded;
    addMemory(app.memories, 7, Item());
    addMemory(app.memories, 8, Item::integer(bigIntFromI32(1)));
    saveAndReload(app, loaded);
    ASSERT_EQ(loaded.memories.size(), 1u);
    EXPECT_EQ(loaded.memories[0].number, 8);
}

TEST_F(Persistence, SettingsComeBackAfterARestart) {
    AppState app, loaded;
    app.base = 16;
    app.digits = 250;
    app.dspFlags = 0x45;
    app.entryMode = 1;
    app.trigMode = 1;
    app.wsize = 64;
    app.displayUnits[Length] = u"ft";
    app.displayUnits[Angle] = u"deg";
    saveAndReload(app, loaded);
    EXPECT_EQ(loaded.base, 16);
    EXPECT_EQ(loaded.digits, 250);
    EXPECT_EQ(loaded.workingLength, 250 / 2 + 250 / 100 + 8);
    EXPECT_EQ(loaded.dspFlags, 0x45);
    EXPECT_EQ(loaded.entryMode, 1);
    EXPECT_EQ(loaded.trigMode, 1);
    EXPECT_EQ(loaded.wsize, 64);
    EXPECT_EQ(loaded.displayUnits, app.displayUnits);
}

TEST_F(Persistence, FilesAreWrittenWithTheirExactNames) {
    AppState app;
    app.dataFolder = folder.path().string();
    SaveState(app);
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder.path())) names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Globals.txt", "Memory.bin", "Stack.bin"}));
}

// --- Failures chain ------------------------------------------------------------

TEST_F(Persistence, MissingSettingsFileStopsTheLoadingOfStackAndMemories) {
    AppState app;
    app.stack.push(Item::integer(bigIntFromI32(9)));
    addMemory(app.memories, 3, Item::integer(bigIntFromI32(5)));
    app.dataFolder = folder.path().string();
    SaveState(app);
    fs::remove(folder / "Globals.txt");
    AppState loaded;
    loadFrom(loaded, folder.path());
    EXPECT_TRUE(loaded.stack.empty());
    EXPECT_TRUE(loaded.memories.empty());
}

TEST_F(Persistence, MissingSettingsFileSkipsTheDigitsClampAndLengthStep) {
    AppState app;
    app.digits = 5000;         // as nothing but a file could leave it
    app.workingLength = 17;
    loadFrom(app, folder.path());
    EXPECT_EQ(app.digits, 5000);
    EXPECT_EQ(app.workingLength, 17);
}

TEST_F(Persistence, MissingStackFileStopsTheLoadingOfMemories) {
    AppState app;
    addMemory(app.memories, 3, Item::integer(bigIntFromI32(5)));
    app.dataFolder = folder.path().string();
    SaveState(app);
    fs::remove(folder / "Stack.bin");
    AppState loaded;
    loadFrom(loaded, folder.path());
    EXPECT_TRUE(loaded.memories.empty());
}

TEST_F(Persistence, SettingsFileThatCannotBeWrittenStopsTheSaving) {
    fs::create_directories(folder / "Globals.txt" / "in-the-way");   // no file can replace it
    AppState app;
    app.stack.push(Item::integer(bigIntFromI32(9)));
    app.dataFolder = folder.path().string();
    SaveState(app);
    EXPECT_FALSE(fs::exists(folder / "Stack.bin"));
    EXPECT_FALSE(fs::exists(folder / "Memory.bin"));
}

TEST_F(Persistence, StackFileThatCannotBeWrittenStopsTheSavingOfMemories) {
    fs::create_directories(folder / "Stack.bin" / "in-the-way");
    AppState app;
    addMemory(app.memories, 3, Item::integer(bigIntFromI32(5)));
    app.dataFolder = folder.path().string();
    SaveState(app);
    EXPECT_TRUE(fs::exists(folder / "Globals.txt"));
    EXPECT_FALSE(fs::exists(folder / "Memory.bin"));
}

TEST_F(Persistence, FailedSaveLeavesNoTemporaryFileBehind) {
    fs::create_directories(folder / "Globals.txt" / "in-the-way");
    AppState app;
    app.dataFolder = folder.path().string();
    SaveState(app);
    int others = 0;
    for (const auto& entry : fs::directory_iterator(folder.path())) others += entry.path().filename() != "Globals.txt";
    EXPECT_EQ(others, 0);
}

TEST_F(Persistence, NoFolderKnownMeansNothingIsWritten) {
    AppState app;
    app.stack.push(Item::integer(bigIntFromI32(9)));
    SaveState(app);   // dataFolder empty: must not write into the working folder
    EXPECT_FALSE(fs::exists("Stack.bin"));
}

TEST_F(Persistence, LoadingPushesOntoTheStackInTheSavedOrder) {
    writeFile(folder / "Globals.txt", "");
    writeFile(folder / "Stack.bin", hexDataFile("stack_each_type.hex"));
    AppState app;
    loadFrom(app, folder.path());
    ASSERT_EQ(app.stack.count(), 6);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::VariableRef);   // the last record is the top
    EXPECT_EQ(app.stack.at(5)->type, ItemType::Integer);       // the first is the bottom
}

}  // namespace
}  // namespace quorvel::test
