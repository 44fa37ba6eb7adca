// Keywords whose operation has not been built yet. Each reports
// "Not Implemented" and leaves the list alone. A handler moves out of this
// file into its family's file when it is written.
#include "lang/handlers.h"

#include "lang/appstate.h"
#include "lang/report.h"

namespace quorvel {
namespace {
void notImplemented(AppState& app) { ReportError(app, u"Not Implemented", Error); }
}  // namespace

void opAcos(AppState& app, ItemList&) { notImplemented(app); }
void opAcosh(AppState& app, ItemList&) { notImplemented(app); }
void opAi(AppState& app, ItemList&) { notImplemented(app); }
void opAsin(AppState& app, ItemList&) { notImplemented(app); }
void opAsinh(AppState& app, ItemList&) { notImplemented(app); }
void opAtan(AppState& app, ItemList&) { notImplemented(app); }
void opAtan2(AppState& app, ItemList&) { notImplemented(app); }
void opAtanh(AppState& app, ItemList&) { notImplemented(app); }
void opBern(AppState& app, ItemList&) { notImplemented(app); }
void opBi(AppState& app, ItemList&) { notImplemented(app); }
void opCfresnel(AppState& app, ItemList&) { notImplemented(app); }
void opComb(AppState& app, ItemList&) { notImplemented(app); }
void opConj(AppState& app, ItemList&) { notImplemented(app); }
void opCos(AppState& app, ItemList&) { notImplemented(app); }
void opCosh(AppState& app, ItemList&) { notImplemented(app); }
void opDeg(AppState& app, ItemList&) { notImplemented(app); }
void opE(AppState& app, ItemList&) { notImplemented(app); }
void opErf(AppState& app, ItemList&) { notImplemented(app); }
void opEuler(AppState& app, ItemList&) { notImplemented(app); }
void opEulergamma(AppState& app, ItemList&) { notImplemented(app); }
void opExp(AppState& app, ItemList&) { notImplemented(app); }
void opExp10(AppState& app, ItemList&) { notImplemented(app); }
void opExp2(AppState& app, ItemList&) { notImplemented(app); }
void opFact(AppState& app, ItemList&) { notImplemented(app); }
void opFresnel(AppState& app, ItemList&) { notImplemented(app); }
void opGamma(AppState& app, ItemList&) { notImplemented(app); }
void opI(AppState& app, ItemList&) { notImplemented(app); }
void opIm(AppState& app, ItemList&) { notImplemented(app); }
void opInf(AppState& app, ItemList&) { notImplemented(app); }
void opLn(AppState& app, ItemList&) { notImplemented(app); }
void opLog10(AppState& app, ItemList&) { notImplemented(app); }
void opLog2(AppState& app, ItemList&) { notImplemented(app); }
void opPerm(AppState& app, ItemList&) { notImplemented(app); }
void opPi(AppState& app, ItemList&) { notImplemented(app); }
void opPow(AppState& app, ItemList&) { notImplemented(app); }
void opRad(AppState& app, ItemList&) { notImplemented(app); }
void opRe(AppState& app, ItemList&) { notImplemented(app); }
void opSfresnel(AppState& app, ItemList&) { notImplemented(app); }
void opSin(AppState& app, ItemList&) { notImplemented(app); }
void opSinc(AppState& app, ItemList&) { notImplemented(app); }
void opSinh(AppState& app, ItemList&) { notImplemented(app); }
void opSqrt(AppState& app, ItemList&) { notImplemented(app); }
void opTan(AppState& app, ItemList&) { notImplemented(app); }
void opTanh(AppState& app, ItemList&) { notImplemented(app); }

}  // namespace quorvel
