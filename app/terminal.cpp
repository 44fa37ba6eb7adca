#include "app/terminal.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

#include "numeric/numtext.h"

namespace quorvel::app {
namespace {

std::atomic<bool> interruptPending{false};

void onInterrupt(int) { interruptPending.store(true); }

void writeLine(std::ostream& out, std::u16string_view text) {
    out << toUtf8(text) << '\n';
    out.flush();
}

std::optional<std::u16string> prompted(std::u16string_view prompt) {
    std::cout << toUtf8(prompt);
    std::cout.flush();
    bool interrupted = false;
    auto line = ReadTerminalLine(interrupted);
    if (!line) return std::nullopt;
    return fromUtf8(*line);
}

}  // namespace

void InstallInterruptHandler() {
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    action.sa_flags = 0;   // no SA_RESTART: a read waiting for input returns
    sigaction(SIGINT, &action, nullptr);
}

std::optional<std::string> ReadTerminalLine(bool& interrupted) {
    std::string line;
    interrupted = false;
    char c = 0;
    for (;;) {
        ssize_t got = ::read(STDIN_FILENO, &c, 1);
        if (got == 1) {
            if (c == '\n') return line;
            if (c != '\r') line.push_back(c);
            continue;
        }
        if (got < 0 && errno == EINTR) {
            if (interruptPending.exchange(false)) {
                interrupted = true;
                return std::string();
            }
            continue;
        }
        if (line.empty()) return std::nullopt;   // end of input
        return line;
    }
}

void TerminalHost::showMessage(std::u16string_view text, int severity) {
    shown_ = std::make_pair(std::u16string(text), severity);
}

void TerminalHost::clearMessage() { shown_.reset(); }

void TerminalHost::consoleWrite(std::u16string_view line) { writeLine(std::cout, line); }

std::optional<std::u16string> TerminalHost::consoleRead(std::u16string_view prompt) { return prompted(prompt); }

bool TerminalHost::confirm(std::u16string_view title, std::u16string_view question) {
    auto answer = prompted(std::u16string(title) + u": " + std::u16string(question) + u"? (y/n) ");
    return answer && !answer->empty() && (answer->front() == u'y' || answer->front() == u'Y');
}

int32_t TerminalHost::pickMemory(const std::vector<MemoryChoice>& choices) {
    if (choices.empty()) {
        writeLine(std::cout, u"No memories");
        return 0;
    }
    for (const MemoryChoice& choice : choices) {
        char number[16];
        std::snprintf(number, sizeof number, "%03d:\t", static_cast<int>(choice.number));
        writeLine(std::cout, fromUtf8(number) + choice.text);
    }
    auto answer = prompted(u"Memory number (0 or empty to cancel): ");
    if (!answer || answer->empty()) return 0;
    return static_cast<int32_t>(std::strtol(toUtf8(*answer).c_str(), nullptr, 10));
}

bool TerminalHost::abortRequested() { return interruptPending.exchange(false); }

}  // namespace quorvel::app
