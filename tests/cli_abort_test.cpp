// Ctrl+C in the terminal: a long computation stops with "Aborted", the stack
// is as before the line, and the program goes on.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace std::chrono_literals;

struct Finished {
    std::string out;
    std::string err;
    int status = -1;
    std::chrono::milliseconds afterInterrupt{0};
};

// Reads what is available on a non-blocking descriptor.
void drain(int fd, std::string& into) {
    char buffer[4096];
    for (ssize_t got = ::read(fd, buffer, sizeof buffer); got > 0; got = ::read(fd, buffer, sizeof buffer)) {
        into.append(buffer, static_cast<size_t>(got));
    }
}

// Starts quorvel with `arguments`, feeds `input` on standard input, sends
// SIGINT once `delay` has passed and waits (at most 20 s) for the end.
Finished interruptedRun(const std::vector<std::string>& arguments, const std::string& input,
                        std::chrono::milliseconds delay) {
    int in[2], out[2], err[2];
    if (::pipe(in) != 0 || ::pipe(out) != 0 || ::pipe(err) != 0) return {};
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(in[0], 0);
        ::dup2(out[1], 1);
        ::dup2(err[1], 2);
        for (int fd : {in[0], in[1], out[0], out[1], err[0], err[1]}) ::close(fd);
        std::vector<char*> argv{const_cast<char*>(QUORVEL_BINARY)};
        for (const std::string& a : arguments) argv.push_back(const_cast<char*>(a.c_str()));
        argv.push_back(nullptr);
        ::execv(QUORVEL_BINARY, argv.data());
        ::_exit(127);
    }
    ::close(in[0]);
    ::close(out[1]);
    ::close(err[1]);
    (void)!::write(in[1], input.data(), input.size());
    ::close(in[1]);
    ::fcntl(out[0], F_SETFL, O_NONBLOCK);
    ::fcntl(err[0], F_SETFL, O_NONBLOCK);

    Finished result;
    std::this_thread::sleep_for(delay);
    ::kill(child, SIGINT);
    const auto interrupted = std::chrono::steady_clock::now();
    int raw = 0;
    while (::waitpid(child, &raw, WNOHANG) == 0) {
        drain(out[0], result.out);
        drain(err[0], result.err);
        if (std::chrono::steady_clock::now() - interrupted > 20s) {
            ::kill(child, SIGKILL);
            ::waitpid(child, &raw, 0);
            break;
        }
        std::this_thread::sleep_for(5ms);
    }
    result.afterInterrupt =
        std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - interrupted);
    drain(out[0], result.out);
    drain(err[0], result.err);
    ::close(out[0]);
    ::close(err[0]);
    result.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return result;
}

TEST(TerminalAbort, CtrlCStopsALongGammaOnTheCommandLine) {
    // gamma of 10^6 at 1000 digits walks down in a million long
    // multiplications: seconds without the interrupt.
    const Finished r =
        interruptedRun({"--no-state", "--rpn", "-e", "1000 std 1000000", "-e", "gamma", "-e", "7"}, "", 400ms);
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("error: Aborted\n"), std::string::npos) << r.err;
    // The operand is back and the next line still ran.
    EXPECT_EQ(r.out, "y :\t1000000\nx :\t7\n");
    EXPECT_LT(r.afterInterrupt, 2000ms);
}

TEST(TerminalAbort, CtrlCInTheConsoleStopsTheLineAndTheNextLineRuns) {
    const Finished r = interruptedRun({"--no-state", "--console"}, "1000 std\ngamma(1000000)\n1 2 +\n", 400ms);
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("Aborted"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find(">3\n"), std::string::npos) << r.out;
    EXPECT_LT(r.afterInterrupt, 2000ms);
}

TEST(TerminalAbort, CtrlCStopsARunawayProgramLoopWithUserBreak) {
    const std::string program = ::testing::TempDir() + "quorvel_spin_" + std::to_string(::getpid()) + ".txt";
    std::ofstream(program) << "function spin {\n    k = 0;\n    while (1 > 0) { k += 1 }\n}\n";
    const Finished r = interruptedRun({"--no-state", "--alg", "--load", program, "-e", "5", "-e", "spin", "-e", "7"}, "",
                                      400ms);
    std::remove(program.c_str());
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("error: User Break\n"), std::string::npos) << r.err;
    EXPECT_NE(r.out.find("y :\t5\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("x :\t7\n"), std::string::npos) << r.out;
    EXPECT_LT(r.afterInterrupt, 2000ms);
}

}  // namespace
