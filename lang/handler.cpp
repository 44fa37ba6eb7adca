// Resolving Variable reference operands to the variables' own values.
#include "lang/handler.h"

#include "lang/variables.h"

namespace quorvel {

Item& Resolve(AppState& app, Item& item) {
    if (item.type != ItemType::VariableRef) return item;
    const std::u16string& name = item.asText();
    if (Variable* found = app.variables.FindVariable(name, false)) return *found->value;
    ReportError(app, u"Undefined Variable Referenced", Error);
    if (Variable* made = app.variables.FindVariable(name, true)) return *made->value;
    return item;   // no frame at all to create it in: the reference stays as it is
}

}  // namespace quorvel
