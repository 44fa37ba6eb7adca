#include "uitesting.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTest>
#include <QTimer>
#include <cstdlib>

#include "lang/report.h"
#include "ui/keypad_table.h"
#include "ui/keybutton.h"
#include "ui/messagestrip.h"
#include "ui/tabbedlist.h"

namespace quorvel::uitest {

WindowFixture::WindowFixture() : app_(std::make_unique<AppState>()) {
    app_->dataFolder = dir_.path().toStdString();
    app_->host = &host_;
    window_ = std::make_unique<ui::MainWindow>(*app_, host_);
    host_.attach(window_.get());
    window_->show();
    app_->keptSeverity = 7;
    ClearMessage(*app_);
    QCoreApplication::processEvents();
}

WindowFixture::~WindowFixture() {
    window_->abortComputation();
    window_->waitUntilIdle(20000);
    app_->consoleOpen = false;
    window_->closeConsole();
    host_.attach(nullptr);
    window_.reset();
    app_->host = nullptr;
}

void WindowFixture::settle() { QVERIFY(window_->waitUntilIdle(20000)); }

void WindowFixture::enter(const QString& line) {
    window_->entry()->setText(line);
    QTest::keyClick(window_->entry(), Qt::Key_Return);
    settle();
}

void WindowFixture::click(int row, int column) {
    ui::KeyButton* key = window_->key(ui::ButtonIndex(row, column));
    QVERIFY2(key != nullptr, "no key at this position");
    QTest::mouseClick(key, Qt::LeftButton);
    settle();
}

QStringList WindowFixture::stackLines() { return window_->stackList()->lines(); }

QString WindowFixture::entryText() { return window_->entry()->text(); }

QString WindowFixture::message() { return window_->messageStrip()->text(); }

int WindowFixture::severity() { return window_->messageStrip()->severity(); }

namespace {

void pollModal(const std::function<void(QWidget*)>& answer, int triesLeft) {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        answer(modal);
        return;
    }
    if (triesLeft > 0) QTimer::singleShot(10, [answer, triesLeft] { pollModal(answer, triesLeft - 1); });
}

}  // namespace

void AnswerNextModal(std::function<void(QWidget*)> answer) {
    QTimer::singleShot(0, [answer] { pollModal(answer, 500); });
}

void UseThrowAwayHome() {
    static QTemporaryDir home;
    const QByteArray path = home.path().toUtf8();
    setenv("XDG_DATA_HOME", path.constData(), 1);
    setenv("XDG_CONFIG_HOME", path.constData(), 1);
    setenv("XDG_CACHE_HOME", path.constData(), 1);
    QStandardPaths::setTestModeEnabled(true);
}

}  // namespace quorvel::uitest
