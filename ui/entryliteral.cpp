#include "ui/entryliteral.h"

#include "lang/appstate.h"
#include "lang/displaytext.h"
#include "lang/item.h"
#include "units/unitconvert.h"

namespace quorvel::ui {
namespace {

constexpr int32_t PlainText = 0x80;

}  // namespace

std::u16string ValueLiteral(AppState& app, const Item& item) {
    Item shown = item.duplicate();
    const std::optional<std::u16string> unitText = ToDisplayUnits(app, shown, true, PlainText);
    std::u16string text = DisplayText(app, shown, app.digits, PlainText).value_or(std::u16string());
    if (unitText) text += u" \"" + *unitText + u"\"";
    return text;
}

std::u16string UnitLiteral(const std::u16string& unitText) { return u"'" + unitText + u"'"; }

}  // namespace quorvel::ui
