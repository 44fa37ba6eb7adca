// The quorvel command line, run as a user runs it.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <string>
#include <sys/wait.h>

namespace {

struct RunResult {
    std::string out;
    std::string err;
    int status = -1;
};

// Runs the quorvel binary with `arguments` (shell-quoted by the caller) and
// `input` on standard input.
RunResult runQuorvel(const std::string& arguments, const std::string& input = "") {
    const std::string base = ::testing::TempDir() + "quorvel_cli_" + std::to_string(::getpid());
    const std::string inPath = base + ".in", errPath = base + ".err";
    std::ofstream(inPath) << input;
    const std::string command = std::string(QUORVEL_BINARY) + " " + arguments + " <" + inPath + " 2>" + errPath;
    RunResult result;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe) return result;
    std::array<char, 4096> buffer{};
    size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0) result.out.append(buffer.data(), got);
    const int raw = ::pclose(pipe);
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    std::ifstream errFile(errPath);
    result.err.assign(std::istreambuf_iterator<char>(errFile), std::istreambuf_iterator<char>());
    std::remove(inPath.c_str());
    std::remove(errPath.c_str());
    return result;
}

TEST(CommandLine, RpnLinePrintsTheStack) {
    auto r = runQuorvel("--no-state --rpn -e '2 3 +'");
    EXPECT_EQ(r.out, "x :\t5\n");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(r.status, 0);
}

TEST(CommandLine, SeveralLinesShareTheStackDeepestFirst) {
    auto r = runQuorvel("--no-state --rpn -e '1 2' -e '3 4 5'");
    EXPECT_EQ(r.out, "5 :\t1\n4 :\t2\nz :\t3\ny :\t4\nx :\t5\n");
    EXPECT_EQ(r.status, 0);
}

TEST(CommandLine, AlgebraicLine) {
    auto r = runQuorvel("--no-state --alg -e '2*(3+4)'");
    EXPECT_EQ(r.out, "x :\t14\n");
}

TEST(CommandLine, ErrorGoesToStandardErrorWithStatusOne) {
    auto r = runQuorvel("--no-state --rpn -e '+'");
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "error: Missing Operand\n");
    EXPECT_EQ(r.status, 1);
}

TEST(CommandLine, WarningKeepsStatusZero) {
    auto r = runQuorvel("--no-state --rpn -e '1001 std'");
    EXPECT_EQ(r.err, "warning: Digits Limited to 1000\n");
    EXPECT_EQ(r.status, 0);
}

TEST(CommandLine, PlainOutputUsesAsciiMinus) {
    auto r = runQuorvel("--no-state --rpn --plain -e '-5'");
    EXPECT_EQ(r.out, "x :\t-5\n");
    auto typographic = runQuorvel("--no-state --rpn -e '-5'");
    EXPECT_EQ(typographic.out, "x :\t\xE2\x88\x92" "5\n");   // U+2212 in UTF-8
}

TEST(CommandLine, BadUsageIsStatusTwo) {
    EXPECT_EQ(runQuorvel("--no-such-option").status, 2);
    EXPECT_EQ(runQuorvel("-e").status, 2);
}

TEST(CommandLine, HelpDocumentsTheOptions) {
    auto r = runQuorvel("--help");
    EXPECT_EQ(r.status, 0);
    for (const char* option : {"-e", "--console", "--rpn", "--alg", "--plain", "--load", "--data-dir", "--no-state",
                               "--version"})
        EXPECT_NE(r.out.find(option), std::string::npos) << option;
}

TEST(CommandLine, VersionNamesTheProgram) {
    auto r = runQuorvel("--version");
    EXPECT_EQ(r.out, "Quorvel v2.1.8\n");
}

TEST(Console, PipedLinesPrintResults) {
    auto r = runQuorvel("--no-state --console", "2+3\n7*6\n");
    EXPECT_EQ(r.out, "Quorvel Console\n>5\n>42\n>");
    EXPECT_EQ(r.status, 0);
}

TEST(Console, ErrorsArePrintedInTheConsole) {
    auto r = runQuorvel("--no-state --console", "2*\n");
    // The refused operand goes back and is the line's result.
    EXPECT_EQ(r.out, "Quorvel Console\n>Missing Operand\n2\n>");
}

TEST(Console, ResultIsTakenOffTheStack) {
    // Each line's result is printed and removed: the second line sees an empty stack.
    auto r = runQuorvel("--no-state --console", "2+3\nx\n");
    EXPECT_EQ(r.out, "Quorvel Console\n>5\n>Value Not Found\n>");
}

}  // namespace
