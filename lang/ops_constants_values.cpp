// The value words `pi`, `e`, `eulergamma`, `inf` and `i`: each takes no
// operand and pushes one new value without units at the working length.
// The three constants come from the calculator's constant cache.
#include "lang/handlers.h"
#include "lang/ops_math.h"

namespace quorvel {

namespace {

void pushConstant(AppState& app, ItemList& list, char key) {
    std::optional<BigNum> value = app.math.GetConstant(app.workingLength, key);
    if (!value || app.abortFlag) {
        // Only Euler's constant polls while it is computed; a stopped
        // computation pushes nothing.
        ReportError(app, Aborted, Error);
        return;
    }
    list.push(Item::real(std::move(*value)));
}

}  // namespace

void opPi(AppState& app, ItemList& list) { pushConstant(app, list, 'p'); }
void opE(AppState& app, ItemList& list) { pushConstant(app, list, 'e'); }
void opEulergamma(AppState& app, ItemList& list) { pushConstant(app, list, 'g'); }

// `inf`: positive infinity, a Real.
void opInf(AppState& app, ItemList& list) { list.push(Item::real(makeInfinity(app.workingLength, 1))); }

// `i`: the complex number 0 + 1i.
void opI(AppState& app, ItemList& list) {
    list.push(Item::complex(ComplexNum{makeZero(app.workingLength), fromInt(app.workingLength, 1)}));
}

}  // namespace quorvel
