// The quorvel command line keeps its stack, memories and settings from one
// run to the next, in the folder it is given or the per-user one.
#include <array>
#include <cstdio>

#include <sys/wait.h>

#include "tests/persistence_testing.h"

namespace quorvel::test {
namespace {

struct RunResult {
    std::string out;
    int status = -1;
};

// Runs quorvel with `arguments` (already shell-quoted), `input` on standard
// input and `environment` ("NAME=value ...") in front; standard error is dropped.
RunResult quorvel(const std::string& arguments, const std::string& input = "", const std::string& environment = "") {
    static int serial = 0;
    const std::string inPath =
        ::testing::TempDir() + "quorvel_state_cli_" + std::to_string(::getpid()) + "_" + std::to_string(serial++);
    writeFile(inPath, input);
    const std::string command =
        environment + " " + QUORVEL_BINARY + " " + arguments + " <" + inPath + " 2>/dev/null";
    RunResult run;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        std::array<char, 4096> buffer{};
        size_t got = 0;
        while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) run.out.append(buffer.data(), got);
        const int raw = ::pclose(pipe);
        run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    }
    std::remove(inPath.c_str());
    return run;
}

class PersistenceCli : public ::testing::Test {
protected:
    std::string dataDir() const { return "--data-dir '" + folder.path().string() + "' --rpn "; }

    TempFolder folder;
};

TEST_F(PersistenceCli, StackLeftByOneRunIsThereForTheNext) {
    EXPECT_EQ(quorvel(dataDir() + "-e '5 7'").out, "y :\t5\nx :\t7\n");
    EXPECT_EQ(quorvel(dataDir() + "-e '+'").out, "x :\t12\n");
    EXPECT_EQ(quorvel(dataDir() + "-e 'drop'").out, "");
    EXPECT_EQ(quorvel(dataDir() + "-e '1'").out, "x :\t1\n");
}

TEST_F(PersistenceCli, StackOfEveryTypeComesBackAsItWasShown) {
    const RunResult first = quorvel(dataDir() + "-e \"12345678901234567890 1.5 'text' -2.25e-7\"");
    const RunResult second = quorvel(dataDir() + "-e ''");   // an empty line: shows the stack it loaded
    EXPECT_EQ(second.out, first.out);
    EXPECT_NE(first.out.find("'text'"), std::string::npos);
}

TEST_F(PersistenceCli, MemoryStoredByOneRunIsRecalledByTheNext) {
    quorvel(dataDir() + "-e '5 3 sto'");
    EXPECT_EQ(quorvel(dataDir() + "-e '3 rcl'").out, "x :\t5\n");
}

TEST_F(PersistenceCli, SettingsChangedByOneRunHoldInTheNext) {
    quorvel(dataDir() + "-e '40 std' -e 'hex'");
    EXPECT_EQ(quorvel(dataDir() + "-e '255'").out, "x :\t0FF\n");
    const std::string settings = readFile(folder / "Globals.txt");
    EXPECT_EQ(settings.substr(0, settings.find("DspFlags")), "Base 16\nDigits 40\n");
}

TEST_F(PersistenceCli, ErrorInALineStillSavesTheStack) {
    const RunResult run = quorvel(dataDir() + "-e '4 +'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(quorvel(dataDir() + "-e ''").out, "x :\t4\n");
}

TEST_F(PersistenceCli, ConsoleRunSavesAtTheEndOfInput) {
    quorvel(dataDir() + "--console", "5 3 sto\n");
    EXPECT_EQ(quorvel(dataDir() + "-e '3 rcl'").out, "x :\t5\n");
}

TEST_F(PersistenceCli, NoStateNeitherLoadsNorSaves) {
    quorvel(dataDir() + "-e '9'");
    EXPECT_EQ(quorvel("--no-state " + dataDir() + "-e '1'").out, "x :\t1\n");   // the 9 is not loaded
    EXPECT_EQ(quorvel(dataDir() + "-e ''").out, "x :\t9\n");                               // nor the 1 saved
    TempFolder untouched;
    quorvel("--no-state --data-dir '" + untouched.path().string() + "/new' -e '1'");
    EXPECT_FALSE(fs::exists(untouched / "new"));
}

TEST_F(PersistenceCli, WithoutADataDirTheFolderUnderXdgDataHomeIsUsed) {
    const std::string environment = "XDG_DATA_HOME='" + folder.path().string() + "'";
    quorvel("--rpn -e '42'", "", environment);
    EXPECT_TRUE(fs::exists(folder / "Kestrovalian" / "Quorvel" / "Stack.bin"));
    EXPECT_EQ(quorvel("--rpn -e ''", "", environment).out, "x :\t42\n");
}

TEST_F(PersistenceCli, DamagedStackFileStartsWithWhatCouldBeRead) {
    quorvel(dataDir() + "-e '1 2 3'");
    const std::string bytes = readFile(folder / "Stack.bin");
    writeFile(folder / "Stack.bin", bytes.substr(0, bytes.size() - 3));   // the top record is cut
    EXPECT_EQ(quorvel(dataDir() + "-e ''").out, "y :\t1\nx :\t2\n");
}

}  // namespace
}  // namespace quorvel::test
