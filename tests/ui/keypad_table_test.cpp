// The keypad table row by row against the reference rows in
// tests/data/button_table.txt (extracted by tests/tools/extract_button_table.py),
// and the keys the window builds from it.
#include <QFile>
#include <QTest>
#include <QTextStream>

#include "ui/keybutton.h"
#include "ui/keypad_table.h"
#include "ui/qtext.h"
#include "uitesting.h"

using namespace quorvel;
using namespace quorvel::ui;

namespace {

struct ReferenceRow {
    QString position;
    bool empty = true;
    QString label, command, description;
    int red = 0, green = 0, blue = 0;
    int flags = 0;
};

QList<ReferenceRow> referenceRows() {
    QList<ReferenceRow> rows;
    QFile file(QStringLiteral(QUORVEL_TEST_DATA "/button_table.txt"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return rows;
    QTextStream in(&file);
    in.setEncoding(QStringConverter::Utf8);
    while (!in.atEnd()) {
        const QString line = in.readLine();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
        const QStringList f = line.split(QLatin1Char('\t'));
        ReferenceRow row;
        row.position = f[0];
        if (f.size() == 8) {
            row.empty = false;
            row.label = f[1];
            row.command = f[2] == QLatin1String("(none)") ? QString() : f[2];
            row.description = f[3];
            row.red = f[4].toInt();
            row.green = f[5].toInt();
            row.blue = f[6].toInt();
            row.flags = f[7].toInt(nullptr, 16);
        }
        rows.append(row);
    }
    return rows;
}

QString text(const char16_t* t) { return t == nullptr ? QString() : ToQString(t); }

}  // namespace

class KeypadTableTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { uitest::UseThrowAwayHome(); }

    void referenceHas120Rows() { QCOMPARE(referenceRows().size(), 120); }

    void rowMatchesReference_data() {
        QTest::addColumn<int>("index");
        QTest::addColumn<bool>("empty");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("description");
        QTest::addColumn<int>("red");
        QTest::addColumn<int>("green");
        QTest::addColumn<int>("blue");
        QTest::addColumn<int>("flags");
        const QList<ReferenceRow> rows = referenceRows();
        for (int i = 0; i < rows.size(); ++i) {
            const ReferenceRow& r = rows[i];
            QTest::newRow(qPrintable(r.position + QLatin1Char(' ') + (r.empty ? QStringLiteral("(empty)") : r.label)))
                << i << r.empty << r.label << r.command << r.description << r.red << r.green << r.blue << r.flags;
        }
    }

    void rowMatchesReference() {
        QFETCH(int, index);
        QFETCH(bool, empty);
        const ButtonDef& row = ButtonTable[static_cast<std::size_t>(index)];
        if (empty) {
            QVERIFY(row.label == nullptr);
            QVERIFY(row.command == nullptr);
            QVERIFY(row.description == nullptr);
            QCOMPARE(row.flags, 0);
            return;
        }
        QFETCH(QString, label);
        QFETCH(QString, command);
        QFETCH(QString, description);
        QFETCH(int, red);
        QFETCH(int, green);
        QFETCH(int, blue);
        QFETCH(int, flags);
        QCOMPARE(text(row.label), label);
        QCOMPARE(text(row.command), command);
        QCOMPARE(row.command == nullptr, command.isEmpty());
        QCOMPARE(text(row.description), description);
        QCOMPARE(int(row.red), red);
        QCOMPARE(int(row.green), green);
        QCOMPARE(int(row.blue), blue);
        QCOMPARE(int(row.flags), flags);
    }

    void rowIndexIsRowMajor() {
        QCOMPARE(ButtonIndex(1, 1), std::size_t(0));
        QCOMPARE(ButtonIndex(1, 12), std::size_t(11));
        QCOMPARE(ButtonIndex(2, 1), std::size_t(12));
        QCOMPARE(ButtonIndex(10, 12), std::size_t(119));
        QCOMPARE(text(ButtonTable[ButtonIndex(10, 12)].label), QStringLiteral("Enter"));
    }

    void keyAtItsPosition_data() {
        QTest::addColumn<int>("index");
        for (std::size_t i = 0; i < ButtonTable.size(); ++i) {
            if (ButtonTable[i].label == nullptr) continue;
            const int r = int(i) / KeypadColumns + 1, c = int(i) % KeypadColumns + 1;
            QTest::newRow(qPrintable(QStringLiteral("%1.%2 ").arg(r).arg(c) + text(ButtonTable[i].label))) << int(i);
        }
    }

    void keyAtItsPosition() {
        QFETCH(int, index);
        uitest::WindowFixture fixture;
        const ButtonDef& row = ButtonTable[static_cast<std::size_t>(index)];
        KeyButton* key = fixture.window().key(static_cast<std::size_t>(index));
        QVERIFY(key != nullptr);
        const int r = index / KeypadColumns + 1, c = index % KeypadColumns + 1;
        QCOMPARE(key->geometry(), QRect(4 + 84 * (c - 1), 236 + 40 * (r - 1), 80, 28));
        QCOMPARE(key->text(), text(row.label));
        QCOMPARE(key->description(), text(row.description));
        QCOMPARE(key->faceColor(), QColor(row.red, row.green, row.blue));
        // The label fits inside the bevel: nothing is clipped.
        QVERIFY(QFontMetrics(key->font()).horizontalAdvance(key->text()) <= 80 - 6);
        QVERIFY(key->font().bold());
    }

    void emptyPositionsHaveNoKey() {
        uitest::WindowFixture fixture;
        int keys = 0;
        for (std::size_t i = 0; i < ButtonTable.size(); ++i) {
            const bool hasKey = fixture.window().key(i) != nullptr;
            QCOMPARE(hasKey, ButtonTable[i].label != nullptr);
            keys += hasKey ? 1 : 0;
        }
        QCOMPARE(keys, 109);
    }
};

QTEST_MAIN(KeypadTableTest)
#include "keypad_table_test.moc"
