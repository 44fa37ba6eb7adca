// Shared pieces of the handler tests: an AppState wired to a RecordingHost,
// short ways to make operands, and a check that a stack is exactly as it was.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "lang/appstate.h"
#include "lang/handler.h"
#include "lang/handlers.h"
#include "lang/item.h"
#include "lang/keywords.h"
#include "numeric/bigint.h"
#include "numeric/bignum.h"
#include "numeric/numtext.h"
#include "tests/testhost.h"
#include "units/unitvector.h"

namespace quorvel::test {

inline UnitVector metres() { return UnitVector{1, 0, 0, 0, 0, 0, 0, 0}; }
inline UnitVector seconds() { return UnitVector{0, 0, 1, 0, 0, 0, 0, 0}; }
inline UnitVector radians() { return UnitVector{0, 0, 0, 0, 0, 0, 0, 1}; }

class HandlerTest : public ::testing::Test {
protected:
    HandlerTest() { app.host = &host; }

    Item integer(int32_t n, const UnitVector& units = NoUnits) { return Item::integer(bigIntFromI32(n), units); }
    Item real(std::u16string_view text, const UnitVector& units = NoUnits) {
        return Item::real(ParseReal(app.workingLength, text), units);
    }
    BigNum number(std::u16string_view text) { return ParseReal(app.workingLength, text); }

    void push(Item item) { app.stack.push(std::move(item)); }
    void pushInt(int32_t n, const UnitVector& units = NoUnits) { push(integer(n, units)); }
    void pushReal(std::u16string_view text, const UnitVector& units = NoUnits) { push(real(text, units)); }
    void pushVar(std::u16string name) { push(Item::variableRef(std::move(name))); }

    // A deep copy of the stack, top first, to compare with later.
    std::vector<Item> snapshot() const {
        std::vector<Item> items;
        for (const Item& item : app.stack) items.push_back(item.duplicate());
        return items;
    }

    // The stack holds exactly `expected` (top first): types, units and values.
    ::testing::AssertionResult stackIs(const std::vector<Item>& expected) const {
        if (app.stack.count() != static_cast<int32_t>(expected.size()))
            return ::testing::AssertionFailure() << "stack has " << app.stack.count() << " entries, expected "
                                                 << expected.size();
        for (size_t i = 0; i < expected.size(); ++i) {
            const Item& got = *app.stack.at(i);
            if (got.type != expected[i].type || got.units != expected[i].units || !(got.value == expected[i].value))
                return ::testing::AssertionFailure() << "entry " << i << " differs";
        }
        return ::testing::AssertionSuccess();
    }

    // The top entry is the Integer n with `units`.
    ::testing::AssertionResult topIsInteger(int32_t n, const UnitVector& units = NoUnits) const {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return ::testing::AssertionFailure() << "empty stack";
        if (top->type != ItemType::Integer) return ::testing::AssertionFailure() << "type " << int(top->type);
        if (top->units != units) return ::testing::AssertionFailure() << "units differ";
        if (!(top->asInteger() == bigIntFromI32(n)))
            return ::testing::AssertionFailure() << "value " << toUtf8(FormatInteger(top->asInteger(), 10, 0));
        return ::testing::AssertionSuccess();
    }

    // The top entry is a Real equal to the decimal `text` with `units`.
    ::testing::AssertionResult topIsReal(std::u16string_view text, const UnitVector& units = NoUnits) {
        const Item* top = app.stack.at(0);
        if (top == nullptr) return ::testing::AssertionFailure() << "empty stack";
        if (top->type != ItemType::Real) return ::testing::AssertionFailure() << "type " << int(top->type);
        if (top->units != units) return ::testing::AssertionFailure() << "units differ";
        if (compare(top->asReal(), number(text)) != 0)
            return ::testing::AssertionFailure() << "value " << toUtf8(FormatReal(top->asReal(), 0, 0x80));
        return ::testing::AssertionSuccess();
    }

    ::testing::AssertionResult topIsNaN() const {
        const Item* top = app.stack.at(0);
        if (top == nullptr || top->type != ItemType::Real || !top->asReal().isNaN())
            return ::testing::AssertionFailure() << "top is not a NaN Real";
        return ::testing::AssertionSuccess();
    }

    // The message strip shows `text` at `severity`.
    ::testing::AssertionResult shows(std::u16string_view text, int severity = Error) const {
        if (watched->shownText() != text || watched->shownSeverity() != severity)
            return ::testing::AssertionFailure() << "shows \"" << toUtf8(watched->shownText()) << "\" at "
                                                 << watched->shownSeverity();
        return ::testing::AssertionSuccess();
    }

    // Runs `handler` expecting a refusal with `message`: the stack must be
    // exactly as before.
    ::testing::AssertionResult refuses(Handler handler, std::u16string_view message) {
        const std::vector<Item> before = snapshot();
        handler(app, app.stack);
        if (auto shown = shows(message); !shown) return shown;
        return stackIs(before);
    }

    AppState app;
    RecordingHost host;
    RecordingHost* watched = &host;   // the host whose message strip shows() reads
};

}  // namespace quorvel::test
