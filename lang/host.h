// The host: how the calculator core reaches the user. The desktop window, the
// terminal console and the tests each implement it. Nothing in the core knows
// which one it talks to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// One line of the memory list offered by `0 rcl`.
struct MemoryChoice {
    int32_t number;
    std::u16string text;   // the value's display text
};

class Host {
public:
    virtual ~Host() = default;

    // Shows a message in the message strip at severity 1..4.
    virtual void showMessage(std::u16string_view text, int severity) = 0;
    // Empties the message strip.
    virtual void clearMessage() = 0;
    // True when called on the console reader's thread: its messages of
    // severity 2 and above go to the console as lines.
    virtual bool onConsoleThread() const { return false; }
    // Opens the console when the host has one that is closed (`print` and
    // `input` call it before using the console). The default does nothing.
    virtual void openConsole() {}
    // Ends the console session (`exit` typed while it is open, after the
    // console-open flag is cleared): the reader stops after its current line.
    // The default does nothing.
    virtual void closeConsole() {}
    // Writes one line to the console.
    virtual void consoleWrite(std::u16string_view line) = 0;
    // Reads one line from the console after showing `prompt`; none at end of input.
    virtual std::optional<std::u16string> consoleRead(std::u16string_view prompt) = 0;
    // Asks a yes/no question; true only for Yes.
    virtual bool confirm(std::u16string_view title, std::u16string_view question) = 0;
    // Lets the user pick a memory; 0 when cancelled.
    virtual int32_t pickMemory(const std::vector<MemoryChoice>& choices) = 0;
    // True when the user asked to stop the running computation.
    virtual bool abortRequested() = 0;
};

}  // namespace quorvel
