// The user manual behind the "Help" button: docs/manual.md, installed beside
// the program, rendered as HTML for the desktop's viewer or shown in a help
// window of the program's own.
#pragma once

#include <QString>
#include <QTextBrowser>
#include <memory>

namespace quorvel::ui {

// The manual's path: manual.md beside the program, else the source tree's
// docs/manual.md; empty when neither exists.
QString FindManual();

// Renders the manual at `manualPath` to an HTML file in the temporary
// folder; its path, or empty when the manual cannot be read or written.
QString RenderManualHtml(const QString& manualPath);

// A help window showing the manual (or a note that it was not found).
std::unique_ptr<QTextBrowser> MakeHelpWindow(const QString& manualPath);

// Opens `path` in the desktop's viewer; false when there is none (also on
// the offscreen and minimal platforms).
bool OpenWithDesktop(const QString& path);

}  // namespace quorvel::ui
