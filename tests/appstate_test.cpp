// The digit-count setting and the two working-length formulas.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "tests/testhost.h"

namespace quorvel {
namespace {

class DigitsTest : public ::testing::Test {
protected:
    DigitsTest() { app.host = &host; }
    AppState app;
    test::RecordingHost host;
};

TEST_F(DigitsTest, DefaultsAre80DigitsAnd48Bytes) {
    EXPECT_EQ(app.digits, 80);
    EXPECT_EQ(app.workingLength, 48);
}

TEST_F(DigitsTest, SetDigitsDerivesHalfPlusEight) {
    SetDigits(app, 100);
    EXPECT_EQ(app.digits, 100);
    EXPECT_EQ(app.workingLength, 58);
    SetDigits(app, 7);
    EXPECT_EQ(app.workingLength, 11);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DigitsTest, ZeroIsIgnored) {
    SetDigits(app, 30);
    SetDigits(app, 0);
    EXPECT_EQ(app.digits, 30);
    EXPECT_EQ(app.workingLength, 23);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DigitsTest, DigitsLimitedTo1000) {
    SetDigits(app, 1001);
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 508);
    EXPECT_EQ(host.shownText(), u"Digits Limited to 1000");
    EXPECT_EQ(host.shownSeverity(), 3);
}

TEST_F(DigitsTest, FiveThousandIsCutTo1000WithTheWarning) {
    SetDigits(app, 5000);
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 508);
    EXPECT_EQ(host.shownText(), u"Digits Limited to 1000");
    EXPECT_EQ(host.shownSeverity(), 3);
}

TEST_F(DigitsTest, ExactlyOneThousandIsNotAWarning) {
    SetDigits(app, 1000);
    EXPECT_EQ(app.digits, 1000);
    EXPECT_EQ(app.workingLength, 508);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DigitsTest, ANegativeCountIsKeptAndTheFormulaTruncatesTowardZero) {
    SetDigits(app, -4);
    EXPECT_EQ(app.digits, -4);
    EXPECT_EQ(app.workingLength, 6);
    SetDigits(app, -5);   // -5 / 2 is -2
    EXPECT_EQ(app.workingLength, 6);
    EXPECT_TRUE(host.messages.empty());
}

TEST_F(DigitsTest, AVeryNegativeCountHoldsTheLengthAtTwoBytes) {
    SetDigits(app, -12);
    EXPECT_EQ(app.workingLength, 2);
    SetDigits(app, -100);
    EXPECT_EQ(app.digits, -100);
    EXPECT_EQ(app.workingLength, 2);
    SetDigits(app, INT32_MIN);
    EXPECT_EQ(app.workingLength, 2);
}

TEST(StartupWorkingLengthTest, AddsAHundredthOfTheDigits) {
    EXPECT_EQ(StartupWorkingLength(80), 48);
    EXPECT_EQ(StartupWorkingLength(100), 59);
    EXPECT_EQ(StartupWorkingLength(1000), 518);
    EXPECT_EQ(StartupWorkingLength(-4), 6);
}

TEST(StartupWorkingLengthTest, DiffersFromTheStdFormulaOnPurpose) {
    AppState app;
    SetDigits(app, 1000);
    EXPECT_EQ(app.workingLength, 508);
    EXPECT_EQ(StartupWorkingLength(1000), 518);
}

}  // namespace
}  // namespace quorvel
