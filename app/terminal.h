// The terminal side of the host: messages, questions, console lines and
// Ctrl+C, for `quorvel -e` and `quorvel --console`.
#pragma once

#include <optional>
#include <string>

#include "lang/host.h"

namespace quorvel::app {

// Reads one line from standard input (without its line end); none at end of
// input. A Ctrl+C while waiting gives an empty line and sets `interrupted`.
std::optional<std::string> ReadTerminalLine(bool& interrupted);

// Makes Ctrl+C request an abort instead of ending the program.
void InstallInterruptHandler();

class TerminalHost : public Host {
public:
    explicit TerminalHost(bool consoleMode) : consoleMode_(consoleMode) {}

    void showMessage(std::u16string_view text, int severity) override;
    void clearMessage() override;
    bool onConsoleThread() const override { return consoleMode_; }
    void consoleWrite(std::u16string_view line) override;
    std::optional<std::u16string> consoleRead(std::u16string_view prompt) override;
    bool confirm(std::u16string_view title, std::u16string_view question) override;
    int32_t pickMemory(const std::vector<MemoryChoice>& choices) override;
    bool abortRequested() override;

    // The message now showing (text and severity), if any.
    const std::optional<std::pair<std::u16string, int>>& shown() const { return shown_; }

private:
    bool consoleMode_;
    std::optional<std::pair<std::u16string, int>> shown_;
};

}  // namespace quorvel::app
