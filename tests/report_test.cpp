// ReportError: which message stays in the strip, and where console-thread
// messages go.
#include <gtest/gtest.h>

#include "lang/appstate.h"
#include "lang/handlers.h"
#include "lang/report.h"
#include "tests/testhost.h"

namespace quorvel {
namespace {

class ReportErrorTest : public ::testing::Test {
protected:
    ReportErrorTest() { app.host = &host; }
    AppState app;
    test::RecordingHost host;
};

TEST(ReportErrorNoHost, WithoutAStatusAreaNothingHappens) {
    AppState app;
    ReportError(app, u"Invalid Data Type", Error);
    EXPECT_EQ(app.keptSeverity, 0);
    ClearMessage(app);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(ReportErrorTest, AnErrorIsShownAndItsSeverityKept) {
    ReportError(app, u"Invalid Data Type", Error);
    EXPECT_EQ(host.shownText(), u"Invalid Data Type");
    EXPECT_EQ(host.shownSeverity(), 4);
    EXPECT_EQ(app.keptSeverity, 4);
}

TEST_F(ReportErrorTest, TwoErrorsInOneCommandKeepTheFirst) {
    ReportError(app, u"Invalid Data Type", Error);
    ReportError(app, u"Missing Operand", Error);
    EXPECT_EQ(host.shownText(), u"Invalid Data Type");
    EXPECT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(app.keptSeverity, 4);
}

TEST_F(ReportErrorTest, TwoFailingHandlersInOneCommandKeepTheFirstMessage) {
    app.stack.push(Item::string(u"m"));
    opAbs(app, app.stack);        // "Invalid Data Type"
    app.stack.freeAll();
    opAbs(app, app.stack);        // "Missing Operand" must not replace it
    EXPECT_EQ(host.shownText(), u"Invalid Data Type");
    EXPECT_EQ(host.shownSeverity(), 4);
}

TEST_F(ReportErrorTest, TwoWarningsKeepTheFirst) {
    ReportError(app, u"Stack Empty", Warning);
    ReportError(app, u"Digits Limited to 1000", Warning);
    EXPECT_EQ(host.shownText(), u"Stack Empty");
}

TEST_F(ReportErrorTest, AnErrorReplacesAWarning) {
    ReportError(app, u"Stack Empty", Warning);
    ReportError(app, u"Missing Operand", Error);
    EXPECT_EQ(host.shownText(), u"Missing Operand");
    EXPECT_EQ(app.keptSeverity, 4);
}

TEST_F(ReportErrorTest, AWarningDoesNotReplaceAnError) {
    ReportError(app, u"Missing Operand", Error);
    ReportError(app, u"Stack Empty", Warning);
    EXPECT_EQ(host.shownText(), u"Missing Operand");
    EXPECT_EQ(app.keptSeverity, 4);
}

TEST_F(ReportErrorTest, InformationReplacesInformationOfTheSameSeverity) {
    ReportError(app, u"Text Copied", Information);
    ReportError(app, u"Second note", Information);
    EXPECT_EQ(host.shownText(), u"Second note");
    EXPECT_EQ(app.keptSeverity, 2);
}

TEST_F(ReportErrorTest, ConfirmationReplacesConfirmationAndIsReplacedByInformation) {
    ReportError(app, u"Copied to Memory", Confirmation);
    ReportError(app, u"Copied to Memory", Confirmation);
    EXPECT_EQ(host.messages.size(), 2u);
    ReportError(app, u"Text Copied", Information);
    EXPECT_EQ(host.shownText(), u"Text Copied");
    EXPECT_EQ(app.keptSeverity, 2);
}

TEST_F(ReportErrorTest, InformationDoesNotReplaceAWarning) {
    ReportError(app, u"Stack Empty", Warning);
    ReportError(app, u"Text Copied", Information);
    EXPECT_EQ(host.shownText(), u"Stack Empty");
    EXPECT_EQ(app.keptSeverity, 3);
}

TEST_F(ReportErrorTest, ClearingAfterAnErrorEmptiesTheStripAndResetsTheSeverity) {
    ReportError(app, u"Missing Operand", Error);
    ClearMessage(app);
    EXPECT_EQ(host.clears, 1);
    EXPECT_EQ(host.shownText(), u"");
    EXPECT_EQ(app.keptSeverity, 0);
    ReportError(app, u"Stack Empty", Warning);
    EXPECT_EQ(host.shownText(), u"Stack Empty");
}

TEST_F(ReportErrorTest, ClearingAnEmptyStripDoesNotRepaint) {
    ClearMessage(app);
    EXPECT_EQ(host.clears, 0);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(ReportErrorTest, AnEmptyMessageBelowTheKeptSeverityClears) {
    ReportError(app, u"Missing Operand", Error);
    ReportError(app, {}, Warning);
    EXPECT_EQ(host.clears, 1);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(ReportErrorTest, AnEmptyMessageAtTheKeptSeverityDoesNothing) {
    ReportError(app, u"Stack Empty", Warning);
    ReportError(app, {}, Warning);
    EXPECT_EQ(host.clears, 0);
    EXPECT_EQ(host.shownText(), u"Stack Empty");
    EXPECT_EQ(app.keptSeverity, 3);
}

TEST_F(ReportErrorTest, AMessageAtSeverityZeroOnlyClears) {
    ReportError(app, u"Stack Empty", Warning);
    ReportError(app, u"ignored text", Clear);
    EXPECT_EQ(host.clears, 1);
    EXPECT_EQ(host.messages.size(), 1u);
    EXPECT_EQ(app.keptSeverity, 0);
}

TEST_F(ReportErrorTest, OnTheConsoleThreadErrorsBecomeConsoleLines) {
    host.consoleThread = true;
    ReportError(app, u"Invalid Data Type", Error);
    EXPECT_TRUE(host.messages.empty());
    ASSERT_EQ(host.consoleLines.size(), 1u);
    EXPECT_EQ(host.consoleLines[0], u"Invalid Data Type");
    EXPECT_EQ(app.keptSeverity, 4);
}

TEST_F(ReportErrorTest, OnTheConsoleThreadTheFirstErrorStillWins) {
    host.consoleThread = true;
    ReportError(app, u"Invalid Data Type", Error);
    ReportError(app, u"Missing Operand", Error);
    EXPECT_EQ(host.consoleLines.size(), 1u);
}

TEST_F(ReportErrorTest, OnTheConsoleThreadInformationIsAConsoleLine) {
    host.consoleThread = true;
    ReportError(app, u"Text Copied", Information);
    EXPECT_TRUE(host.messages.empty());
    EXPECT_EQ(host.consoleLines.size(), 1u);
    EXPECT_EQ(app.keptSeverity, 2);
}

TEST_F(ReportErrorTest, OnTheConsoleThreadAConfirmationIsPainted) {
    host.consoleThread = true;
    ReportError(app, u"Copied to Memory", Confirmation);
    EXPECT_TRUE(host.consoleLines.empty());
    EXPECT_EQ(host.shownText(), u"Copied to Memory");
    EXPECT_EQ(host.shownSeverity(), 1);
}

}  // namespace
}  // namespace quorvel
