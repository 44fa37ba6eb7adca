// The dialogs: constants, display units, units entry, the memory list of
// `0 rcl`, the "Clear All Memories" question, program loading and help,
// each driven programmatically and through the keys that open them.
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "lang/memories.h"
#include "ui/constantsdialog.h"
#include "ui/displayunitsdialog.h"
#include "ui/keybutton.h"
#include "ui/memorydialog.h"
#include "ui/qtext.h"
#include "ui/tabbedlist.h"
#include "ui/unitsentrydialog.h"
#include "uitesting.h"

using namespace quorvel;
using namespace quorvel::ui;

namespace {

// The row of `list` whose first word is `symbol`, or -1.
int rowOf(TabbedList* list, const QString& symbol) {
    for (int i = 0; i < list->count(); ++i)
        if (list->item(i)->text().section(QLatin1Char('\t'), 0, 0) == symbol) return i;
    return -1;
}

// Selects the row of `symbol` in `list` and double-clicks it as the user would.
void doubleClickRow(TabbedList* list, const QString& symbol) {
    const int row = rowOf(list, symbol);
    QVERIFY2(row >= 0, qPrintable(symbol));
    list->scrollToItem(list->item(row));
    list->setCurrentRow(row);
    emit list->itemDoubleClicked(list->item(row));
}

QString display(AppState& app, const Item& item) {
    return ToQString(DisplayText(app, item, app.digits, 0x80).value_or(u"?"));
}

}  // namespace

class DialogsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { uitest::UseThrowAwayHome(); }

    // ---- Constants ----

    void constantsDialogListsAll31Rows() {
        uitest::WindowFixture f;
        ConstantsDialog dialog(f.app());
        QCOMPARE(dialog.list()->count(), 31);
        QCOMPARE(dialog.list()->item(0)->text(), QStringLiteral("a0\ta₀\tBohr Radius"));
        QCOMPARE(dialog.list()->item(10)->text(), QStringLiteral("hbar\tħ\tReduced Planck Constant"));
        QCOMPARE(dialog.list()->item(30)->text(), QStringLiteral("sigma\tσ\tStefan-Boltzmann Constant"));
        QCOMPARE(dialog.list()->tabStops(), (QList<int>{80, 128}));
    }

    void constantsOkPushesTheChosenConstant() {
        uitest::WindowFixture f;
        ConstantsDialog dialog(f.app());
        dialog.list()->setCurrentRow(rowOf(dialog.list(), QStringLiteral("c")));
        dialog.chooseWithOk();
        QCOMPARE(dialog.result(), ConstantsDialog::Pushed);
        QCOMPARE(f.app().stack.count(), 1);
        const Item& c = *f.app().stack.head();
        QCOMPARE(display(f.app(), c), QStringLiteral("299792458. m/s"));
        QCOMPARE(c.units, (UnitVector{1, 0, -1, 0, 0, 0, 0, 0}));
    }

    // With OK, no selection ends the dialog with 2 and pushes nothing.
    void constantsOkWithoutSelectionCancels() {
        uitest::WindowFixture f;
        ConstantsDialog dialog(f.app());
        dialog.open();
        dialog.chooseWithOk();
        QCOMPARE(dialog.result(), ConstantsDialog::Cancelled);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(f.app().stack.count(), 0);
    }

    // With a double-click, no selection keeps the dialog open.
    void constantsDoubleClickWithoutSelectionStays() {
        uitest::WindowFixture f;
        ConstantsDialog dialog(f.app());
        dialog.open();
        dialog.chooseWithDoubleClick();
        QVERIFY(dialog.isVisible());
        QCOMPARE(f.app().stack.count(), 0);
        dialog.reject();
        QCOMPARE(dialog.result(), ConstantsDialog::Cancelled);
    }

    // Double-clicking "hbar" evaluates h/2π with Length 2, Mass 1, Time -1
    // and closes the dialog.
    void constantsDoubleClickHbar() {
        uitest::WindowFixture f;
        ConstantsDialog dialog(f.app());
        dialog.open();
        doubleClickRow(dialog.list(), QStringLiteral("hbar"));
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), ConstantsDialog::Pushed);
        QCOMPARE(f.app().stack.count(), 1);
        const Item hbar = *f.app().stack.pop();
        QCOMPARE(hbar.units, (UnitVector{2, 1, -1, 0, 0, 0, 0, 0}));
        std::optional<Item> expected = EvaluateText(f.app(), u"6.62607015E-34 'J*s'/(2*pi)");
        QVERIFY(expected.has_value());
        QCOMPARE(display(f.app(), hbar), display(f.app(), *expected));
        QVERIFY2(display(f.app(), hbar).startsWith(QStringLiteral("1.05457181764615")), qPrintable(display(f.app(), hbar)));
    }

    // Through the "Const" key: the entry field receives the number followed
    // by its unit text in double quotes; the stack is as before.
    void constKeyTypesHbarIntoTheEntry() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("7"));
        f.window().entry()->setText(QStringLiteral("2"));
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<ConstantsDialog*>(modal);
            QVERIFY(dialog != nullptr);
            doubleClickRow(dialog->list(), QStringLiteral("hbar"));
        });
        f.click(3, 4);
        QCOMPARE(f.app().stack.count(), 1);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t7"));
        const QString entry = f.entryText();
        QVERIFY2(entry.startsWith(QStringLiteral("2 1.05457181764615")), qPrintable(entry));
        QVERIFY2(entry.endsWith(QStringLiteral(" \"m^2*kg/s\"")), qPrintable(entry));
        // The line reads back as the same value with the same units.
        f.window().entry()->setText(entry.mid(2));
        QTest::keyClick(f.window().entry(), Qt::Key_Return);
        f.settle();
        QCOMPARE(f.app().stack.head()->units, (UnitVector{2, 1, -1, 0, 0, 0, 0, 0}));
    }

    void constKeyCancelChangesNothing() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("7"));
        uitest::AnswerNextModal([](QWidget* modal) { qobject_cast<QDialog*>(modal)->reject(); });
        f.click(3, 4);
        QCOMPARE(f.entryText(), QString());
        QCOMPARE(f.app().stack.count(), 1);
    }

    // ---- Display units ----

    void displayUnitsDialogListsAll67Units() {
        uitest::WindowFixture f;
        DisplayUnitsDialog dialog(f.app());
        QCOMPARE(dialog.list()->count(), 67);
        QCOMPARE(dialog.list()->item(0)->text(), QStringLiteral("km\tkm\tkilometer"));
        QCOMPARE(dialog.reportLine(0), QStringLiteral("Length = m (meter)"));
        QCOMPARE(dialog.reportLine(1), QStringLiteral("Mass = kg (kilogram)"));
        QCOMPARE(dialog.reportLine(6), QStringLiteral("Luminous Int. = cd (candela)"));
        QCOMPARE(dialog.reportLine(7), QStringLiteral("Angle = rad (radian arc)"));
    }

    // Double-clicking "ft" then "kg" then OK sets Length to ft and Mass to kg in one go.
    void displayUnitsFtThenKgThenOk() {
        uitest::WindowFixture f;
        f.app().displayUnits[1] = u"g";
        DisplayUnitsDialog dialog(f.app());
        dialog.open();
        doubleClickRow(dialog.list(), QStringLiteral("ft"));
        QCOMPARE(dialog.reportLine(0), QStringLiteral("Length = ft (foot)"));
        QCOMPARE(f.app().displayUnits[0], std::u16string(u"m"));   // pending only
        doubleClickRow(dialog.list(), QStringLiteral("kg"));
        QCOMPARE(dialog.reportLine(1), QStringLiteral("Mass = kg (kilogram)"));
        dialog.pressOk();
        QCOMPARE(dialog.result(), DisplayUnitsDialog::Stored);
        QCOMPARE(f.app().displayUnits[0], std::u16string(u"ft"));
        QCOMPARE(f.app().displayUnits[1], std::u16string(u"kg"));
    }

    // The list is not filtered: a unit changes its own dimension.
    void displayUnitsAnyRowChangesItsOwnDimension() {
        uitest::WindowFixture f;
        DisplayUnitsDialog dialog(f.app());
        doubleClickRow(dialog.list(), QStringLiteral("deg"));
        QVERIFY(dialog.reportLine(7).startsWith(QStringLiteral("Angle = ")));
        QVERIFY(dialog.reportLine(7) != QStringLiteral("Angle = rad (radian arc)"));
        QCOMPARE(dialog.reportLine(0), QStringLiteral("Length = m (meter)"));
        dialog.pressOk();
        QCOMPARE(f.app().displayUnits[7], std::u16string(u"deg"));
    }

    void displayUnitsCancelChangesNothing() {
        uitest::WindowFixture f;
        DisplayUnitsDialog dialog(f.app());
        doubleClickRow(dialog.list(), QStringLiteral("ft"));
        dialog.reject();
        QCOMPARE(dialog.result(), DisplayUnitsDialog::Cancelled);
        QCOMPARE(f.app().displayUnits[0], std::u16string(u"m"));
    }

    // Through "Dsp Units": OK refreshes the stack list in the new unit.
    void dspUnitsKeyRefreshesTheStack() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("1500 'm'"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t1500 m"));
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<DisplayUnitsDialog*>(modal);
            QVERIFY(dialog != nullptr);
            doubleClickRow(dialog->list(), QStringLiteral("km"));
            dialog->pressOk();
        });
        f.click(1, 3);
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t1.5 km"));
    }

    // ---- Units entry ----

    void unitsEntryListsBaseThenDerivedUnits() {
        UnitsEntryDialog dialog;
        QCOMPARE(dialog.list()->count(), 67 + 76);
        QCOMPARE(dialog.list()->item(0)->text(), QStringLiteral("km\tkm\tkilometer"));
        QVERIFY(rowOf(dialog.list(), QStringLiteral("N")) >= 67);
    }

    void unitsEntryComposes_data() {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("text");
        QTest::newRow("m/s^2") << QStringList{"m", "/", "s", "2"} << "m/s^2";
        QTest::newRow("implicit *") << QStringList{"kg", "m"} << "kg*m";
        QTest::newRow("explicit *") << QStringList{"kg", "*", "m"} << "kg*m";
        QTest::newRow("operator replaced") << QStringList{"kg", "*", "/", "s"} << "kg/s";
        QTest::newRow("two-digit exponent") << QStringList{"m", "1", "2"} << "m^12";
        QTest::newRow("* first ignored") << QStringList{"*", "m"} << "m";
        QTest::newRow("/ first") << QStringList{"/", "s"} << "/s";
        QTest::newRow("digit first ignored") << QStringList{"3", "m"} << "m";
        QTest::newRow("back: unit") << QStringList{"m", "*", "kg", "back"} << "m*";
        QTest::newRow("back: exponent") << QStringList{"m", "/", "s", "2", "back"} << "m/s";
        QTest::newRow("back: operator") << QStringList{"m", "/", "back"} << "m";
        QTest::newRow("back: all") << QStringList{"m", "back", "back"} << "";
        QTest::newRow("derived") << QStringList{"J", "/", "K"} << "J/K";
    }
    void unitsEntryComposes() {
        QFETCH(QStringList, steps);
        QFETCH(QString, text);
        UnitsEntryDialog dialog;
        for (const QString& step : steps) {
            if (step == QLatin1String("*") || step == QLatin1String("/")) dialog.appendOperator(step[0]);
            else if (step == QLatin1String("back")) dialog.deleteBack();
            else if (step[0].isDigit()) dialog.appendExponent(step.toInt());
            else doubleClickRow(dialog.list(), step);
        }
        QCOMPARE(dialog.unitText(), text);
    }

    // Through "+ Units": OK types the composed unit string as a quoted string.
    void unitsKeyTypesQuotedUnitString() {
        uitest::WindowFixture f;
        f.window().entry()->setText(QStringLiteral("9.8"));
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<UnitsEntryDialog*>(modal);
            QVERIFY(dialog != nullptr);
            doubleClickRow(dialog->list(), QStringLiteral("m"));
            dialog->appendOperator(QLatin1Char('/'));
            doubleClickRow(dialog->list(), QStringLiteral("s"));
            dialog->appendExponent(2);
            dialog->pressOk();
        });
        f.click(2, 3);
        QCOMPARE(f.entryText(), QStringLiteral("9.8 'm/s^2'"));
        QTest::keyClick(f.window().entry(), Qt::Key_Return);
        f.settle();
        QCOMPARE(f.app().stack.head()->units, (UnitVector{1, 0, -2, 0, 0, 0, 0, 0}));
    }

    void unitsKeyCancelTypesNothing() {
        uitest::WindowFixture f;
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<UnitsEntryDialog*>(modal);
            doubleClickRow(dialog->list(), QStringLiteral("m"));
            dialog->reject();
        });
        f.click(2, 3);
        QCOMPARE(f.entryText(), QString());
    }

    // ---- Memory list ----

    void memoryDialogLines() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto 2.5 12 sto 1000 std 1 3 / 999 sto"));
        MemoryDialog dialog(MemoryListLines(f.app()));
        QCOMPARE(dialog.list()->count(), 3);
        QCOMPARE(dialog.list()->item(0)->text(), QStringLiteral("003:\t5"));
        QCOMPARE(dialog.list()->item(1)->text(), QStringLiteral("012:\t2.5"));
        QCOMPARE(dialog.list()->item(2)->text(), (QStringLiteral("999:\t0.") + QString(1000, QLatin1Char('3'))).left(128));
    }

    void memoryDialogDoubleClickReturnsNumber() {
        MemoryDialog dialog({{3, u"003:\t5"}, {12, u"012:\t7"}});
        dialog.open();
        emit dialog.list()->itemDoubleClicked(dialog.list()->item(1));
        QCOMPARE(dialog.result(), 12);
    }

    // OK ends with the number and then again with 0: the later value stands.
    void memoryDialogOkReturnsZero() {
        MemoryDialog dialog({{3, u"003:\t5"}});
        dialog.open();
        dialog.list()->setCurrentRow(0);
        dialog.pressOk();
        QCOMPARE(dialog.result(), 0);
        QVERIFY(!dialog.isVisible());
    }

    void memoryDialogCancelReturnsZero() {
        MemoryDialog dialog({{3, u"003:\t5"}});
        dialog.open();
        dialog.pressCancel();
        QCOMPARE(dialog.result(), 0);
    }

    // "0 rcl" opens the memory list; cancelling it leaves the stack one entry
    // shorter and shows nothing.
    void zeroRclCancelConsumesTheId() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto"));
        QCOMPARE(f.message(), QStringLiteral("Copied to Memory"));
        QCOMPARE(f.severity(), 1);
        f.enter(QStringLiteral("1"));
        QStringList offered;
        uitest::AnswerNextModal([&offered](QWidget* modal) {
            auto* dialog = qobject_cast<MemoryDialog*>(modal);
            QVERIFY(dialog != nullptr);
            offered = dialog->list()->lines();
            dialog->pressCancel();
        });
        f.enter(QStringLiteral("0 rcl"));
        QCOMPARE(offered, QStringList{QStringLiteral("003:\t5")});
        QCOMPARE(f.app().stack.count(), 1);
        QCOMPARE(f.message(), QString());
    }

    void zeroRclDoubleClickRecalls() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto 8 4 sto"));
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<MemoryDialog*>(modal);
            emit dialog->list()->itemDoubleClicked(dialog->list()->item(1));
        });
        f.enter(QStringLiteral("0 rcl"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t8"));
    }

    void zeroRclOkRecallsNothing() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto"));
        uitest::AnswerNextModal([](QWidget* modal) {
            auto* dialog = qobject_cast<MemoryDialog*>(modal);
            dialog->list()->setCurrentRow(0);
            dialog->pressOk();
        });
        f.enter(QStringLiteral("0 rcl"));
        QCOMPARE(f.app().stack.count(), 0);
    }

    // "7 rcl" on a number never stored reports "Memory Undefined" and leaves
    // an empty memory 7 that the memory list does not show.
    void rclOfNeverStoredNumber() {
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto"));
        f.enter(QStringLiteral("7 rcl"));
        QCOMPARE(f.message(), QStringLiteral("Memory Undefined"));
        QCOMPARE(f.app().memories.size(), std::size_t(2));
        QStringList offered;
        uitest::AnswerNextModal([&offered](QWidget* modal) {
            auto* dialog = qobject_cast<MemoryDialog*>(modal);
            offered = dialog->list()->lines();
            dialog->pressCancel();
        });
        f.enter(QStringLiteral("0 rcl"));
        QCOMPARE(offered, QStringList{QStringLiteral("003:\t5")});
    }

    // ---- Clear All Memories ----

    void clrmemQuestion_data() {
        QTest::addColumn<bool>("yes");
        QTest::newRow("No keeps every memory") << false;
        QTest::newRow("Yes clears them") << true;
    }
    void clrmemQuestion() {
        QFETCH(bool, yes);
        uitest::WindowFixture f;
        f.enter(QStringLiteral("5 3 sto 6 4 sto"));
        QString title, text;
        uitest::AnswerNextModal([&, yes](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            QVERIFY(box != nullptr);
            title = box->windowTitle();
            text = box->text();
            box->button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
        });
        f.enter(QStringLiteral("clrmem"));
        QCOMPARE(title, QStringLiteral("Confirm"));
        QCOMPARE(text, QStringLiteral("Clear All Memories"));
        QCOMPARE(f.app().memories.size(), yes ? std::size_t(0) : std::size_t(2));
    }

    // ---- Program loading ----

    void loadPgmLoadsAndReopensAtLastPath() {
        uitest::WindowFixture f;
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("double.txt"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("function twice {\n    pop(n);\n    push(n * 2)\n}\n");
        file.close();

        QString filter;
        uitest::AnswerNextModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            QVERIFY(dialog != nullptr);
            filter = dialog->nameFilters().join(QLatin1Char(';'));
            QCOMPARE(dialog->fileMode(), QFileDialog::ExistingFile);
            dialog->selectFile(path);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        f.click(3, 1);
        QCOMPARE(filter, QStringLiteral("Text Files (*.txt)"));
        f.enter(QStringLiteral("21 twice"));
        QCOMPARE(f.stackLines().last(), QStringLiteral("x :\t42"));

        QString reopenedAt;
        uitest::AnswerNextModal([&](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            reopenedAt = dialog->directory().absolutePath();
            dialog->reject();
        });
        f.click(3, 1);
        QCOMPARE(reopenedAt, QDir(folder.path()).absolutePath());
    }

    // ---- Help ----

    void helpWithoutViewerShowsOwnWindow() {
        uitest::WindowFixture f;
        QString offered;
        f.window().setExternalOpener([&offered](const QString& path) {
            offered = path;
            return false;
        });
        QTest::mouseClick(f.window().helpButton(), Qt::LeftButton);
        QVERIFY(offered.endsWith(QStringLiteral(".html")));
        auto* help = qobject_cast<QTextBrowser*>(f.window().helpWindow());
        QVERIFY(help != nullptr);
        QVERIFY(help->isVisible());
        QVERIFY(help->toPlainText().contains(QStringLiteral("Quorvel manual")));
    }

    void helpWithViewerOpensRenderedManual() {
        uitest::WindowFixture f;
        QString offered;
        f.window().setExternalOpener([&offered](const QString& path) {
            offered = path;
            return true;
        });
        QTest::mouseClick(f.window().helpButton(), Qt::LeftButton);
        QVERIFY(f.window().helpWindow() == nullptr);
        QFile html(offered);
        QVERIFY(html.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(html.readAll());
        QVERIFY(text.contains(QStringLiteral("<html")));
        QVERIFY(text.contains(QStringLiteral("Quorvel manual")));
    }
};

QTEST_MAIN(DialogsTest)
#include "dialogs_test.moc"
