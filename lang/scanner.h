// The scanner: cuts one line of command-language text into token Items, and
// the token reader that feeds program files to the compilers one token at a
// time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <string_view>

#include "lang/item.h"

namespace quorvel {

struct AppState;

// A program file is read in pieces of at most this many characters.
inline constexpr std::size_t MaxLineChars = 1024;

// Scans one token of `line` from `pos` and moves `pos` past it; none at the
// end of the line. With `signsSeparate` a '+' or '-' is never part of a
// number. Numbers parse at the working length (reals) or the current base
// (based integers, '#' entry); never reports.
std::optional<Item> ScanToken(AppState& app, std::u16string_view line, std::size_t& pos, bool signsSeparate);

// Scans the whole line and appends every token at the tail of `list`, so the
// head is the line's first token. Never reports.
void TokenizeLine(AppState& app, std::u16string_view line, ItemList& list, bool signsSeparate);

// Where a program's text comes from: pieces of lines, each at most
// MaxLineChars characters and without its line end.
class LineSource {
public:
    virtual ~LineSource() = default;
    // The next piece of text; a line longer than MaxLineChars continues in the
    // following reads. None at the end of the input.
    virtual std::optional<std::u16string> readLine() = 0;
};

// Lines of UTF-8 text from a stream (a program file).
class StreamLineSource : public LineSource {
public:
    explicit StreamLineSource(std::istream& in) : in_(in) {}
    std::optional<std::u16string> readLine() override;

private:
    std::istream& in_;
    std::u16string rest_;   // the part of a long line not yet handed out
    bool haveRest_ = false;
};

// Lines of a text held in memory, split at '\n'.
class TextLineSource : public LineSource {
public:
    explicit TextLineSource(std::u16string text) : text_(std::move(text)) {}
    std::optional<std::u16string> readLine() override;

private:
    std::u16string text_;
    std::size_t pos_ = 0;
    std::u16string rest_;
    bool haveRest_ = false;
};

// Takes the next token: when `pending` is empty, reads lines from `file`
// (none: no file) and tokenizes each with signs separate until one yields a
// token; then takes the head of `pending`. None at the end of the input.
std::optional<Item> ReadFileToken(AppState& app, ItemList& pending, LineSource* file);

// The pending token list and the file the compilers read from.
struct TokenReader {
    ItemList pending;
    LineSource* file = nullptr;   // not owned; none: only the pending tokens

    // ReadFileToken over this reader.
    std::optional<Item> next(AppState& app) { return ReadFileToken(app, pending, file); }
    // Puts a token back at the head of the pending list; it is read next.
    void putBack(Item token) { pending.push(std::move(token)); }
};

}  // namespace quorvel
