// The scanner: numbers, names, strings, operators, comments and single
// characters, one token at a time.
#include "lang/scanner.h"

#include <string>

#include "lang/appstate.h"
#include "lang/keywords.h"
#include "numeric/binword.h"
#include "numeric/numtext.h"

namespace quorvel {

namespace {

bool isDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool isLetter(char16_t c) { return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z'); }
bool isNameChar(char16_t c) { return isLetter(c) || isDigit(c) || c == u'_' || c == u'$'; }
char16_t upper(char16_t c) { return (c >= u'a' && c <= u'z') ? static_cast<char16_t>(c - u'a' + u'A') : c; }

char16_t charAt(std::u16string_view line, std::size_t pos) { return pos < line.size() ? line[pos] : u'\0'; }

enum class NumberState { Whole, Fraction, Exponent };

// Copies the characters of a number into `text` as far as the state machine
// allows: digits always; one '.' in the whole part; one 'E' (not in based
// entry) when a digit or sign follows; signs anywhere once the exponent has
// begun, so "1e5-3" stays one number text; in based entry the letters that
// are digits of the current base. Returns whether a '.' or exponent was seen.
bool scanNumberText(const AppState& app, std::u16string_view line, std::size_t& pos, bool based,
                    std::u16string& text) {
    NumberState state = NumberState::Whole;
    bool realText = false;
    while (pos < line.size()) {
        const char16_t c = line[pos];
        if (isDigit(c)) {
            text += c;
        } else if (c == u'.') {
            if (state != NumberState::Whole) break;
            state = NumberState::Fraction;
            realText = true;
            text += c;
        } else if (based && isLetter(c)) {
            const int value = upper(c) - u'A' + 10;
            if (app.base < 11 || value >= app.base) break;
            text += upper(c);
        } else if (!based && (c == u'E' || c == u'e')) {
            const char16_t after = charAt(line, pos + 1);
            if (state == NumberState::Exponent || !(isDigit(after) || after == u'+' || after == u'-')) break;
            state = NumberState::Exponent;
            realText = true;
            text += u'E';
        } else if (c == u'+' || c == u'-') {
            if (state != NumberState::Exponent) break;
            text += c;
        } else {
            break;
        }
        ++pos;
    }
    return realText;
}

Item scanNumber(AppState& app, std::u16string_view line, std::size_t& pos, bool based, bool negative) {
    std::u16string text;
    if (scanNumberText(app, line, pos, based, text)) {
        // The base plays no part in a real.
        BigNum x = ParseReal(app.workingLength, text);
        if (negative) x.sign = static_cast<int8_t>(-x.sign);
        return Item::real(std::move(x));
    }
    BigInt n = ParseInteger(text, based ? app.base : int16_t{10});
    if (negative) n = negated(std::move(n));
    // A based integer is reduced into the word size through a binary word, a
    // negative one in two's complement ("#-1" with WSize 8 is 255).
    if (based && app.wsize > 0) n = integerFromWord(wordFromInteger(n, app.wsize));
    return Item::integer(std::move(n));
}

Item scanName(std::u16string_view line, std::size_t& pos) {
    const std::size_t start = pos;
    while (pos < line.size() && isNameChar(line[pos])) ++pos;
    const std::u16string_view name = line.substr(start, pos - start);
    if (const KeywordEntry* row = FindWord(name)) return Item::keyword(*row);
    return Item::variableRef(std::u16string(name));
}

// Text up to the same quote character or the end of the line; no escapes.
Item scanString(std::u16string_view line, std::size_t& pos) {
    const char16_t quote = line[pos++];
    const std::size_t start = pos;
    while (pos < line.size() && line[pos] != quote) ++pos;
    std::u16string text(line.substr(start, pos - start));
    if (pos < line.size()) ++pos;   // the closing quote
    return Item::string(std::move(text));
}

Item scanOperator(std::u16string_view line, std::size_t& pos) {
    const KeywordEntry* row = FindOperator(line.substr(pos));
    if (row == nullptr) return Item::character(line[pos++]);
    pos += std::u16string_view(row->name).size();
    if (row->tokenId == TokenComment) {
        std::u16string rest(line.substr(pos));
        pos = line.size();
        return Item::comment(std::move(rest));
    }
    return Item::keyword(*row);
}

// Hands out a long line in pieces of at most MaxLineChars characters.
std::u16string takePiece(std::u16string& rest, bool& haveRest) {
    std::u16string piece = rest.substr(0, MaxLineChars);
    rest.erase(0, piece.size());
    haveRest = !rest.empty();
    return piece;
}

void dropLineEnd(std::u16string& line) {
    if (!line.empty() && line.back() == u'\r') line.pop_back();
}

}  // namespace

std::optional<Item> ScanToken(AppState& app, std::u16string_view line, std::size_t& pos, bool signsSeparate) {
    while (pos < line.size() && line[pos] <= u' ' && line[pos] != u'\0') ++pos;
    if (pos >= line.size() || line[pos] == u'\0') return std::nullopt;

    // Based entry: '#' before a digit or a sign; "#FF" is not a number.
    bool based = false;
    const char16_t afterHash = charAt(line, pos + 1);
    if (line[pos] == u'#' && (isDigit(afterHash) || afterHash == u'-' || afterHash == u'+')) {
        based = true;
        ++pos;
    }

    bool negative = false;
    const char16_t c = line[pos];
    const char16_t next = charAt(line, pos + 1);
    if (!signsSeparate && (c == u'-' || c == u'+') && (isDigit(next) || next == u'.')) {
        negative = c == u'-';
        ++pos;
    }

    const char16_t first = line[pos];
    if (isDigit(first) || first == u'.') return scanNumber(app, line, pos, based, negative);
    if (isLetter(first) || first == u'_' || first == u'$') return scanName(line, pos);
    if (first == u'"' || first == u'\'') return scanString(line, pos);
    return scanOperator(line, pos);
}

void TokenizeLine(AppState& app, std::u16string_view line, ItemList& list, bool signsSeparate) {
    std::size_t pos = 0;
    while (auto token = ScanToken(app, line, pos, signsSeparate)) list.append(std::move(*token));
}

std::optional<std::u16string> StreamLineSource::readLine() {
    if (haveRest_) return takePiece(rest_, haveRest_);
    std::string bytes;
    if (!std::getline(in_, bytes)) return std::nullopt;
    rest_ = fromUtf8(bytes);
    dropLineEnd(rest_);
    return takePiece(rest_, haveRest_);
}

std::optional<std::u16string> TextLineSource::readLine() {
    if (haveRest_) return takePiece(rest_, haveRest_);
    if (pos_ >= text_.size()) return std::nullopt;
    std::size_t end = text_.find(u'\n', pos_);
    if (end == std::u16string::npos) end = text_.size();
    rest_ = text_.substr(pos_, end - pos_);
    pos_ = end + 1;
    dropLineEnd(rest_);
    return takePiece(rest_, haveRest_);
}

std::optional<Item> ReadFileToken(AppState& app, ItemList& pending, LineSource* file) {
    while (pending.empty()) {
        if (file == nullptr) return std::nullopt;
        std::optional<std::u16string> line = file->readLine();
        if (!line) return std::nullopt;
        TokenizeLine(app, *line, pending, true);
    }
    return pending.pop();
}

}  // namespace quorvel
