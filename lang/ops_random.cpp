// The random values `uniform`, `gauss` and `brnd`. They take no operand and
// push one new value without units, drawn from the calculator's one
// generator (AppState::random).
#include "lang/handler.h"
#include "lang/handlers.h"
#include "numeric/random.h"

namespace quorvel {

// `uniform`: a Real in (0, 1) with a mantissa of the full working length, so
// every digit a working real holds is random except the last pair, which is
// always 50 (the middle of the value's cell).
void opUniform(AppState& app, ItemList& list) {
    list.push(Item::real(RandomUniform(app.random, app.workingLength)));
}

// `gauss`: a normally distributed Real (mean 0, standard deviation 1) at the
// working length, always within -12 .. 12.
void opGauss(AppState& app, ItemList& list) {
    list.push(Item::real(RandomGauss(app.random, app.workingLength)));
}

// `brnd`: an Integer of WSize random bits (0 .. 2^WSize - 1); with no word
// size (0, or a negative one) "Invalid Word Size" and nothing is pushed.
void opBrnd(AppState& app, ItemList& list) {
    if (app.wsize <= 0) {
        ReportError(app, InvalidWordSize, Error);
        return;
    }
    list.push(Item::integer(integerFromWord(RandomWord(app.random, app.wsize))));
}

}  // namespace quorvel
