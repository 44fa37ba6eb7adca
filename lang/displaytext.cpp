// Display text of values and the stack-list lines.
#include "lang/displaytext.h"

#include "lang/appstate.h"
#include "lang/item.h"
#include "numeric/complex.h"
#include "numeric/numtext.h"
#include "units/unitconvert.h"
#include "units/unittables.h"

namespace quorvel {
namespace {

// Integers longer than this many limbs are shown approximated as reals.
constexpr int32_t MaxExactIntegerLimbs = 512;
// Stack-list lines hold at most this many characters of a text each.
constexpr size_t StackPieceLength = 450;

std::optional<std::u16string> valueText(const AppState& app, const Item& item, int32_t digits, int32_t flags) {
    const int32_t combined = app.dspFlags | flags;
    switch (item.type) {
    case ItemType::Null:
        return u"Null";
    case ItemType::Integer: {
        const BigInt& n = item.asInteger();
        if (n.count() <= MaxExactIntegerLimbs) return FormatInteger(n, app.base, combined);
        return FormatReal(fromInteger(n, app.workingLength), digits, combined | fmt::Scientific | fmt::Brackets);
    }
    case ItemType::Real:
        return FormatReal(item.asReal(), digits, combined);
    case ItemType::Complex:
        return formatComplex(item.asComplex(), digits, combined);
    case ItemType::String:
        return u"'" + item.asText() + u"'";
    case ItemType::VariableRef: {
        const Variable* variable = app.variables.FindExisting(item.asText());
        std::u16string shown = u"<undefined>";
        if (variable) {
            if (auto text = DisplayText(app, *variable->value, digits, flags)) shown = *text;
        }
        return item.asText() + u" = " + shown;
    }
    default:
        return std::nullopt;
    }
}

std::u16string positionLabel(int32_t n) {
    switch (n) {
    case 1: return u"x";
    case 2: return u"y";
    case 3: return u"z";
    default: {
        std::string digits = std::to_string(n);
        return std::u16string(digits.begin(), digits.end());
    }
    }
}

}  // namespace

std::optional<std::u16string> DisplayText(const AppState& app, const Item& item, int32_t digits, int32_t flags) {
    if (!hasUnits(item.units)) return valueText(app, item, digits, flags);

    // The copy is converted into the display units and gets its unit text;
    // factor texts are evaluated on a state of their own so that showing a
    // value never touches the stack or the message strip.
    Item shown = item.duplicate();
    std::optional<std::u16string> unitText =
        ToDisplayUnits(EvaluationStateFor(app), shown, true, app.dspFlags | flags);
    auto value = valueText(app, shown, digits, flags);
    if (!value || !unitText) return value;
    // A named unit replaces the unit text once the number is formatted; an
    // alias factor would scale only the copy, so the number shown stays.
    if (const UnitAlias* alias = FindAlias(*unitText)) *unitText = alias->alias;
    return *value + u" " + *unitText;
}

std::vector<std::u16string> StackListLines(const AppState& app, int32_t flags, bool pad) {
    std::vector<std::u16string> lines;
    int32_t position = 0;
    // Walk from x downward; each item's lines go in front of the lines of the
    // items above it, so the deepest item ends up first.
    for (const Item& item : app.stack) {
        auto text = DisplayText(app, item, app.digits, flags);
        if (!text) continue;
        ++position;
        std::vector<std::u16string> block;
        block.push_back(positionLabel(position) + u" :\t" + text->substr(0, StackPieceLength));
        for (size_t at = StackPieceLength; at < text->size(); at += StackPieceLength)
            block.push_back(u"\t" + text->substr(at, StackPieceLength));
        lines.insert(lines.begin(), block.begin(), block.end());
    }
    if (pad) {
        while (lines.size() < 4) lines.insert(lines.begin(), std::u16string());
    }
    return lines;
}

}  // namespace quorvel
