// Globals.txt: writing the settings lines and reading them back with the
// forgiving rules of the original reader.
#include "store/settings_file.h"

#include <climits>
#include <optional>
#include <string>
#include <string_view>

#include "units/unittables.h"
#include "units/unitvector.h"

namespace quorvel {

namespace {

// A line holds at most this many characters; the rest of a longer line is
// read as the next line.
constexpr size_t MaxLineLength = 127;
// A display-unit symbol is written in at most this many bytes.
constexpr size_t MaxUnitBytes = 31;

void putLine(std::ostream& out, std::string_view key, long long value) {
    out << key << ' ' << value << '\n';
}

// The display symbol as 8-bit text: empty when it holds a character outside
// plain ASCII, which then leaves its line out.
std::string unitBytes(const std::u16string& symbol) {
    std::string bytes;
    for (char16_t unit : symbol) {
        if (unit == 0 || unit >= 0x80) return std::string();
        if (bytes.size() == MaxUnitBytes) break;
        bytes.push_back(static_cast<char>(unit));
    }
    return bytes;
}

// The next line (without its end) or none at the end of the input. A "\r"
// right before "\n" belongs to the line end.
std::optional<std::string> nextLine(std::istream& in) {
    std::string line;
    bool any = false;
    while (line.size() < MaxLineLength) {
        const int c = in.get();
        if (c == std::char_traits<char>::eof()) break;
        any = true;
        if (c == '\n') break;
        if (c == '\r' && in.peek() == '\n') {
            in.get();
            break;
        }
        line.push_back(static_cast<char>(c));
    }
    if (!any) return std::nullopt;
    return line;
}

bool isCSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

// atoi as the C library does it on this platform: leading blanks, an optional
// sign, decimal digits; no digits gives 0. The value saturates at the range of
// a 64-bit long and is then cut to 32 bits.
int32_t atoiValue(std::string_view text) {
    size_t i = 0;
    while (i < text.size() && isCSpace(text[i])) ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    unsigned long long magnitude = 0;
    const unsigned long long limit = negative ? static_cast<unsigned long long>(LLONG_MAX) + 1 : LLONG_MAX;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        const unsigned digit = static_cast<unsigned>(text[i] - '0');
        magnitude = magnitude > (limit - digit) / 10 ? limit : magnitude * 10 + digit;
    }
    const unsigned long long bits = negative ? 0ULL - magnitude : magnitude;
    return static_cast<int32_t>(static_cast<uint32_t>(bits));
}

// The symbol of a Unit line: the bytes after the space up to the first one of
// code 32 or less (bytes of 128 and above count as negative and end it too),
// widened one by one.
std::u16string unitSymbol(std::string_view text) {
    std::u16string symbol;
    for (char c : text) {
        if (static_cast<signed char>(c) <= 32) break;
        symbol.push_back(static_cast<char16_t>(c));
    }
    return symbol;
}

void applyUnit(AppState& app, std::string_view text) {
    const UnitDef* row = FindUnit(unitSymbol(text));
    if (!row || row->dimension < 0 || row->dimension >= DimensionCount) return;
    app.displayUnits[static_cast<size_t>(row->dimension)] = row->symbol;
}

void applyLine(AppState& app, std::string_view line) {
    line = line.substr(0, line.find('\0'));   // the C reader saw the text up to a zero byte
    const size_t space = line.find(' ');
    if (space == std::string_view::npos) return;
    const std::string_view key = line.substr(0, space);
    const std::string_view rest = line.substr(space + 1);
    if (key == "Unit") {
        applyUnit(app, rest);
        return;
    }
    const int32_t value = atoiValue(rest);
    const auto short16 = static_cast<int16_t>(static_cast<uint16_t>(static_cast<uint32_t>(value)));
    if (key == "Base") app.base = short16;
    else if (key == "Digits") app.digits = value;
    else if (key == "DspFlags") app.dspFlags = value;
    else if (key == "EntryMode") app.entryMode = short16;
    else if (key == "TrigMode") app.trigMode = short16;
    else if (key == "WSize") app.wsize = value;
}

}  // namespace

void WriteSettings(std::ostream& out, const AppState& app) {
    putLine(out, "Base", app.base);
    putLine(out, "Digits", app.digits);
    putLine(out, "DspFlags", app.dspFlags);
    putLine(out, "EntryMode", app.entryMode);
    putLine(out, "TrigMode", app.trigMode);
    putLine(out, "WSize", app.wsize);
    for (const std::u16string& symbol : app.displayUnits) {
        const std::string bytes = unitBytes(symbol);
        if (!bytes.empty()) out << "Unit " << bytes << '\n';
    }
}

void ReadSettings(std::istream& in, AppState& app) {
    while (auto line = nextLine(in)) applyLine(app, *line);
    // The start-up length keeps its extra Digits / 100 bytes, unlike `std`.
    if (app.digits > MaxDigits) app.digits = MaxDigits;
    app.workingLength = StartupWorkingLength(app.digits);
}

}  // namespace quorvel
