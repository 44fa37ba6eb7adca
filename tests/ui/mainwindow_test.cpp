// The main window: layout, status texts and mode boxes, the stack list, the
// message strip, the entry limit, the clipboard and running lines off the UI
// thread with Escape to stop them.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFontInfo>
#include <QSignalSpy>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>
#include <QScrollBar>

#include "lang/program.h"
#include "lang/report.h"
#include "ui/keybutton.h"
#include "ui/messagestrip.h"
#include "ui/tabbedlist.h"
#include "uitesting.h"

using namespace quorvel;
using namespace quorvel::ui;

namespace {

// A program whose function never ends by itself.
QString writeSpinProgram(QTemporaryFile& file) {
    file.setFileTemplate(QDir::tempPath() + QStringLiteral("/spinXXXXXX.txt"));
    if (!file.open()) return {};
    file.write("function spin {\n    k = 0;\n    while (1) {\n        k = k + 1\n    }\n}\n");
    file.close();
    return file.fileName();
}

}  // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { uitest::UseThrowAwayHome(); }

    void windowIsFixed1012x655WithTitle() {
        uitest::WindowFixture f;
        QCOMPARE(f.window().size(), QSize(1012, 655));
        QCOMPARE(f.window().minimumSize(), QSize(1012, 655));
        QCOMPARE(f.window().maximumSize(), QSize(1012, 655));
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quorvel v2.1.8"));
    }

    void controlsAtLayoutPositions_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("stack list") << "stack" << QRect(4, 4, 1004, 124);
        QTest::newRow("entry field") << "entry" << QRect(4, 132, 1004, 28);
        QTest::newRow("message line") << "strip" << QRect(4, 164, 1004, 24);
        QTest::newRow("Bin") << "Bin" << QRect(4, 192, 80, 20);
        QTest::newRow("Oct") << "Oct" << QRect(4, 214, 80, 20);
        QTest::newRow("Dec") << "Dec" << QRect(88, 192, 80, 20);
        QTest::newRow("Hex") << "Hex" << QRect(88, 214, 80, 20);
        QTest::newRow("bits") << "bits" << QRect(172, 192, 164, 20);
        QTest::newRow("digits") << "digits" << QRect(172, 214, 164, 20);
        QTest::newRow("Degrees") << "Degrees" << QRect(424, 192, 100, 20);
        QTest::newRow("Radians") << "Radians" << QRect(424, 214, 100, 20);
        QTest::newRow("99,999") << "99,999" << QRect(592, 192, 80, 20);
        QTest::newRow("+999") << "+999" << QRect(592, 214, 80, 20);
        QTest::newRow("RPN") << "RPN" << QRect(760, 192, 80, 20);
        QTest::newRow("Alg") << "Alg" << QRect(760, 214, 80, 20);
        QTest::newRow("help") << "help" << QRect(844, 196, 80, 28);
        QTest::newRow("delete") << "delete" << QRect(928, 196, 80, 28);
        QTest::newRow("hover line") << "hover" << QRect(4, 630, 1004, 20);
    }
    void controlsAtLayoutPositions() {
        QFETCH(QString, control);
        QFETCH(QRect, geometry);
        uitest::WindowFixture f;
        MainWindow& w = f.window();
        const std::map<QString, QWidget*> named{
            {"stack", w.stackList()}, {"entry", w.entry()}, {"strip", w.messageStrip()},
            {"bits", w.bitsText()}, {"digits", w.digitsText()}, {"help", w.helpButton()},
            {"delete", w.deleteButton()}, {"hover", w.hoverLine()},
            {"Bin", w.modeBox(ModeButton::Bin)}, {"Oct", w.modeBox(ModeButton::Oct)},
            {"Dec", w.modeBox(ModeButton::Dec)}, {"Hex", w.modeBox(ModeButton::Hex)},
            {"Degrees", w.modeBox(ModeButton::Degrees)}, {"Radians", w.modeBox(ModeButton::Radians)},
            {"99,999", w.modeBox(ModeButton::Grouping)}, {"+999", w.modeBox(ModeButton::PlusSign)},
            {"RPN", w.modeBox(ModeButton::Rpn)}, {"Alg", w.modeBox(ModeButton::Alg)}};
        QWidget* widget = named.at(control);
        QCOMPARE(widget->geometry(), geometry);
        if (auto* box = qobject_cast<QCheckBox*>(widget)) QCOMPARE(box->text(), control);
    }

    // Cambria, or the metric-compatible Caladea standing in for it.
    void fontsAreCambriaOrCaladea() {
        uitest::WindowFixture f;
        const QString family = QFontInfo(f.window().entry()->font()).family();
        QVERIFY2(family == QLatin1String("Cambria") || family == QLatin1String("Caladea"), qPrintable(family));
        QVERIFY(f.window().key(0)->font().bold());
        QVERIFY(!f.window().stackList()->font().bold());
    }

    // An empty stack shows four empty lines.
    void emptyStackShowsFourEmptyLines() {
        uitest::WindowFixture f;
        QCOMPARE(f.stackLines(), QStringList(4, QString()));
    }

    // Two items show two empty lines, then the y line and the x line.
    void twoItemsShowTwoEmptyLinesThenYandX() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1 2"));
        QCOMPARE(f.stackLines(), (QStringList{QString(), QString(), QStringLiteral("y :\t1"), QStringLiteral("x :\t2")}));
    }

    void deeperItemsAreNumbered() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1 2 3 4 5"));
        QCOMPARE(f.stackLines(), (QStringList{QStringLiteral("5 :\t1"), QStringLiteral("4 :\t2"), QStringLiteral("z :\t3"),
                                              QStringLiteral("y :\t4"), QStringLiteral("x :\t5")}));
        // Scrolled to the end: the x line is in view.
        TabbedList* list = f.window().stackList();
        const QRect lastLine = list->visualItemRect(list->item(list->count() - 1));
        QVERIFY(lastLine.top() >= 0);
        QVERIFY(lastLine.bottom() <= list->viewport()->rect().bottom());
        QCOMPARE(list->verticalScrollBar()->value(), list->verticalScrollBar()->maximum());
    }

    // A string "abc" shows as 'abc'; a reference to an undefined name q shows "q = <undefined>".
    void stringAndUndefinedVariable() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("'abc' q"));
        QCOMPARE(f.stackLines().mid(2), (QStringList{QStringLiteral("y :\t'abc'"), QStringLiteral("x :\tq = <undefined>")}));
    }

    // A 1000-digit number takes three lines: the labelled one and two indented continuations.
    void thousandDigitNumberTakesThreeLines() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1000 std 1 3 /"));
        const QString digits = QStringLiteral("0.") + QString(1000, QLatin1Char('3'));
        const QStringList lines = f.stackLines();
        QCOMPARE(lines.size(), 4);
        QCOMPARE(lines[0], QString());
        QCOMPARE(lines[1], QStringLiteral("x :\t") + digits.left(450));
        QCOMPARE(lines[2], QStringLiteral("\t") + digits.mid(450, 450));
        QCOMPARE(lines[3], QStringLiteral("\t") + digits.mid(900));
    }

    // 1 kg·m/s² shows with "N"; the same value copied (plain-text units) is "m*kg/s^2".
    void newtonShownAsNAndPlainOnClipboard() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1 'kg*m/s^2'"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t1 N"));
        f.click(1, 2);   // Clip
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1 m*kg/s^2"));
    }

    // Copying with an empty stack shows "Empty Stack".
    void clipWithEmptyStack() {
        uitest::WindowFixture f;
        QGuiApplication::clipboard()->setText(QStringLiteral("untouched"));
        f.click(1, 2);
        QCOMPARE(f.message(), QStringLiteral("Empty Stack"));
        QCOMPARE(f.severity(), 3);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("untouched"));
    }

    // With 1.5 km on the stack and plain-text output the clipboard receives
    // the number with "km" (display units apply), and "Text Copied" shows.
    void clipAppliesDisplayUnits() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("'km' unit"));
        f.enter(QStringLiteral("1.5 'km'"));
        f.click(1, 2);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("1.5 km"));
        QCOMPARE(f.message(), QStringLiteral("Text Copied"));
        QCOMPARE(f.severity(), 2);
    }

    void clipCopiesPlainMinus() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 neg"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t\u22125"));
        f.click(1, 2);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("-5"));
    }

    // Message colours by severity.
    void messageColours_data() {
        QTest::addColumn<int>("severity");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("1 confirmation green") << 1 << QColor(0, 255, 0);
        QTest::newRow("2 information cyan") << 2 << QColor(0, 255, 255);
        QTest::newRow("3 warning yellow") << 3 << QColor(255, 255, 0);
        QTest::newRow("4 error red") << 4 << QColor(255, 0, 0);
    }
    void messageColours() {
        QFETCH(int, severity);
        QFETCH(QColor, colour);
        uitest::WindowFixture f;
        ReportError(f.app(), u"Something", severity);
        QCOMPARE(f.message(), QStringLiteral("Something"));
        QCOMPARE(f.severity(), severity);
        QCOMPARE(MessageStrip::severityColor(severity), colour);
        // The painted strip: grey fill, black frame, text in the colour.
        const QImage picture = f.window().messageStrip()->grab().toImage();
        QCOMPARE(picture.pixelColor(0, 0), QColor(Qt::black));
        QCOMPARE(picture.pixelColor(picture.width() - 1, 10), QColor(Qt::black));
        QCOMPARE(picture.pixelColor(picture.width() - 20, 12), QColor(160, 160, 160));
        bool found = false;
        for (int x = 2; x < 120 && !found; ++x)
            for (int y = 2; y < 22 && !found; ++y) found = picture.pixelColor(x, y) == colour;
        QVERIFY2(found, "no pixel of the severity colour in the text");
    }

    void emptyStripIsGreyInBlackFrame() {
        uitest::WindowFixture f;
        QCOMPARE(f.message(), QString());
        const QImage picture = f.window().messageStrip()->grab().toImage();
        QCOMPARE(picture.pixelColor(0, 5), QColor(Qt::black));
        for (int x = 1; x < picture.width() - 1; x += 37) QCOMPARE(picture.pixelColor(x, 12), QColor(160, 160, 160));
    }

    // The first error of an action stays.
    void firstErrorOfAnActionIsKept() {
        uitest::WindowFixture f;
        // "Incompatible Units" first, then "Missing Operand" of the same severity.
        f.enter(QStringLiteral("1 'm' 1 + 'abc' 1 +"));
        QCOMPARE(f.severity(), 4);
        QCOMPARE(f.message(), QStringLiteral("Incompatible Units"));
    }

    // Typing clears a warning or an error, but not a note of severity 1 or 2.
    void typingClearsWarningsNotNotes_data() {
        QTest::addColumn<int>("severity");
        QTest::addColumn<bool>("cleared");
        QTest::newRow("confirmation stays") << 1 << false;
        QTest::newRow("information stays") << 2 << false;
        QTest::newRow("warning cleared") << 3 << true;
        QTest::newRow("error cleared") << 4 << true;
    }
    void typingClearsWarningsNotNotes() {
        QFETCH(int, severity);
        QFETCH(bool, cleared);
        uitest::WindowFixture f;
        ReportError(f.app(), u"Note or error", severity);
        QTest::keyClick(f.window().entry(), Qt::Key_5);
        QCOMPARE(f.message().isEmpty(), cleared);
        QCOMPARE(f.entryText(), QStringLiteral("5"));
    }

    // Each new line starts with a clear strip.
    void newLineClearsOldMessage() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("+"));
        QCOMPARE(f.message(), QStringLiteral("Missing Operand"));
        f.enter(QStringLiteral("1"));
        QCOMPARE(f.message(), QString());
    }

    void statusTexts() {
        uitest::WindowFixture f;
        QCOMPARE(f.window().digitsText()->text(), QStringLiteral("80 Digits"));
        QCOMPARE(f.window().bitsText()->text(), QString());
        f.enter(QStringLiteral("16 wsize"));
        QCOMPARE(f.window().bitsText()->text(), QStringLiteral("16 Bits"));
        f.enter(QStringLiteral("30 std"));
        QCOMPARE(f.window().digitsText()->text(), QStringLiteral("30 Digits"));
    }

    // Each mode box sets its mode; the boxes then show the state.
    void modeBoxes_data() {
        QTest::addColumn<int>("which");
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("trig");
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("entryMode");
        QTest::newRow("Bin") << int(ModeButton::Bin) << 2 << 0 << 0 << 0;
        QTest::newRow("Oct") << int(ModeButton::Oct) << 8 << 0 << 0 << 0;
        QTest::newRow("Hex") << int(ModeButton::Hex) << 16 << 0 << 0 << 0;
        QTest::newRow("Dec") << int(ModeButton::Dec) << 10 << 0 << 0 << 0;
        QTest::newRow("Degrees") << int(ModeButton::Degrees) << 10 << 1 << 0 << 0;
        QTest::newRow("Radians") << int(ModeButton::Radians) << 10 << 0 << 0 << 0;
        QTest::newRow("99,999") << int(ModeButton::Grouping) << 10 << 0 << 0x4 << 0;
        QTest::newRow("+999") << int(ModeButton::PlusSign) << 10 << 0 << 0x1 << 0;
        QTest::newRow("Alg") << int(ModeButton::Alg) << 10 << 0 << 0 << 1;
        QTest::newRow("RPN") << int(ModeButton::Rpn) << 10 << 0 << 0 << 0;
    }
    void modeBoxes() {
        QFETCH(int, which);
        QFETCH(int, base);
        QFETCH(int, trig);
        QFETCH(int, flags);
        QFETCH(int, entryMode);
        uitest::WindowFixture f;
        MainWindow& w = f.window();
        QTest::mouseClick(w.modeBox(ModeButton(which)), Qt::LeftButton);
        f.settle();
        QCOMPARE(int(f.app().base), base);
        QCOMPARE(int(f.app().trigMode), trig);
        QCOMPARE(f.app().dspFlags, flags);
        QCOMPARE(int(f.app().entryMode), entryMode);
        QCOMPARE(w.modeBox(ModeButton::Bin)->isChecked(), base == 2);
        QCOMPARE(w.modeBox(ModeButton::Oct)->isChecked(), base == 8);
        QCOMPARE(w.modeBox(ModeButton::Dec)->isChecked(), base == 10);
        QCOMPARE(w.modeBox(ModeButton::Hex)->isChecked(), base == 16);
        QCOMPARE(w.modeBox(ModeButton::Degrees)->isChecked(), trig == 1);
        QCOMPARE(w.modeBox(ModeButton::Radians)->isChecked(), trig == 0);
        QCOMPARE(w.modeBox(ModeButton::Grouping)->isChecked(), (flags & 0x4) != 0);
        QCOMPARE(w.modeBox(ModeButton::PlusSign)->isChecked(), (flags & 0x1) != 0);
        QCOMPARE(w.modeBox(ModeButton::Rpn)->isChecked(), entryMode == 0);
        QCOMPARE(w.modeBox(ModeButton::Alg)->isChecked(), entryMode == 1);
        // A checked box clicked again stays checked: the boxes follow the state.
        QTest::mouseClick(w.modeBox(ModeButton(which)), Qt::LeftButton);
        f.settle();
        if (which != int(ModeButton::Grouping) && which != int(ModeButton::PlusSign))
            QVERIFY(w.modeBox(ModeButton(which))->isChecked());
        else
            QCOMPARE(f.app().dspFlags, 0);   // the two format boxes toggle
    }

    // "Degrees" and "Radians" set the trigonometric mode and the angle display
    // unit; `unit` changes only the display unit, so the two can disagree.
    void degreesSetsAngleDisplayUnit() {
        uitest::WindowFixture f;
        QTest::mouseClick(f.window().modeBox(ModeButton::Degrees), Qt::LeftButton);
        f.settle();
        QCOMPARE(f.app().displayUnits[7], std::u16string(u"deg"));
        f.enter(QStringLiteral("'rad' unit"));
        QCOMPARE(f.app().displayUnits[7], std::u16string(u"rad"));
        QVERIFY(f.window().modeBox(ModeButton::Degrees)->isChecked());
        QTest::mouseClick(f.window().modeBox(ModeButton::Radians), Qt::LeftButton);
        f.settle();
        QCOMPARE(f.app().trigMode, int16_t(0));
        QCOMPARE(f.app().displayUnits[7], std::u16string(u"rad"));
    }

    // The field holds at most 512 characters: typing more does nothing and
    // the program goes on.
    void entryLimitedTo512Characters() {
        uitest::WindowFixture f;
        QLineEdit* entry = f.window().entry();
        QCOMPARE(entry->maxLength(), 512);
        entry->setText(QString(511, QLatin1Char('1')));
        QTest::keyClicks(entry, QStringLiteral("2345"));
        QCOMPARE(entry->text().size(), 512);
        QCOMPARE(entry->text().back(), QLatin1Char('2'));
        entry->insert(QString(100, QLatin1Char('9')));
        QCOMPARE(entry->text().size(), 512);
        QTest::keyClick(entry, Qt::Key_Return);
        f.settle();
        QCOMPARE(f.app().stack.count(), 1);
    }

    // The entry field keeps the focus after lines and key actions.
    void entryKeepsFocus() {
        uitest::WindowFixture f;
        f.window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.window()));
        f.enter(QStringLiteral("1"));
        QVERIFY(f.window().entry()->hasFocus());
        f.click(10, 9);
        QVERIFY(f.window().entry()->hasFocus());
        QTest::mouseClick(f.window().modeBox(ModeButton::Hex), Qt::LeftButton);
        f.settle();
        QVERIFY(f.window().entry()->hasFocus());
    }

    // Escape stops a long computation within a fraction of a second; while it
    // runs the window keeps handling events and shows the busy cursor.
    void escapeAbortsLongComputation() {
        uitest::WindowFixture f;
        QTemporaryFile program;
        QVERIFY(LoadProgramFile(f.app(), writeSpinProgram(program).toStdString()));
        f.window().entry()->setText(QStringLiteral("spin"));
        QTest::keyClick(f.window().entry(), Qt::Key_Return);
        QVERIFY(f.window().isBusy());
        QVERIFY(QApplication::overrideCursor() != nullptr);
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);

        // The UI thread stays responsive: timers fire, typing works, repaints happen.
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
        timer.start(10);
        QTest::qWait(300);
        QVERIFY(ticks >= 5);
        QVERIFY(f.window().isBusy());
        QTest::keyClicks(f.window().entry(), QStringLiteral("12"));
        QCOMPARE(f.entryText(), QStringLiteral("12"));
        f.window().stackList()->repaint();

        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(f.window().entry(), Qt::Key_Escape);
        QVERIFY(f.window().waitUntilIdle(2000));
        QVERIFY(clock.elapsed() < 1000);
        QCOMPARE(f.message(), QStringLiteral("User Break"));
        QCOMPARE(f.severity(), 4);
        QVERIFY(QApplication::overrideCursor() == nullptr);
        // Typing leaves the stop message alone until the next action.
        QTest::keyClick(f.window().entry(), Qt::Key_3);
        QCOMPARE(f.message(), QStringLiteral("User Break"));
        f.enter(QStringLiteral("1"));
        QCOMPARE(f.message(), QString());
    }

    // Escape stops a long numeric computation (gamma of 10^6 at 1000 digits,
    // a million long multiplications) with "Aborted"; the operand is back.
    void escapeAbortsLongGamma() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1000 std 1000000"));
        f.window().entry()->setText(QStringLiteral("gamma"));
        QTest::keyClick(f.window().entry(), Qt::Key_Return);
        QTest::qWait(200);
        QVERIFY(f.window().isBusy());
        QElapsedTimer clock;
        clock.start();
        QTest::keyClick(f.window().entry(), Qt::Key_Escape);
        QVERIFY(f.window().waitUntilIdle(5000));
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
        QCOMPARE(f.message(), QStringLiteral("Aborted"));
        QCOMPARE(f.app().stack.count(), 1);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t1000000"));
    }

    // A line entered while another runs waits for it: never two at once.
    void neverTwoEvaluationsAtOnce() {
        uitest::WindowFixture f;
        QTemporaryFile program;
        QVERIFY(LoadProgramFile(f.app(), writeSpinProgram(program).toStdString()));
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        f.window().runLine(QStringLiteral("spin"), 0);
        f.window().entry()->setText(QStringLiteral("42"));
        QTest::keyClick(f.window().entry(), Qt::Key_Return);
        QTest::mouseClick(f.window().key(ButtonIndex(10, 9)), Qt::LeftButton);   // "0": waits too
        QTest::qWait(100);
        QCOMPARE(f.entryText(), QStringLiteral("42"));
        QCOMPARE(started.count(), 1);
        QVERIFY(f.window().isBusy());
        f.window().abortComputation();
        QVERIFY(f.window().waitUntilIdle(2000));
        // Escape dropped what waited.
        QCOMPARE(started.count(), 1);
        QCOMPARE(f.app().stack.count(), 0);
    }

    void deferredLineRunsAfterTheRunningOne() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1"));
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        f.window().runLine(QStringLiteral("2"), 0);
        f.window().runLine(QStringLiteral("3"), 0);
        QVERIFY(f.window().waitUntilIdle(5000));
        QCOMPARE(started.count(), 2);
        QCOMPARE(f.app().stack.count(), 3);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t3"));
    }

    // `exit` typed in the window (console closed) closes the window.
    void exitClosesTheWindow() {
        uitest::WindowFixture f;
        QSignalSpy closed(&f.window(), &MainWindow::closed);
        f.enter(QStringLiteral("exit"));
        QCOMPARE(closed.count(), 1);
        QVERIFY(!f.window().isVisible());
    }

    // Closing while a command runs stops it first, then closes.
    void closeWhileBusyStopsThenCloses() {
        uitest::WindowFixture f;
        QTemporaryFile program;
        QVERIFY(LoadProgramFile(f.app(), writeSpinProgram(program).toStdString()));
        QSignalSpy closed(&f.window(), &MainWindow::closed);
        f.window().runLine(QStringLiteral("spin"), 0);
        QTest::qWait(50);
        f.window().close();
        QVERIFY(f.window().isVisible());
        QVERIFY(f.window().waitUntilIdle(2000));
        QTRY_COMPARE(closed.count(), 1);
    }
};

QTEST_MAIN(MainWindowTest)
#include "mainwindow_test.moc"
