// A host for tests: records every message and console line, answers
// questions from scripted replies.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "lang/host.h"

namespace quorvel::test {

struct ShownMessage {
    std::u16string text;
    int severity;
};

class RecordingHost : public Host {
public:
    void showMessage(std::u16string_view text, int severity) override {
        messages.push_back({std::u16string(text), severity});
        current = messages.back();
    }
    void clearMessage() override { current.reset(); ++clears; }
    bool onConsoleThread() const override { return consoleThread; }
    void consoleWrite(std::u16string_view line) override { consoleLines.emplace_back(line); }
    std::optional<std::u16string> consoleRead(std::u16string_view) override {
        if (consoleInput.empty()) return std::nullopt;
        std::u16string line = consoleInput.front();
        consoleInput.pop_front();
        return line;
    }
    bool confirm(std::u16string_view, std::u16string_view) override { ++questions; return confirmAnswer; }
    int32_t pickMemory(const std::vector<MemoryChoice>& choices) override {
        offeredMemories = choices;
        return pickedMemory;
    }
    bool abortRequested() override { return abortNow; }

    // The text now showing in the message strip, or empty.
    std::u16string shownText() const { return current ? current->text : std::u16string(); }
    int shownSeverity() const { return current ? current->severity : 0; }

    std::vector<ShownMessage> messages;
    std::optional<ShownMessage> current;
    int clears = 0;
    bool consoleThread = false;
    std::vector<std::u16string> consoleLines;
    std::deque<std::u16string> consoleInput;
    bool confirmAnswer = true;
    int questions = 0;
    int32_t pickedMemory = 0;
    std::vector<MemoryChoice> offeredMemories;
    bool abortNow = false;
};

}  // namespace quorvel::test
