#include "ui/help.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSaveFile>
#include <QTextDocument>
#include <QUrl>


#ifndef QUORVEL_SOURCE_DIR
#define QUORVEL_SOURCE_DIR ""
#endif

namespace quorvel::ui {
namespace {

QString readText(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    return QString::fromUtf8(file.readAll());
}

}  // namespace

QString FindManual() {
    const QString besideProgram = QCoreApplication::applicationDirPath() + QStringLiteral("/manual.md");
    if (QFileInfo::exists(besideProgram)) return besideProgram;
    const QString inSources = QStringLiteral(QUORVEL_SOURCE_DIR "/docs/manual.md");
    if (QFileInfo::exists(inSources)) return inSources;
    return {};
}

QString RenderManualHtml(const QString& manualPath) {
    const QString markdown = readText(manualPath);
    if (markdown.isEmpty()) return {};
    QTextDocument document;
    document.setMarkdown(markdown);
    document.setMetaInformation(QTextDocument::DocumentTitle, QStringLiteral("Quorvel manual"));
    const QString target = QDir::temp().filePath(QStringLiteral("quorvel-manual.html"));
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly)) return {};
    file.write(document.toHtml().toUtf8());
    return file.commit() ? target : QString();
}

std::unique_ptr<QTextBrowser> MakeHelpWindow(const QString& manualPath) {
    auto browser = std::make_unique<QTextBrowser>();
    browser->setWindowTitle(QStringLiteral("Quorvel Help"));
    browser->setOpenExternalLinks(true);
    const QString markdown = manualPath.isEmpty() ? QString() : readText(manualPath);
    if (markdown.isEmpty())
        browser->setPlainText(QStringLiteral("The user manual (manual.md) was not found beside the program."));
    else
        browser->setMarkdown(markdown);
    browser->resize(820, 640);
    return browser;
}

bool OpenWithDesktop(const QString& path) {
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal")) return false;
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace quorvel::ui
