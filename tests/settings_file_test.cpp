// Globals.txt: the exact lines written and the reading rules.
#include "store/settings_file.h"

#include <sstream>

#include "tests/persistence_testing.h"

namespace quorvel::test {
namespace {

std::string written(const AppState& app) {
    std::ostringstream out;
    WriteSettings(out, app);
    return out.str();
}

void read(AppState& app, const std::string& text) {
    std::istringstream in(text);
    ReadSettings(in, app);
}

TEST(SettingsFile, DefaultsAreWrittenLineByLineInTheFixedOrder) {
    AppState app;
    EXPECT_EQ(written(app),
              "Base 10\nDigits 80\nDspFlags 0\nEntryMode 0\nTrigMode 0\nWSize 0\n"
              "Unit m\nUnit kg\nUnit s\nUnit mol\nUnit K\nUnit A\nUnit cd\nUnit rad\n");
}

TEST(SettingsFile, NegativeAndWideValuesAreWrittenAsDecimals) {
    AppState app;
    app.base = -32768;
    app.digits = -7;
    app.dspFlags = 0x7FFFFFFF;
    app.entryMode = 1;
    app.trigMode = -1;
    app.wsize = 128;
    const std::string text = written(app);
    EXPECT_EQ(text.substr(0, text.find("Unit")),
              "Base -32768\nDigits -7\nDspFlags 2147483647\nEntryMode 1\nTrigMode -1\nWSize 128\n");
}

TEST(SettingsFile, EmptyDisplayUnitIsLeftOut) {
    AppState app;
    app.displayUnits[Mass] = u"";
    const std::string text = written(app);
    EXPECT_EQ(text.find("Unit kg"), std::string::npos);
    EXPECT_NE(text.find("Unit m\nUnit s\n"), std::string::npos);
}

TEST(SettingsFile, DisplayUnitOutsideAsciiIsLeftOut) {
    AppState app;
    app.displayUnits[Length] = u"\u03BCm";
    EXPECT_EQ(written(app),
              "Base 10\nDigits 80\nDspFlags 0\nEntryMode 0\nTrigMode 0\nWSize 0\n"
              "Unit kg\nUnit s\nUnit mol\nUnit K\nUnit A\nUnit cd\nUnit rad\n");
}

TEST(SettingsFile, EveryKeyIsRead) {
    AppState app;
    read(app, "Base 16\nDigits 120\nDspFlags 68\nEntryMode 1\nTrigMode 1\nWSize 32\n");
    EXPECT_EQ(app.base, 16);
    EXPECT_EQ(app.digits, 120);
    EXPECT_EQ(app.dspFlags, 68);
    EXPECT_EQ(app.entryMode, 1);
    EXPECT_EQ(app.trigMode, 1);
    EXPECT_EQ(app.wsize, 32);
}

TEST(SettingsFile, LineOrderDoesNotMatter) {
    AppState app;
    read(app, "Unit h\nWSize 8\nBase 2\n");
    EXPECT_EQ(app.wsize, 8);
    EXPECT_EQ(app.base, 2);
    EXPECT_EQ(app.displayUnits[Time], u"h");
}

TEST(SettingsFile, CrLfLineEndsAreReadLikeLf) {
    AppState app;
    read(app, "Base 8\r\nDigits 30\r\nUnit km\r\nUnit kg\r\n");
    EXPECT_EQ(app.base, 8);
    EXPECT_EQ(app.digits, 30);
    EXPECT_EQ(app.displayUnits[Length], u"km");
    EXPECT_EQ(app.displayUnits[Mass], u"kg");
}

TEST(SettingsFile, LastLineWithoutLineEndIsRead) {
    AppState app;
    read(app, "Base 2");
    EXPECT_EQ(app.base, 2);
}

TEST(SettingsFile, KeysAreComparedWithCase) {
    AppState app;
    read(app, "digits 300\nBASE 2\nwsize 9\n");
    EXPECT_EQ(app.digits, 80);
    EXPECT_EQ(app.base, 10);
    EXPECT_EQ(app.wsize, 0);
}

TEST(SettingsFile, UnknownKeysAndLinesWithoutASpaceAreSkipped) {
    AppState app;
    read(app, "Colour 3\nDigits\nBase=2\n\n   \nWSize 16\n");
    EXPECT_EQ(app.digits, 80);
    EXPECT_EQ(app.base, 10);
    EXPECT_EQ(app.wsize, 16);
}

TEST(SettingsFile, ValueIsReadAsAtoiDoes) {
    AppState app;
    read(app, "Digits    42abc\nWSize x\nDspFlags +12\nBase -3\n");
    EXPECT_EQ(app.digits, 42);     // leading blanks, digits up to the first other character
    EXPECT_EQ(app.wsize, 0);       // no digits give 0
    EXPECT_EQ(app.dspFlags, 12);
    EXPECT_EQ(app.base, -3);
}

TEST(SettingsFile, KeyEndsAtTheFirstSpaceOnly) {
    AppState app;
    read(app, "Digits  \t 64\n Base 2\n");
    EXPECT_EQ(app.digits, 64);
    EXPECT_EQ(app.base, 10);   // the key of " Base 2" is empty
}

TEST(SettingsFile, SixteenBitKeysAreTruncatedTo16Bits) {
    AppState app;
    read(app, "Base 65546\nEntryMode 70000\nTrigMode 32768\n");
    EXPECT_EQ(app.base, 10);           // 65546 - 65536
    EXPECT_EQ(app.entryMode, 4464);    // 70000 - 65536
    EXPECT_EQ(app.trigMode, -32768);
}

TEST(SettingsFile, ThirtyTwoBitKeysKeepTheirFullValue) {
    AppState app;
    read(app, "DspFlags 70000\nWSize -2147483648\n");
    EXPECT_EQ(app.dspFlags, 70000);
    EXPECT_EQ(app.wsize, INT32_MIN);
}

TEST(SettingsFile, HugeValueSaturatesLikeTheCLibrary) {
    AppState app;
    read(app, "DspFlags 99999999999999999999999\nWSize 4294967297\n");
    EXPECT_EQ(app.dspFlags, -1);   // LONG_MAX cut to 32 bits
    EXPECT_EQ(app.wsize, 1);       // 2^32 + 1 cut to 32 bits
}

TEST(SettingsFile, KeyGivenTwiceTakesTheLastValue) {
    AppState app;
    read(app, "Digits 30\nDigits 40\n");
    EXPECT_EQ(app.digits, 40);
}

TEST(SettingsFile, DigitsAbove1000AreHeldAt1000) {
    AppState app;
    read(app, "Digits 1001\n");
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 518);
}

TEST(SettingsFile, WorkingLengthKeepsTheExtraHundredthsTerm) {
    AppState app;
    read(app, "Digits 300\n");
    EXPECT_EQ(app.workingLength, 161);   // 150 + 3 + 8; `std` would give 158
    read(app, "Digits 80\n");
    EXPECT_EQ(app.workingLength, 48);
}

TEST(SettingsFile, EmptyFileStillSetsTheWorkingLengthFromDigits) {
    AppState app;
    app.digits = 200;
    app.workingLength = 3;
    read(app, "");
    EXPECT_EQ(app.workingLength, 110);
}

TEST(SettingsFile, NegativeDigitsHaveNoLowerBoundCheck) {
    AppState app;
    read(app, "Digits -40\n");
    EXPECT_EQ(app.digits, -40);
    EXPECT_EQ(app.workingLength, StartupWorkingLength(-40));
}

TEST(SettingsFile, UnitGoesToTheDimensionOfItsRow) {
    AppState app;
    read(app, "Unit g\nUnit deg\n");
    EXPECT_EQ(app.displayUnits[Mass], u"g");
    EXPECT_EQ(app.displayUnits[Angle], u"deg");
    EXPECT_EQ(app.displayUnits[Length], u"m");
}

TEST(SettingsFile, UnitSymbolEndsAtABlankOrControlCharacter) {
    AppState app;
    read(app, "Unit km  trailing words\nUnit h\tx\n");
    EXPECT_EQ(app.displayUnits[Length], u"km");
    EXPECT_EQ(app.displayUnits[Time], u"h");
}

TEST(SettingsFile, UnitSymbolEndsAtAByteAbove127) {
    AppState app;
    read(app, "Unit km\xC2\xB5\n");
    EXPECT_EQ(app.displayUnits[Length], u"km");
}

TEST(SettingsFile, UnitWithTwoSpacesHasAnEmptySymbolAndIsIgnored) {
    AppState app;
    read(app, "Unit  km\n");
    EXPECT_EQ(app.displayUnits[Length], u"m");
}

TEST(SettingsFile, LineLongerThan127CharactersIsReadInPieces) {
    AppState app;
    // The first 127 characters are one line (a comment-like unknown key); the
    // rest, "Base 2", is read as a line of its own.
    read(app, "Note " + std::string(122, 'x') + "Base 2\n");
    EXPECT_EQ(app.base, 2);
    AppState other;
    read(other, "Note " + std::string(121, 'x') + "Base 2\n");   // the first piece takes the B, "ase 2" is unknown
    EXPECT_EQ(other.base, 10);
}

TEST(SettingsFile, ZeroByteEndsWhatTheLineHolds) {
    AppState app;
    const char text[] = "Base\0 2\nDigits 9\0 9\n";
    read(app, std::string(text, sizeof text - 1));
    EXPECT_EQ(app.base, 10);
    EXPECT_EQ(app.digits, 9);
}

TEST(SettingsFile, WrittenSettingsReadBackTheSame) {
    AppState app;
    app.base = 2;
    app.digits = 999;
    app.dspFlags = 0x25;
    app.entryMode = 1;
    app.trigMode = 1;
    app.wsize = 17;
    app.displayUnits = {u"ft", u"g", u"h", u"mol", u"K", u"A", u"cd", u"deg"};
    AppState loaded;
    read(loaded, written(app));
    EXPECT_EQ(loaded.base, app.base);
    EXPECT_EQ(loaded.digits, app.digits);
    EXPECT_EQ(loaded.dspFlags, app.dspFlags);
    EXPECT_EQ(loaded.entryMode, app.entryMode);
    EXPECT_EQ(loaded.trigMode, app.trigMode);
    EXPECT_EQ(loaded.wsize, app.wsize);
    EXPECT_EQ(loaded.displayUnits, app.displayUnits);
}

}  // namespace
}  // namespace quorvel::test
