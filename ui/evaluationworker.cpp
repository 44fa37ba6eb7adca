#include "ui/evaluationworker.h"

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/evaluator.h"
#include "ui/windowhost.h"

namespace quorvel::ui {
namespace {

constexpr int32_t PlainText = 0x80;

}  // namespace

void EvaluationWorker::runLine(const std::u16string& text, int entryMode) {
    RunCommandLine(app_, text, entryMode);
    emit finished();
}

void EvaluationWorker::runConsoleLine(const std::u16string& text) {
    host_.setConsoleCommand(true);
    app_.abortFlag = false;
    if (std::optional<Item> result = EvaluateText(app_, text)) {
        if (auto shown = DisplayText(app_, *result, app_.digits, PlainText)) host_.consoleWrite(*shown);
    }
    host_.setConsoleCommand(false);
    emit finished();
}

}  // namespace quorvel::ui
