// The circular functions and their inverses, `atan2`, `deg` and `rad`: the
// trig mode, the unit rule of angles, exact values at whole degrees, Complex
// results, and the messages with the stack unchanged.
#include "tests/math_testing.h"

namespace quorvel::test {
namespace {

constexpr std::string_view Sin1 =
    "8.414709848078965066525023216302989996225630607983710656727517099919104043912396689486397435430526959e-1";
constexpr std::string_view Cos1 =
    "5.403023058681397174009366074429766037323104206179222276700972553811003947744717645179518560871830893e-1";
constexpr std::string_view Tan1 =
    "1.557407724654902230506974807458360173087250772381520038383946605698861397151727289555099965202242984";
constexpr std::string_view SinOneDegree =
    "1.745240643728351281941897851631619247225272030713964268361242764059738420392807004200192679102134691e-2";
constexpr std::string_view Sin37Degrees =
    "6.018150231520482799179770004414898414256377098303961564884470265455427896151196397424646189663555893e-1";
constexpr std::string_view QuarterPi =
    "7.85398163397448309615660845819875721049292349843776455243736148076954101571552249657008706335529267e-1";
constexpr std::string_view SixthPi =
    "5.235987755982988730771072305465838140328615665625176368291574320513027343810348331046724708903528447e-1";
constexpr std::string_view HalfPi =
    "1.570796326794896619231321691639751442098584699687552910487472296153908203143104499314017412671058534";
constexpr std::string_view Pi =
    "3.141592653589793238462643383279502884197169399375105820974944592307816406286208998628034825342117068";
constexpr std::string_view Acosh2 =
    "1.316957896924816708625046347307968444026981971467516479768472256920460185416443976074219013450101784";
constexpr std::string_view DegreesPerRadian =
    "5.729577951308232087679815481410517033240547246656432154916024386120284714832155263244096899585111094e+1";
constexpr std::string_view TwoOverPi =
    "6.366197723675813430755350534900574481378385829618257949906693762355871905369061403604552110650123438e-1";

class Trig : public MathTest {};

// --- Radians ------------------------------------------------------------------------------

TEST_F(Trig, SinCosTanOfOneRadian) {
    rpn(u"1 sin");
    EXPECT_TRUE(topRealNear(Sin1));
    rpn(u"1 cos");
    EXPECT_TRUE(topRealNear(Cos1));
    rpn(u"1 tan");
    EXPECT_TRUE(topRealNear(Tan1));
}

TEST_F(Trig, AnAngleInRadiansIsUsedAsItIsInDegreesMode) {
    degrees();
    pushInt(1, radians());
    opSin(app, app.stack);
    EXPECT_TRUE(topRealNear(Sin1));
}

TEST_F(Trig, TrigModeZeroTakesRadians) {
    app.trigMode = 0;
    rpn(u"90 sin");
    EXPECT_TRUE(topRealNear("8.939966636005578905182694984042098800464305236663045123522694151394992137909200762225543594441597147e-1"));
}

TEST_F(Trig, SincOfZeroIsOne) {
    rpn(u"0 sinc");
    EXPECT_TRUE(topIsReal(u"1"));
    rpn(u"1 sinc");
    EXPECT_TRUE(topRealNear(Sin1));
}

// --- Degrees -------------------------------------------------------------------------------

TEST_F(Trig, NinetyDegreesSineIsOne) {
    degrees();
    rpn(u"90 sin");
    EXPECT_TRUE(topIsReal(u"1"));
    EXPECT_EQ(shown(), "1.");
}

TEST_F(Trig, WholeDegreesWithDecimalValuesAreExact) {
    degrees();
    rpn(u"180 sin");
    EXPECT_TRUE(topIsReal(u"0"));
    rpn(u"30 sin");
    EXPECT_TRUE(topIsReal(u"0.5"));
    rpn(u"-30 sin");
    EXPECT_TRUE(topIsReal(u"-0.5"));
    rpn(u"90 cos");
    EXPECT_TRUE(topIsReal(u"0"));
    rpn(u"120 cos");
    EXPECT_TRUE(topIsReal(u"-0.5"));
    rpn(u"45 tan");
    EXPECT_TRUE(topIsReal(u"1"));
    rpn(u"-45 tan");
    EXPECT_TRUE(topIsReal(u"-1"));
    rpn(u"720 cos");
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(Trig, TanOfNinetyDegreesIsInfinite) {
    degrees();
    rpn(u"90 tan");
    EXPECT_TRUE(topIsInfinity(1));
    rpn(u"270 tan");
    EXPECT_TRUE(topIsInfinity(-1));
    rpn(u"-90 tan");
    EXPECT_TRUE(topIsInfinity(-1));
}

TEST_F(Trig, OtherDegreesAreConvertedToRadians) {
    degrees();
    rpn(u"1 sin");
    EXPECT_TRUE(topRealNear(SinOneDegree));
    rpn(u"397 sin");
    EXPECT_TRUE(topRealNear(Sin37Degrees));
    rpn(u"-323 sin");
    EXPECT_TRUE(topRealNear(Sin37Degrees));
}

TEST_F(Trig, HugeDegreesAreReducedExactly) {
    degrees();
    rpn(u"1E20 sin");
    EXPECT_TRUE(topRealNear("-9.848077530122080593667430245895230136706432517198424187900257523558275999430362392746784100560006193e-1"));
    rpn(u"1E300 cos");   // 10^300 = 280 (mod 360)
    EXPECT_TRUE(topRealNear("1.73648177666930348851716626769314796000375677184069387236241378132065822139014735421516613157399574e-1"));
}

TEST_F(Trig, TinyDegrees) {
    degrees();
    rpn(u"1E-30 sin");
    EXPECT_TRUE(topRealNear("1.745329251994329576923690768488612713442871888541725456097191440082399499033319642083372356479784416e-32"));
}

TEST_F(Trig, SincInDegrees) {
    degrees();
    rpn(u"90 sinc");
    EXPECT_TRUE(topRealNear(TwoOverPi));
    rpn(u"180 sinc");
    EXPECT_TRUE(topIsReal(u"0"));
    rpn(u"0 sinc");
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(Trig, AComplexArgumentIsNeverConverted) {
    degrees();
    rpn(u"2 3 i * + sin");
    EXPECT_TRUE(topComplexNear("9.154499146911429573467299544609832559158860568765182977899828142590020335321896403936690014669532607",
                               "-4.168906959966564350754813058853754843573565604758055889965478710592666260138453299795649308385497563"));
}

TEST_F(Trig, DegreesFromTheAlgebraicLine) {
    degrees();
    alg(u"sin(30) + cos(60)");
    EXPECT_TRUE(topIsReal(u"1"));
}

// --- Units -----------------------------------------------------------------------------------

TEST_F(Trig, SinOfALengthIsInvalidUnitsAndLeavesTheValue) {
    pushInt(1, metres());
    EXPECT_TRUE(refuses(opSin, u"Invalid Units"));
}

TEST_F(Trig, SinOfAngleSquaredIsInvalidUnits) {
    pushInt(1, UnitVector{0, 0, 0, 0, 0, 0, 0, 2});
    EXPECT_TRUE(refuses(opSin, u"Invalid Units"));
}

TEST_F(Trig, EveryCircularFunctionChecksTypeAndUnits) {
    for (Handler handler : {opSin, opCos, opTan, opSinc}) {
        pushInt(1, seconds());
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Units"));
        app.stack.freeAll();
        push(Item::string(u"1"));
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Data Type"));
        app.stack.freeAll();
        EXPECT_TRUE(refusesAgain(handler, u"Missing Operand"));
    }
}

TEST_F(Trig, TheResultHasNoUnits) {
    pushInt(1, radians());
    opCos(app, app.stack);
    EXPECT_TRUE(topRealNear(Cos1));
}

// --- Inverse functions --------------------------------------------------------------------------

TEST_F(Trig, InverseFunctionsGiveRadiansWithAngleOne) {
    rpn(u"0.5 asin");
    EXPECT_TRUE(topRealNear(SixthPi, radians()));
    rpn(u"0 acos");
    EXPECT_TRUE(topRealNear(HalfPi, radians()));
    rpn(u"1 atan");
    EXPECT_TRUE(topRealNear(QuarterPi, radians()));
    rpn(u"inf atan");
    EXPECT_TRUE(topRealNear(HalfPi, radians()));
}

TEST_F(Trig, AnInverseResultFeedsSinInDegreesMode) {
    degrees();
    rpn(u"0.5 asin sin");
    EXPECT_TRUE(topRealNear("0.5"));
}

TEST_F(Trig, AsinAndAcosBeyondOneAreComplexWithoutUnits) {
    rpn(u"2 asin");
    EXPECT_TRUE(topComplexNear(HalfPi, "-1.316957896924816708625046347307968444026981971467516479768472256920460185416443976074219013450101784"));
    rpn(u"-2 asin");
    EXPECT_TRUE(topComplexNear("-1.570796326794896619231321691639751442098584699687552910487472296153908203143104499314017412671058534", Acosh2));
    rpn(u"2 acos");
    EXPECT_TRUE(topComplexNear("0", Acosh2));
    rpn(u"-2 acos");
    EXPECT_TRUE(topComplexNear(Pi, "-1.316957896924816708625046347307968444026981971467516479768472256920460185416443976074219013450101784"));
}

TEST_F(Trig, InverseFunctionsNeedDimensionlessOperands) {
    for (Handler handler : {opAsin, opAcos, opAtan}) {
        pushInt(1, radians());
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Units"));
        app.stack.freeAll();
        push(Item::string(u"1"));
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Data Type"));
        app.stack.freeAll();
    }
}

TEST_F(Trig, Atan2TakesYSecondAndXOnTop) {
    rpn(u"-1 -1 atan2");
    EXPECT_TRUE(topRealNear("-2.356194490192344928846982537459627163147877049531329365731208444230862304714656748971026119006587801", radians()));
    rpn(u"0 -1 atan2");
    EXPECT_TRUE(topRealNear(Pi, radians()));
    rpn(u"-1 0 atan2");
    EXPECT_TRUE(topRealNear("-1.570796326794896619231321691639751442098584699687552910487472296153908203143104499314017412671058534", radians()));
    rpn(u"0 0 atan2");
    EXPECT_TRUE(topIsReal(u"0", radians()));
    alg(u"atan2(1, 1)");
    EXPECT_TRUE(topRealNear(QuarterPi, radians()));
}

TEST_F(Trig, Atan2OfTwoLengthsIsAnAngle) {
    pushInt(3, metres());
    pushInt(3, metres());
    opAtan2(app, app.stack);
    EXPECT_TRUE(topRealNear(QuarterPi, radians()));
}

TEST_F(Trig, Atan2OfALengthAndATimeIsIncompatible) {
    pushInt(3, metres());
    pushInt(3, seconds());
    EXPECT_TRUE(refuses(opAtan2, u"Incompatible Units"));
}

TEST_F(Trig, Atan2OfAComplexIsInvalidDataType) {
    pushInt(1);
    push(Item::complex(ComplexNum{number(u"1"), number(u"1")}));
    EXPECT_TRUE(refuses(opAtan2, u"Invalid Data Type"));
}

TEST_F(Trig, Atan2WithOneOperandIsMissingAndStays) {
    pushInt(1);
    EXPECT_TRUE(refuses(opAtan2, u"Missing Operand"));
}

// --- deg and rad ------------------------------------------------------------------------------

TEST_F(Trig, DegTurnsRadiansIntoAPlainNumberOfDegrees) {
    rpn(u"1 deg");
    EXPECT_TRUE(topRealNear(DegreesPerRadian));
    rpn(u"0.5 asin deg");
    EXPECT_TRUE(topRealNear("30"));
    EXPECT_EQ(app.stack.at(0)->units, NoUnits);
}

TEST_F(Trig, RadTurnsDegreesIntoAnAngleInRadians) {
    rpn(u"30 rad");
    EXPECT_TRUE(topRealNear(SixthPi, radians()));
    degrees();
    rpn(u"90 rad sin");
    EXPECT_TRUE(topRealNear("1"));
}

TEST_F(Trig, RadOfAnAngleInRadiansKeepsIt) {
    pushReal(u"0.25", radians());
    opRad(app, app.stack);
    EXPECT_TRUE(topIsReal(u"0.25", radians()));
}

TEST_F(Trig, DegAndRadMessages) {
    for (Handler handler : {opDeg, opRad}) {
        pushInt(1, metres());
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Units"));
        app.stack.freeAll();
        push(Item::complex(ComplexNum{number(u"1"), number(u"1")}));
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Data Type"));
        app.stack.freeAll();
    }
}

}  // namespace
}  // namespace quorvel::test
