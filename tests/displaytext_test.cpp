// Display text of values and the stack-list lines.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "numeric/numtext.h"

namespace quorvel {
namespace {

BigNum real(AppState& app, std::u16string_view text) { return ParseReal(app.workingLength, text); }

TEST(StackList, EmptyStackShowsFourEmptyLines) {
    AppState app;
    auto lines = StackListLines(app, 0, true);
    ASSERT_EQ(lines.size(), 4u);
    for (const auto& line : lines) EXPECT_TRUE(line.empty());
}

TEST(StackList, TwoItemsShowTwoEmptyLinesThenYAndX) {
    AppState app;
    app.stack.push(Item::integer(bigIntFromI32(1)));
    app.stack.push(Item::integer(bigIntFromI32(2)));
    auto lines = StackListLines(app, 0, true);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], u"");
    EXPECT_EQ(lines[1], u"");
    EXPECT_EQ(lines[2], u"y :\t1");
    EXPECT_EQ(lines[3], u"x :\t2");
}

TEST(StackList, LabelsFromFourOnAreNumbers) {
    AppState app;
    for (int i = 1; i <= 5; ++i) app.stack.push(Item::integer(bigIntFromI32(i)));
    auto lines = StackListLines(app, 0, false);
    ASSERT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines[0], u"5 :\t1");
    EXPECT_EQ(lines[1], u"4 :\t2");
    EXPECT_EQ(lines[2], u"z :\t3");
}

TEST(StackList, ItemsWithoutTextGetNoLineAndNoNumber) {
    AppState app;
    app.stack.push(Item::integer(bigIntFromI32(7)));
    app.stack.push(Item::character(u'('));
    app.stack.push(Item::integer(bigIntFromI32(8)));
    auto lines = StackListLines(app, 0, false);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], u"y :\t7");
    EXPECT_EQ(lines[1], u"x :\t8");
}

TEST(StackList, ThousandDigitNumberTakesThreeLines) {
    AppState app;
    SetDigits(app, 1000);
    std::u16string digits = u"1.";
    for (int i = 0; i < 999; ++i) digits.push_back(static_cast<char16_t>(u'1' + i % 9));
    app.stack.push(Item::real(real(app, digits)));
    auto lines = StackListLines(app, 0, false);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].substr(0, 4), u"x :\t");
    EXPECT_EQ(lines[0].size(), 4u + 450u);
    EXPECT_EQ(lines[1][0], u'\t');
    EXPECT_EQ(lines[1].size(), 1u + 450u);
    EXPECT_EQ(lines[2][0], u'\t');
}

TEST(DisplayText, StringShowsInQuotes) {
    AppState app;
    EXPECT_EQ(DisplayText(app, Item::string(u"abc"), app.digits, 0), u"'abc'");
}

TEST(DisplayText, UndefinedVariableShowsUndefined) {
    AppState app;
    EXPECT_EQ(DisplayText(app, Item::variableRef(u"q"), app.digits, 0), u"q = <undefined>");
    EXPECT_EQ(app.variables.FindExisting(u"q"), nullptr);   // not created by showing it
}

TEST(DisplayText, DefinedVariableShowsItsValue) {
    AppState app;
    app.variables.FindVariable(u"a", true)->value->assignFrom(Item::integer(bigIntFromI32(42)));
    EXPECT_EQ(DisplayText(app, Item::variableRef(u"a"), app.digits, 0), u"a = 42");
}

TEST(DisplayText, NullShowsNull) {
    AppState app;
    EXPECT_EQ(DisplayText(app, Item{}, app.digits, 0), u"Null");
}

TEST(DisplayText, TypesWithoutText) {
    AppState app;
    EXPECT_FALSE(DisplayText(app, Item::character(u','), app.digits, 0));
    EXPECT_FALSE(DisplayText(app, Item::comment(u"note"), app.digits, 0));
    EXPECT_FALSE(DisplayText(app, Item::functionCall(u"f"), app.digits, 0));
}

TEST(DisplayText, IntegerInCurrentBase) {
    AppState app;
    app.base = 16;
    EXPECT_EQ(DisplayText(app, Item::integer(bigIntFromI32(255)), app.digits, 0), u"0FF");
    app.base = 10;
    EXPECT_EQ(DisplayText(app, Item::integer(bigIntFromI32(-5)), app.digits, 0), u"\u22125");
    EXPECT_EQ(DisplayText(app, Item::integer(bigIntFromI32(-5)), app.digits, 0x80), u"-5");
}

TEST(DisplayText, IntegerOver512LimbsShowsApproximatedInBrackets) {
    AppState app;
    BigInt big = bigIntFromI32(1);
    for (int i = 0; i < 520; ++i) multiplySmallAddInPlace(big, 65535, 0);   // 65535^520 needs 520 limbs
    ASSERT_GT(big.count(), 512);
    auto text = DisplayText(app, Item::integer(big), app.digits, 0x80);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->front(), u'[');
    EXPECT_EQ(text->back(), u']');
    EXPECT_NE(text->find(u"E+2504"), std::u16string::npos) << toUtf8(*text);
}

TEST(DisplayText, RealUsesDigitsAndFlags) {
    AppState app;
    EXPECT_EQ(DisplayText(app, Item::real(real(app, u"1500")), 12, 0), u"1500.");
    app.dspFlags = 0x04;
    EXPECT_EQ(DisplayText(app, Item::real(real(app, u"1234")), 3, 0), u"1,230.");
}

TEST(ComplexText, ZeroAndUnitImaginary) {
    AppState app;
    auto z = [&](const char16_t* re, const char16_t* im) {
        return ComplexNum{real(app, re), real(app, im)};
    };
    EXPECT_EQ(formatComplex(z(u"0", u"0"), 12, 0), u"0.");
    EXPECT_EQ(formatComplex(z(u"0", u"1"), 12, 0), u"i");
    EXPECT_EQ(formatComplex(z(u"0", u"-1"), 12, 0), u"\u2212i");
    EXPECT_EQ(formatComplex(z(u"0", u"-1"), 12, 0x80), u"-i");
}

TEST(ComplexText, BothPartsForms) {
    AppState app;
    auto z = [&](const char16_t* re, const char16_t* im) {
        return ComplexNum{real(app, re), real(app, im)};
    };
    EXPECT_EQ(formatComplex(z(u"3", u"-1"), 12, 0), u"(3. \u2212 i)");
    EXPECT_EQ(formatComplex(z(u"3", u"-1"), 12, 0x80), u"(3. - i)");
    EXPECT_EQ(formatComplex(z(u"3", u"2"), 12, 0), u"(3. + 2.\u00B7i)");
    EXPECT_EQ(formatComplex(z(u"3", u"2"), 12, 0x80), u"(3. + 2.*i)");
    EXPECT_EQ(formatComplex(z(u"3", u"-2"), 12, 0), u"(3. \u2212 2.\u00B7i)");
    EXPECT_EQ(formatComplex(z(u"0", u"2"), 12, 0x80), u"(2.*i)");
}

TEST(ComplexText, FlagSixteenShowsBothParts) {
    AppState app;
    ComplexNum z{real(app, u"3"), real(app, u"0")};
    EXPECT_EQ(formatComplex(z, 12, 0), u"3.");
    EXPECT_EQ(formatComplex(z, 12, 0x10), u"(3. + 0.\u00B7i)");
}

}  // namespace
}  // namespace quorvel
