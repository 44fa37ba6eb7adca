// The console window: opened by "Cmd" (or by print and input), one at a
// time, reading lines, printing results and messages, exit, Ctrl+C.
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>

#include "lang/program.h"
#include "ui/consolewindow.h"
#include "ui/messagestrip.h"
#include "ui/tabbedlist.h"
#include "uitesting.h"

using namespace quorvel;
using namespace quorvel::ui;

namespace {

// Types `line` into the console and presses Enter.
void typeLine(ConsoleWindow* console, const QString& line) {
    QTest::keyClicks(console, line);
    QTest::keyClick(console, Qt::Key_Return);
}

// The console's lines, the prompt line last.
QStringList transcript(ConsoleWindow* console) { return console->transcript().split(QLatin1Char('\n')); }

QString writeSpinProgram(QTemporaryFile& file) {
    file.setFileTemplate(QDir::tempPath() + QStringLiteral("/spinXXXXXX.txt"));
    if (!file.open()) return {};
    file.write("function spin {\n    k = 0;\n    while (1) {\n        k = k + 1\n    }\n}\n");
    file.close();
    return file.fileName();
}

}  // namespace

class ConsoleTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { uitest::UseThrowAwayHome(); }

    // "Cmd" opens the console with its banner and prompt.
    void cmdOpensConsoleWithBanner() {
        uitest::WindowFixture f;
        QVERIFY(f.window().console() == nullptr);
        f.click(2, 1);
        ConsoleWindow* console = f.window().console();
        QVERIFY(console != nullptr);
        QVERIFY(console->isVisible());
        QVERIFY(f.app().consoleOpen);
        QCOMPARE(transcript(console), (QStringList{QStringLiteral("Quorvel Console"), QStringLiteral(">")}));
    }

    // Pressing "Cmd" twice opens one console only.
    void cmdTwiceOpensOneConsole() {
        uitest::WindowFixture f;
        f.click(2, 1);
        ConsoleWindow* first = f.window().console();
        typeLine(first, QStringLiteral("1+1"));
        f.settle();
        f.click(2, 1);
        QCOMPARE(f.window().console(), first);
        QCOMPARE(transcript(first).count(QStringLiteral("Quorvel Console")), 1);
    }

    // Typing 2+3 prints 5 and leaves the stack unchanged, while the main window repaints.
    void consoleLinePrintsResultStackUnchanged() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("7"));
        f.click(2, 1);
        ConsoleWindow* console = f.window().console();
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        typeLine(console, QStringLiteral("2+3"));
        f.settle();
        QCOMPARE(started.count(), 1);
        QCOMPARE(started[0][1].toInt(), -1);
        QCOMPARE(transcript(console),
                 (QStringList{QStringLiteral("Quorvel Console"), QStringLiteral(">2+3"), QStringLiteral("5"), QStringLiteral(">")}));
        QCOMPARE(f.app().stack.count(), 1);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t7"));
    }

    // A console line that changes the stack shows in the main window at once.
    void mainWindowRefreshesAfterConsoleLine() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1 2 3"));
        f.click(2, 1);
        typeLine(f.window().console(), QStringLiteral("clear"));
        f.settle();
        QCOMPARE(f.stackLines(), QStringList(4, QString()));
        typeLine(f.window().console(), QStringLiteral("16 wsize"));
        f.settle();
        QCOMPARE(f.window().bitsText()->text(), QStringLiteral("16 Bits"));
    }

    // Results are plain text: ASCII minus and unit symbols.
    void resultsArePlainText() {
        uitest::WindowFixture f;
        f.click(2, 1);
        typeLine(f.window().console(), QStringLiteral("-5*2"));
        f.settle();
        typeLine(f.window().console(), QStringLiteral("3 'kg*m/s^2'"));
        f.settle();
        const QStringList lines = transcript(f.window().console());
        QVERIFY2(lines.contains(QStringLiteral("-10")), qPrintable(lines.join(QLatin1Char('|'))));
        QVERIFY2(lines.contains(QStringLiteral("3 m*kg/s^2")), qPrintable(lines.join(QLatin1Char('|'))));
    }

    // Typing an unknown word prints the error text in the console instead of
    // on the message line.
    void errorsGoToTheConsole() {
        uitest::WindowFixture f;
        f.click(2, 1);
        typeLine(f.window().console(), QStringLiteral("1+"));
        f.settle();
        const QStringList lines = transcript(f.window().console());
        QVERIFY2(lines.contains(QStringLiteral("Missing Operand")), qPrintable(lines.join(QLatin1Char('|'))));
        QCOMPARE(f.message(), QString());
    }

    // A confirmation (severity 1) from a console line shows on the message line.
    void confirmationsStayOnTheMessageLine() {
        uitest::WindowFixture f;
        f.click(2, 1);
        typeLine(f.window().console(), QStringLiteral("sto(5, 3)"));
        f.settle();
        QCOMPARE(f.message(), QStringLiteral("Copied to Memory"));
        QCOMPARE(f.app().memories.size(), std::size_t(1));
    }

    // An empty line prints nothing and gives the prompt back.
    void emptyLinePrintsNothing() {
        uitest::WindowFixture f;
        f.click(2, 1);
        typeLine(f.window().console(), QString());
        f.settle();
        QCOMPARE(transcript(f.window().console()),
                 (QStringList{QStringLiteral("Quorvel Console"), QStringLiteral(">"), QStringLiteral(">")}));
    }

    // `exit` typed in the console closes it (not the program); a later "Cmd" opens a new one.
    void exitClosesConsoleCmdOpensNewOne() {
        uitest::WindowFixture f;
        QSignalSpy closed(&f.window(), &MainWindow::closed);
        f.click(2, 1);
        typeLine(f.window().console(), QStringLiteral("exit"));
        f.settle();
        QTRY_VERIFY(f.window().console() == nullptr);
        QVERIFY(!f.app().consoleOpen);
        QVERIFY(!f.app().exitRequested);
        QCOMPARE(closed.count(), 0);
        QVERIFY(f.window().isVisible());
        f.click(2, 1);
        QVERIFY(f.window().console() != nullptr);
        QCOMPARE(transcript(f.window().console()), (QStringList{QStringLiteral("Quorvel Console"), QStringLiteral(">")}));
    }

    // Closing the console window ends the session like `exit`.
    void closingTheWindowEndsTheSession() {
        uitest::WindowFixture f;
        f.click(2, 1);
        f.window().console()->close();
        f.settle();
        QTRY_VERIFY(f.window().console() == nullptr);
        QVERIFY(!f.app().consoleOpen);
    }

    // Ctrl+C in the console reports "User Break" and does not end the program.
    void ctrlCReportsUserBreak() {
        uitest::WindowFixture f;
        QSignalSpy closed(&f.window(), &MainWindow::closed);
        f.click(2, 1);
        ConsoleWindow* console = f.window().console();
        QTest::keyClicks(console, QStringLiteral("12"));
        QTest::keyClick(console, Qt::Key_C, Qt::ControlModifier);
        f.settle();
        QCOMPARE(f.message(), QStringLiteral("User Break"));
        QCOMPARE(f.severity(), 4);
        QCOMPARE(closed.count(), 0);
        QVERIFY(f.window().console() == console);
        QCOMPARE(console->pendingInput(), QString());
        QVERIFY(transcript(console).contains(QStringLiteral(">12^C")));
        typeLine(console, QStringLiteral("6*7"));
        f.settle();
        QVERIFY(transcript(console).contains(QStringLiteral("42")));
    }

    // Ctrl+C stops a computation running from the console.
    void ctrlCStopsRunningComputation() {
        uitest::WindowFixture f;
        QTemporaryFile program;
        QVERIFY(LoadProgramFile(f.app(), writeSpinProgram(program).toStdString()));
        f.click(2, 1);
        ConsoleWindow* console = f.window().console();
        typeLine(console, QStringLiteral("spin"));
        QTest::qWait(100);
        QVERIFY(f.window().isBusy());
        QTest::keyClick(console, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(f.window().waitUntilIdle(2000));
        QVERIFY2(transcript(console).contains(QStringLiteral("User Break")), qPrintable(console->transcript()));
        QCOMPARE(console->prompt(), QStringLiteral(">"));
    }

    // `print` with the console closed opens it and writes the value there.
    void printOpensConsole() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("2.5 print"));
        QVERIFY(f.window().console() != nullptr);
        QVERIFY(f.app().consoleOpen);
        QVERIFY(transcript(f.window().console()).contains(QStringLiteral("2.5")));
        QCOMPARE(f.app().stack.count(), 0);
    }

    // `input` asks in the console and stores the value read there.
    void inputReadsFromConsole() {
        uitest::WindowFixture f;
        f.window().runLine(QStringLiteral("v input"), 0);
        QTRY_VERIFY(f.window().console() != nullptr);
        ConsoleWindow* console = f.window().console();
        QTRY_COMPARE(console->prompt(), QStringLiteral("v = ? "));
        QVERIFY(f.window().isBusy());
        typeLine(console, QStringLiteral("6*7"));
        f.settle();
        f.enter(QStringLiteral("v"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\tv = 42"));
        QCOMPARE(console->prompt(), QStringLiteral(">"));
    }

    // Escape while `input` waits ends the wait; nothing is stored.
    void escapeEndsAWaitingInput() {
        uitest::WindowFixture f;
        f.window().runLine(QStringLiteral("w input"), 0);
        QTRY_VERIFY(f.window().console() != nullptr);
        QTRY_VERIFY(f.host().readPending());
        f.window().abortComputation();
        QVERIFY(f.window().waitUntilIdle(2000));
        f.enter(QStringLiteral("w"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\tw = <undefined>"));
    }

    // A console line typed while the window runs a command waits for it.
    void consoleLineWaitsForWindowCommand() {
        uitest::WindowFixture f;
        QTemporaryFile program;
        QVERIFY(LoadProgramFile(f.app(), writeSpinProgram(program).toStdString()));
        f.click(2, 1);
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        f.window().runLine(QStringLiteral("spin"), 0);
        typeLine(f.window().console(), QStringLiteral("1+1"));
        QTest::qWait(100);
        QCOMPARE(started.count(), 1);
        f.host().requestAbort();
        QVERIFY(f.window().waitUntilIdle(2000));
        QCOMPARE(started.count(), 2);
        QCOMPARE(started[1][0].toString(), QStringLiteral("1+1"));
        QVERIFY(transcript(f.window().console()).contains(QStringLiteral("2")));
    }

    // A line longer than 1023 characters is cut there; the rest is the next line.
    void longLineIsCut() {
        ConsoleWindow console;
        QSignalSpy lines(&console, &ConsoleWindow::lineEntered);
        console.setPrompt(QStringLiteral(">"));
        console.insertPlainText(QString(1100, QLatin1Char('1')));
        QTest::keyClick(&console, Qt::Key_Return);
        QCOMPARE(lines.count(), 2);
        QCOMPARE(lines[0][0].toString().size(), 1023);
        QCOMPARE(lines[1][0].toString().size(), 77);
    }

    // The history above the prompt cannot be edited.
    void historyIsReadOnly() {
        ConsoleWindow console;
        console.write(QStringLiteral("Quorvel Console"));
        console.setPrompt(QStringLiteral(">"));
        QTextCursor cursor = console.textCursor();
        cursor.setPosition(3);
        console.setTextCursor(cursor);
        QTest::keyClicks(&console, QStringLiteral("ab"));
        QTest::keyClick(&console, Qt::Key_Backspace);
        QCOMPARE(console.transcript(), QStringLiteral("Quorvel Console\n>a"));
        QTest::keyClick(&console, Qt::Key_Home);
        QTest::keyClick(&console, Qt::Key_Backspace);
        QCOMPARE(console.transcript(), QStringLiteral("Quorvel Console\n>a"));
        console.write(QStringLiteral("out"));
        QCOMPARE(console.transcript(), QStringLiteral("Quorvel Console\nout\n>a"));
        QCOMPARE(console.pendingInput(), QStringLiteral("a"));
    }
};

QTEST_MAIN(ConsoleTest)
#include "console_test.moc"
