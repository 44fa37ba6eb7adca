// The program as started by a user: the window or the console depending on
// the display, --screenshot, and the state loaded before the window shows
// and saved after it closes (also on SIGTERM).
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include "ui/keypad_table.h"
#include "uitesting.h"

using namespace quorvel::ui;

namespace {

const QString Binary = QStringLiteral(QUORVEL_BINARY);

// The environment of a child run: no display unless `display` is set.
QProcessEnvironment childEnvironment(bool display) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    if (display) {
        // A display is announced, and Qt draws offscreen all the same.
        environment.insert(QStringLiteral("DISPLAY"), QStringLiteral(":quorvel-test"));
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    }
    return environment;
}

struct Run {
    int status = -1;
    QString out;
    QString err;
};

Run run(const QStringList& arguments, const QByteArray& input = {}, bool display = false) {
    QProcess process;
    process.setProcessEnvironment(childEnvironment(display));
    process.start(Binary, arguments);
    process.waitForStarted();
    process.write(input);
    process.closeWriteChannel();
    Run result;
    if (!process.waitForFinished(60000)) {
        process.kill();
        process.waitForFinished();
        return result;
    }
    result.status = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

QPoint keyFacePoint(int row, int column) { return {4 + 84 * (column - 1) + 6, 236 + 40 * (row - 1) + 5}; }

}  // namespace

class StartupTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { quorvel::uitest::UseThrowAwayHome(); }

    // Without a display the program is the console on the terminal.
    void noDisplayRunsTheConsole() {
        const Run r = run({QStringLiteral("--no-state")}, "2+3\n");
        QCOMPARE(r.status, 0);
        QVERIFY2(r.out.startsWith(QStringLiteral("Quorvel Console\n")), qPrintable(r.out));
        QVERIFY(r.out.contains(QStringLiteral("5\n")));
    }

    void usageNamesScreenshot() {
        const Run r = run({QStringLiteral("--help")});
        QCOMPARE(r.status, 0);
        QVERIFY(r.out.contains(QStringLiteral("--screenshot FILE")));
        QCOMPARE(run({QStringLiteral("--screenshot")}).status, 2);
        QCOMPARE(run({QStringLiteral("--console"), QStringLiteral("--screenshot"), QStringLiteral("x.png")}).status, 2);
    }

    // --screenshot renders the whole window to a PNG, also without a display.
    void screenshotWritesTheWindow() {
        QTemporaryDir folder;
        const QString png = folder.filePath(QStringLiteral("shot.png"));
        const Run r = run({QStringLiteral("--no-state"), QStringLiteral("--screenshot"), png, QStringLiteral("-e"),
                           QStringLiteral("5 'km'"), QStringLiteral("-e"), QStringLiteral("+")});
        QCOMPARE(r.status, 0);
        QImage picture(png);
        QVERIFY(!picture.isNull());
        QCOMPARE(picture.size(), QSize(1012, 655));
        // Key faces in the colours of their rows.
        for (const auto& [row, column] : std::initializer_list<std::pair<int, int>>{{10, 12}, {9, 12}, {7, 7}, {10, 1}, {2, 1}}) {
            const ButtonDef& def = ButtonTable[ButtonIndex(row, column)];
            QCOMPARE(picture.pixelColor(keyFacePoint(row, column)), QColor(def.red, def.green, def.blue));
        }
        // The window's grey, and the message strip's grey inside its frame.
        QCOMPARE(picture.pixelColor(2, 650), QColor(128, 128, 128));
        QCOMPARE(picture.pixelColor(4, 170), QColor(Qt::black));
        // "+" on one item: the error shows in red on the strip.
        bool red = false;
        for (int x = 6; x < 200 && !red; ++x)
            for (int y = 166; y < 186 && !red; ++y) red = picture.pixelColor(x, y) == QColor(255, 0, 0);
        QVERIFY(red);
    }

    void screenshotCannotWrite() {
        const Run r = run({QStringLiteral("--no-state"), QStringLiteral("--screenshot"), QStringLiteral("/nonexistent/dir/x.png")});
        QCOMPARE(r.status, 1);
    }

    // The state is loaded before the window shows and saved after it closes.
    void screenshotRunLoadsAndSavesState() {
        QTemporaryDir data;
        QCOMPARE(run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("-e"), QStringLiteral("1 2 3")}).status, 0);
        QTemporaryDir folder;
        const Run shot = run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("--screenshot"),
                              folder.filePath(QStringLiteral("s.png")), QStringLiteral("-e"), QStringLiteral("+")});
        QCOMPARE(shot.status, 0);
        const Run after = run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("-e"), QString()});
        QCOMPARE(after.out, QStringLiteral("y :\t1\nx :\t5\n"));
    }

    // SIGTERM closes the window and saves the state as a normal exit does.
    void sigtermSavesState() {
        QTemporaryDir data;
        QCOMPARE(run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("-e"), QStringLiteral("30 std 7 8")}).status, 0);
        const QString settings = data.filePath(QStringLiteral("Globals.txt"));
        const QString stack = data.filePath(QStringLiteral("Stack.bin"));
        QVERIFY(QFile::remove(stack));

        QProcess window;
        window.setProcessEnvironment(childEnvironment(true));
        window.start(Binary, {QStringLiteral("--data-dir"), data.path()});
        QVERIFY(window.waitForStarted());
        QTest::qWait(1500);
        QCOMPARE(window.state(), QProcess::Running);   // the window, not the console
        ::kill(static_cast<pid_t>(window.processId()), SIGTERM);
        QVERIFY(window.waitForFinished(10000));
        QCOMPARE(window.exitStatus(), QProcess::NormalExit);
        QCOMPARE(window.exitCode(), 0);
        QVERIFY(QFileInfo::exists(stack));
        QFile file(settings);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("Digits"));
        const Run after = run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("-e"), QStringLiteral("")});
        // The stack file was missing at start, so the saved stack is empty;
        // the settings loaded before the window showed were saved again.
        QCOMPARE(after.out, QString());
        const Run digits = run({QStringLiteral("--data-dir"), data.path(), QStringLiteral("-e"), QStringLiteral("1 3 /")});
        QCOMPARE(digits.out.size(), QStringLiteral("x :\t0.").size() + 30 + 1);
    }
};

QTEST_MAIN(StartupTest)
#include "startup_test.moc"
