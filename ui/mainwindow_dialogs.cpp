// The keypad's dialog actions: constants, display units, units entry and
// program loading, and the help button.
#include <QFileDialog>
#include <QFileInfo>

#include "lang/appstate.h"
#include "lang/program.h"
#include "ui/constantsdialog.h"
#include "ui/displayunitsdialog.h"
#include "ui/entryliteral.h"
#include "ui/help.h"
#include "ui/mainwindow.h"
#include "ui/qtext.h"
#include "ui/unitsentrydialog.h"

namespace quorvel::ui {

void MainWindow::chooseConstant() {
    ConstantsDialog dialog(app_, this);
    if (dialog.exec() != ConstantsDialog::Pushed) return;
    // The constant goes back off the stack and into the line as a literal.
    std::optional<Item> value = app_.stack.pop();
    refresh();
    if (!value) return;
    typeText(u" " + ValueLiteral(app_, *value));
}

void MainWindow::chooseDisplayUnits() {
    DisplayUnitsDialog dialog(app_, this);
    if (dialog.exec() == DisplayUnitsDialog::Stored) refresh();
}

void MainWindow::enterUnits() {
    UnitsEntryDialog dialog(this);
    if (dialog.exec() != UnitsEntryDialog::Composed) return;
    const QString text = dialog.unitText();
    if (text.isEmpty()) return;
    const int caret = entry_->cursorPosition();
    const bool blank = caret == 0 || entry_->text().at(caret - 1) == QLatin1Char(' ');
    typeText((blank ? std::u16string() : std::u16string(u" ")) + UnitLiteral(ToU16(text)));
}

void MainWindow::loadProgram() {
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(QStringLiteral("Text Files (*.txt)"));
    const QFileInfo last(programPath_);
    if (last.isAbsolute()) dialog.setDirectory(last.absolutePath());
    dialog.selectFile(last.fileName());
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    programPath_ = dialog.selectedFiles().front();
    LoadProgramFile(app_, programPath_.toStdString());
}

void MainWindow::openHelp() {
    const QString manual = FindManual();
    const QString html = manual.isEmpty() ? QString() : RenderManualHtml(manual);
    const std::function<bool(const QString&)> opener =
        openExternal_ ? openExternal_ : std::function<bool(const QString&)>(OpenWithDesktop);
    if (!html.isEmpty() && opener(html)) return;
    helpWindow_ = MakeHelpWindow(manual);
    helpWindow_->show();
    helpWindow_->raise();
    entry_->setFocus();
}

}  // namespace quorvel::ui
