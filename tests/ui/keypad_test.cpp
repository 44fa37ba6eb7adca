// What the keys do when clicked: every flag behaviour of the keypad table,
// the delete button, the hover line and the pressed bevel.
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

#include "ui/keybutton.h"
#include "ui/keypad.h"
#include "ui/messagestrip.h"
#include "ui/tabbedlist.h"
#include "uitesting.h"

using namespace quorvel;
using namespace quorvel::ui;

namespace {

// The table position of the key labelled `label`.
std::pair<int, int> position(const QString& label) {
    for (std::size_t i = 0; i < ButtonTable.size(); ++i) {
        if (ButtonTable[i].label != nullptr && QString::fromUtf16(ButtonTable[i].label) == label)
            return {int(i) / KeypadColumns + 1, int(i) % KeypadColumns + 1};
    }
    return {0, 0};
}

}  // namespace

class KeypadTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { uitest::UseThrowAwayHome(); }

    // Pressing "A" in base 10 does nothing; in base 16 it types "A" (all six hex digits).
    void hexDigitOnlyAboveBase10_data() {
        QTest::addColumn<QString>("label");
        for (const char* d : {"A", "B", "C", "D", "E", "F"}) QTest::newRow(d) << QString::fromLatin1(d);
    }
    void hexDigitOnlyAboveBase10() {
        QFETCH(QString, label);
        uitest::WindowFixture f;
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(f.entryText(), QString());
        QTest::mouseClick(f.window().modeBox(ModeButton::Hex), Qt::LeftButton);
        f.settle();
        QCOMPARE(f.app().base, int16_t(16));
        f.click(r, c);
        QCOMPARE(f.entryText(), label);
    }

    // "(" and "," do nothing in RPN mode (")" likewise); "#" types in both modes.
    void literalKeys_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("inRpn");
        QTest::addColumn<QString>("inAlg");
        QTest::newRow("(") << "(" << "" << "(";
        QTest::newRow(",") << "," << "" << ",";
        QTest::newRow(")") << ")" << "" << ")";
        QTest::newRow("#") << "#" << "#" << "#";
    }
    void literalKeys() {
        QFETCH(QString, label);
        QFETCH(QString, inRpn);
        QFETCH(QString, inAlg);
        uitest::WindowFixture f;
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(f.entryText(), inRpn);
        f.window().entry()->clear();
        QTest::mouseClick(f.window().modeBox(ModeButton::Alg), Qt::LeftButton);
        f.settle();
        QCOMPARE(f.app().entryMode, int16_t(1));
        f.click(r, c);
        QCOMPARE(f.entryText(), inAlg);
    }

    // Entry characters: digits, the point, "−" types "-", "EE" types "E".
    void entryCharacters_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("typed");
        for (const char* d : {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"})
            QTest::newRow(d) << QString::fromLatin1(d) << QString::fromLatin1(d);
        QTest::newRow(".") << "." << ".";
        QTest::newRow("negative sign") << QStringLiteral("−") << "-";
        QTest::newRow("EE") << "EE" << "E";
    }
    void entryCharacters() {
        QFETCH(QString, label);
        QFETCH(QString, typed);
        uitest::WindowFixture f;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(f.entryText(), typed);
        QCOMPARE(started.count(), 0);
    }

    // Typed text lands at the caret, as keyboard input does.
    void typingLandsAtTheCaret() {
        uitest::WindowFixture f;
        f.window().entry()->setText(QStringLiteral("1 3"));
        f.window().entry()->setCursorPosition(1);
        const auto [r, c] = position(QStringLiteral("2"));
        f.click(r, c);
        QCOMPARE(f.entryText(), QStringLiteral("12 3"));
    }

    // "sin(x)" in RPN types "sin" and runs the line at once; in algebraic
    // mode it types "sin(" and waits.
    void functionKeyRpnRunsAlgebraicWaits() {
        uitest::WindowFixture f;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(QStringLiteral("sin(x)"));
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(started[0][0].toString(), QStringLiteral("sin"));
        QCOMPARE(started[0][1].toInt(), 0);
        QCOMPARE(f.entryText(), QString());

        QTest::mouseClick(f.window().modeBox(ModeButton::Alg), Qt::LeftButton);
        f.settle();
        f.click(r, c);
        QCOMPARE(f.entryText(), QStringLiteral("sin("));
        QCOMPARE(started.count(), 1);
    }

    // A command key in RPN runs the whole line, what was typed before included.
    void commandKeyRunsTheWholeLine() {
        uitest::WindowFixture f;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        f.window().entry()->setText(QStringLiteral("2 3 "));
        const auto [r, c] = position(QStringLiteral("y + x"));
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(started[0][0].toString(), QStringLiteral("2 3 +"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t5"));
    }

    // Roll, Swap, Drop, Dup and Clear run at once in both modes (their rows
    // carry the run-at-once bit).
    void runAtOnceKeys_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("mode");
        for (int mode : {0, 1}) {
            const char* modeName = mode == 0 ? " RPN" : " Alg";
            for (const auto& [label, command] : std::initializer_list<std::pair<const char*, const char*>>{
                     {"Roll", "roll"}, {"Swap", "swap"}, {"Drop", "drop"}, {"Dup", "dup"}, {"Clear", "clear"}})
                QTest::newRow((std::string(label) + modeName).c_str())
                    << QString::fromLatin1(label) << QString::fromLatin1(command) << mode;
        }
    }
    void runAtOnceKeys() {
        QFETCH(QString, label);
        QFETCH(QString, command);
        QFETCH(int, mode);
        uitest::WindowFixture f;
        f.app().entryMode = int16_t(mode);
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(started[0][0].toString(), command);
        QCOMPARE(started[0][1].toInt(), mode);
        QCOMPARE(f.entryText(), QString());
    }

    // The number-format keys (rows 0x54: command, "(" in algebraic entry,
    // repaint) run at once in RPN and in algebraic entry type "std(" for the
    // digit count, without the run-at-once bit.
    void numberFormatKeys_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("command");
        QTest::newRow("Std") << "Std" << "std";
        QTest::newRow("Fix") << "Fix" << "fix";
        QTest::newRow("Sci") << "Sci" << "sci";
    }
    void numberFormatKeys() {
        QFETCH(QString, label);
        QFETCH(QString, command);
        uitest::WindowFixture f;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(started[0][0].toString(), command);
        f.app().entryMode = 1;
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(f.entryText(), command + QLatin1Char('('));
    }

    // The stack keys do their work in algebraic entry too.
    void stackKeysInAlgebraicMode() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1 2"));
        f.app().entryMode = 1;
        const auto swap = position(QStringLiteral("Swap"));
        f.click(swap.first, swap.second);
        QCOMPARE(f.stackLines().mid(2), (QStringList{QStringLiteral("y :\t2"), QStringLiteral("x :\t1")}));
        const auto dup = position(QStringLiteral("Dup"));
        f.click(dup.first, dup.second);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t1"));
        QCOMPARE(f.app().stack.count(), 3);
        const auto clear = position(QStringLiteral("Clear"));
        f.click(clear.first, clear.second);
        QCOMPARE(f.app().stack.count(), 0);
    }

    // Command keys without the run-at-once bit wait in algebraic entry; with
    // the "(" bit they add "(".
    void commandKeysInAlgebraicMode_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("typed");
        QTest::newRow("y + x") << "y + x" << "+";
        QTest::newRow("π") << QStringLiteral("π") << "pi";
        QTest::newRow("Sto") << "Sto" << "sto(";
        QTest::newRow("√x") << QStringLiteral("√x") << "sqrt(";
        QTest::newRow("WSize") << "WSize" << "wsize";
    }
    void commandKeysInAlgebraicMode() {
        QFETCH(QString, label);
        QFETCH(QString, typed);
        uitest::WindowFixture f;
        f.app().entryMode = 1;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(label);
        f.click(r, c);
        QCOMPARE(f.entryText(), typed);
        QCOMPARE(started.count(), 0);
    }

    // The Enter key runs the line; Enter on an empty line does nothing.
    void enterKeyRunsTheLine() {
        uitest::WindowFixture f;
        QSignalSpy started(&f.window(), &MainWindow::lineStarted);
        const auto [r, c] = position(QStringLiteral("Enter"));
        f.click(r, c);
        QCOMPARE(started.count(), 0);
        f.window().entry()->setText(QStringLiteral("7 8"));
        f.click(r, c);
        QCOMPARE(started.count(), 1);
        QCOMPARE(f.stackLines().mid(2), (QStringList{QStringLiteral("y :\t7"), QStringLiteral("x :\t8")}));
        QCOMPARE(f.entryText(), QString());
    }

    // The delete button removes the character before the caret.
    void deleteButtonRemovesCharacterBeforeCaret() {
        uitest::WindowFixture f;
        f.window().entry()->setText(QStringLiteral("12345"));
        f.window().entry()->setCursorPosition(3);
        QTest::mouseClick(f.window().deleteButton(), Qt::LeftButton);
        f.settle();
        QCOMPARE(f.entryText(), QStringLiteral("1245"));
        QCOMPARE(f.window().entry()->cursorPosition(), 2);
        QVERIFY(f.window().entry()->hasFocus() || !f.window().isActiveWindow());
    }

    // The action runs on release; the bevel swaps while the key is held.
    void actionOnReleaseBevelSwapsWhilePressed() {
        uitest::WindowFixture f;
        const auto [r, c] = position(QStringLiteral("7"));
        KeyButton* key = f.window().key(ButtonIndex(r, c));
        const QColor raisedTop = key->topLeftEdge();
        const QColor raisedBottom = key->bottomRightEdge();
        QVERIFY(raisedTop != raisedBottom);
        QTest::mousePress(key, Qt::LeftButton);
        QVERIFY(key->isDown());
        QCOMPARE(key->topLeftEdge(), raisedBottom);
        QCOMPARE(key->bottomRightEdge(), raisedTop);
        QCOMPARE(f.entryText(), QString());
        QTest::mouseRelease(key, Qt::LeftButton);
        f.settle();
        QVERIFY(!key->isDown());
        QCOMPARE(key->topLeftEdge(), raisedTop);
        QCOMPARE(f.entryText(), QStringLiteral("7"));
    }

    // The hover line shows the description of the key under the mouse, and
    // the delete button's "Delete Character"; moving over the window clears it.
    void hoverLineShowsDescription_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("description");
        QTest::newRow("Swap") << "Swap" << QStringLiteral("Swap 2 Stack Items (x ↔ y)");
        QTest::newRow("y red x") << "y red x" << QStringLiteral("y reduce x (-x/2 ≤ result < x/2)");
        QTest::newRow("Enter") << "Enter" << "Enter";
        QTest::newRow("delete") << "" << "Delete Character";
    }
    void hoverLineShowsDescription() {
        QFETCH(QString, label);
        QFETCH(QString, description);
        uitest::WindowFixture f;
        QWidget* target = f.window().deleteButton();
        if (!label.isEmpty()) {
            const auto [r, c] = position(label);
            target = f.window().key(ButtonIndex(r, c));
        }
        QMouseEvent over(QEvent::MouseMove, QPointF(12, 12), target->mapToGlobal(QPointF(12, 12)), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &over);
        QCOMPARE(f.window().hoverLine()->text(), description);
        QMouseEvent away(QEvent::MouseMove, QPointF(350, 200), f.window().mapToGlobal(QPointF(350, 200)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&f.window(), &away);
        QCOMPARE(f.window().hoverLine()->text(), QString());
    }

    // The help button is a painted key labelled "Help".
    void helpButtonIsPaintedKey() {
        uitest::WindowFixture f;
        QCOMPARE(f.window().helpButton()->text(), QStringLiteral("Help"));
        QCOMPARE(f.window().helpButton()->geometry(), QRect(844, 196, 80, 28));
        QCOMPARE(f.window().deleteButton()->geometry(), QRect(928, 196, 80, 28));
    }

    // The decision of each flag combination without a window.
    void decideKeyAction_data() {
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("base");
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("execute");
        QTest::addColumn<int>("special");
        QTest::addColumn<bool>("repaint");
        const int none = int(SpecialAction::None);
        QTest::newRow("A base 10") << "A" << 10 << 0 << "" << false << none << false;
        QTest::newRow("A base 16") << "A" << 16 << 0 << "A" << false << none << false;
        QTest::newRow("A base 11") << "A" << 11 << 0 << "A" << false << none << false;
        QTest::newRow("( RPN") << "(" << 10 << 0 << "" << false << none << false;
        QTest::newRow("( Alg") << "(" << 10 << 1 << "(" << false << none << false;
        QTest::newRow("# RPN") << "#" << 10 << 0 << "#" << false << none << false;
        QTest::newRow("sin RPN") << "sin(x)" << 10 << 0 << "sin" << true << none << false;
        QTest::newRow("sin Alg") << "sin(x)" << 10 << 1 << "sin(" << false << none << false;
        QTest::newRow("Std Alg") << "Std" << 10 << 1 << "std(" << false << none << true;
        QTest::newRow("Fix RPN") << "Fix" << 10 << 0 << "fix" << true << none << true;
        QTest::newRow("Roll Alg") << "Roll" << 10 << 1 << "roll" << true << none << false;
        QTest::newRow("y ÷ x Alg") << QStringLiteral("y ÷ x") << 10 << 1 << "/" << false << none << false;
        QTest::newRow("Enter") << "Enter" << 10 << 0 << "" << true << none << false;
        QTest::newRow("Clip") << "Clip" << 10 << 0 << "" << false << int(SpecialAction::Clipboard) << false;
        QTest::newRow("Dsp Units") << "Dsp Units" << 10 << 0 << "" << false << int(SpecialAction::DisplayUnits) << false;
        QTest::newRow("Const") << "Const" << 10 << 0 << "" << false << int(SpecialAction::Constants) << false;
        QTest::newRow("Cmd") << "Cmd" << 10 << 0 << "" << false << int(SpecialAction::Console) << false;
        QTest::newRow("LoadPgm") << "LoadPgm" << 10 << 0 << "" << false << int(SpecialAction::LoadProgram) << false;
        QTest::newRow("+ Units") << "+ Units" << 10 << 0 << "" << false << int(SpecialAction::UnitsEntry) << false;
        QTest::newRow("− Units RPN") << QStringLiteral("− Units") << 10 << 0 << "remunits" << true << none << false;
    }
    void decideKeyAction() {
        QFETCH(QString, label);
        QFETCH(int, base);
        QFETCH(int, mode);
        QFETCH(QString, typed);
        QFETCH(bool, execute);
        QFETCH(int, special);
        QFETCH(bool, repaint);
        const auto [r, c] = position(label);
        QVERIFY(r != 0);
        const KeyAction action = DecideKeyAction(ButtonTable[ButtonIndex(r, c)], base, mode);
        QCOMPARE(QString::fromStdU16String(action.typed), typed);
        QCOMPARE(action.execute, execute);
        QCOMPARE(int(action.special), special);
        QCOMPARE(action.repaint, repaint);
    }

    void emptyRowDoesNothing() {
        const KeyAction action = DecideKeyAction(ButtonTable[ButtonIndex(1, 7)], 16, 1);
        QVERIFY(action.typed.empty());
        QVERIFY(!action.execute);
        QCOMPARE(action.special, SpecialAction::None);
    }
};

QTEST_MAIN(KeypadTest)
#include "keypad_test.moc"
