// The value words, the square root, exponentials, logarithms and hyperbolic
// functions: types, units, messages with the stack unchanged, exact values,
// Complex results of negative operands, and the abort of a long computation.
#include <chrono>

#include "tests/math_testing.h"

namespace quorvel::test {
namespace {

constexpr std::string_view Pi =
    "3.141592653589793238462643383279502884197169399375105820974944592307816406286208998628034825342117068";
constexpr std::string_view E =
    "2.718281828459045235360287471352662497757247093699959574966967627724076630353547594571382178525166427";
constexpr std::string_view EulerGamma =
    "5.772156649015328606065120900824024310421593359399235988057672348848677267776646709369470632917467495e-1";
constexpr std::string_view Sqrt2 =
    "1.414213562373095048801688724209698078569671875376948073176679737990732478462107038850387534327641573";
constexpr std::string_view Ln2 =
    "6.931471805599453094172321214581765680755001343602552541206800094933936219696947156058633269964186875e-1";
constexpr std::string_view Ln5 =
    "1.609437912434100374600759333226187639525601354268517721912647891474178987707657764630133878093179611";
constexpr std::string_view PiOverLn10 =
    "1.364376353841841347485783625431355770210127483723925399900854731995922817360262165266934942060476727";
constexpr std::string_view PiOverLn2 =
    "4.53236014182719380962768294571666681017186146772379558418601654794060095372130510225908387960401609";
constexpr std::string_view Acosh2 =
    "1.316957896924816708625046347307968444026981971467516479768472256920460185416443976074219013450101784";
constexpr std::string_view HalfLn3 =
    "5.493061443340548456976226184612628523237452789113747258673471668187471466093044834368078774068660444e-1";
constexpr std::string_view HalfPi =
    "1.570796326794896619231321691639751442098584699687552910487472296153908203143104499314017412671058534";
constexpr std::string_view Acos05 =
    "1.047197551196597746154214461093167628065723133125035273658314864102605468762069666209344941780705689";
constexpr std::string_view Sinh1 =
    "1.175201193643801456882381850595600815155717981334095870229565413013307567304323895607117452089623392";
constexpr std::string_view Cosh1 =
    "1.543080634815243778477905620757061682601529112365863704737402214710769063049223698964264726435543036";
constexpr std::string_view Tanh1 =
    "7.615941559557648881194582826047935904127685972579365515968105001219532445766384834589475216736767144e-1";
constexpr std::string_view Asinh1 =
    "8.813735870195430252326093249797923090281603282616354107532956086533771842220260878337068919102560429e-1";
constexpr std::string_view InverseE =
    "3.678794411714423215955237701614608674458111310317678345078368016974614957448998033571472743459196437e-1";

class MathValues : public MathTest {};

// --- Value words --------------------------------------------------------------------

TEST_F(MathValues, PiEAndEulerGammaAtTheWorkingLength) {
    rpn(u"pi");
    EXPECT_TRUE(topRealNear(Pi));
    EXPECT_EQ(app.stack.at(0)->asReal().length(), app.workingLength);
    rpn(u"e");
    EXPECT_TRUE(topRealNear(E));
    rpn(u"eulergamma");
    EXPECT_TRUE(topRealNear(EulerGamma));
    EXPECT_EQ(app.stack.count(), 3);
}

TEST_F(MathValues, InfIsPositiveInfinity) {
    rpn(u"inf");
    EXPECT_TRUE(topIsInfinity(1));
    rpn(u"inf neg");
    EXPECT_TRUE(topIsInfinity(-1));
}

TEST_F(MathValues, IIsZeroPlusOneI) {
    rpn(u"i");
    EXPECT_TRUE(topComplexIs(u"0", u"1"));
    EXPECT_EQ(app.stack.at(0)->asComplex().re.length(), app.workingLength);
    EXPECT_EQ(shown(), "i");
}

TEST_F(MathValues, ValueWordsInAlgebraicEntry) {
    alg(u"2 * pi");
    EXPECT_TRUE(topRealNear("6.283185307179586476925286766559005768394338798750211641949889184615632812572417997256069650684234136"));
}

// --- sqrt -----------------------------------------------------------------------------

TEST_F(MathValues, SqrtOfTwoIsAReal) {
    rpn(u"2 sqrt");
    EXPECT_TRUE(topRealNear(Sqrt2));
}

TEST_F(MathValues, SqrtOfAPerfectSquareIntegerIsTheExactReal) {
    rpn(u"144 sqrt");
    EXPECT_TRUE(topIsReal(u"12"));
}

TEST_F(MathValues, SqrtOfANegativeNumberIsComplex) {
    rpn(u"-4 sqrt");
    EXPECT_TRUE(topComplexIs(u"0", u"2"));
    EXPECT_EQ(shown(), "(2.*i)");
    rpn(u"-1 sqrt");
    EXPECT_TRUE(topComplexIs(u"0", u"1"));
    EXPECT_EQ(shown(), "i");
}

TEST_F(MathValues, SqrtHalvesEvenExponents) {
    pushInt(9, UnitVector{2, 0, -4, 0, 0, 0, 0, 0});
    opSqrt(app, app.stack);
    EXPECT_TRUE(topIsReal(u"3", UnitVector{1, 0, -2, 0, 0, 0, 0, 0}));
}

TEST_F(MathValues, SqrtOfANegativeAreaIsAComplexLength) {
    pushInt(-9, UnitVector{2, 0, 0, 0, 0, 0, 0, 0});
    opSqrt(app, app.stack);
    EXPECT_TRUE(topComplexIs(u"0", u"3"));
    EXPECT_EQ(app.stack.at(0)->units, metres());
}

TEST_F(MathValues, SqrtOfAnOddExponentIsInvalidUnits) {
    pushInt(9, metres());
    EXPECT_TRUE(refuses(opSqrt, u"Invalid Units"));
}

TEST_F(MathValues, SqrtOfAStringIsInvalidDataType) {
    push(Item::string(u"m"));
    EXPECT_TRUE(refuses(opSqrt, u"Invalid Data Type"));
}

TEST_F(MathValues, SqrtOfNothingIsAMissingOperand) {
    EXPECT_TRUE(refuses(opSqrt, u"Missing Operand"));
}

// --- Exponentials -------------------------------------------------------------------

TEST_F(MathValues, ExpOfZeroIsExactlyOneAndOfMinusOneIsItsInverse) {
    rpn(u"0 exp");
    EXPECT_TRUE(topIsReal(u"1"));
    rpn(u"-1 exp");
    EXPECT_TRUE(topRealNear(InverseE));
}

TEST_F(MathValues, ExpOfAHugeArgumentIsInfinityAndOfAHugeNegativeOneZero) {
    rpn(u"1E12 exp");
    EXPECT_TRUE(topIsInfinity(1));
    rpn(u"-1E12 exp");
    EXPECT_TRUE(topIsReal(u"0"));
}

TEST_F(MathValues, ExpNeedsADimensionlessOperand) {
    pushInt(1, seconds());
    EXPECT_TRUE(refuses(opExp, u"Invalid Units"));
    pushInt(1, radians());
    EXPECT_TRUE(refuses(opExp, u"Invalid Units"));
}

TEST_F(MathValues, Exp2AndExp10OfIntegersAreExactIntegers) {
    rpn(u"10 exp2");
    EXPECT_TRUE(topIsInteger(1024));
    rpn(u"9 exp10");
    EXPECT_TRUE(topIsInteger(1000000000));
    rpn(u"0 exp10");
    EXPECT_TRUE(topIsInteger(1));
}

TEST_F(MathValues, Exp2OfANegativeIntegerIsAnExactReal) {
    rpn(u"-3 exp2");
    EXPECT_TRUE(topIsReal(u"0.125"));
    rpn(u"-2 exp10");
    EXPECT_TRUE(topIsReal(u"0.01"));
}

TEST_F(MathValues, Exp2OfALargeIntegerIsAReal) {
    rpn(u"40000 exp2");
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Real);
    EXPECT_EQ(app.stack.at(0)->asReal().exponent, 12041);
}

TEST_F(MathValues, Exp2OfAnIntegerIsReducedToTheWordSize) {
    app.wsize = 8;
    rpn(u"10 exp2");
    EXPECT_TRUE(topIsInteger(0));
    rpn(u"7 exp2");
    EXPECT_TRUE(topIsInteger(128));
    rpn(u"3 exp10");
    EXPECT_TRUE(topIsInteger(1000 % 256));
}

TEST_F(MathValues, Exp2OfAHalfIsTheSquareRootOfTwo) {
    rpn(u"0.5 exp2");
    EXPECT_TRUE(topRealNear(Sqrt2));
}

TEST_F(MathValues, Exp10OfAnIntegralRealIsExact) {
    rpn(u"25.0 exp10");
    EXPECT_TRUE(topIsReal(u"1E25"));
}

// --- Logarithms --------------------------------------------------------------------

TEST_F(MathValues, LnOfZeroIsMinusInfinity) {
    rpn(u"0 ln");
    EXPECT_TRUE(topIsInfinity(-1));
}

TEST_F(MathValues, LnOfOneIsExactlyZero) {
    rpn(u"1 ln");
    EXPECT_TRUE(topIsReal(u"0"));
}

TEST_F(MathValues, LnOfFive) {
    rpn(u"5 ln");
    EXPECT_TRUE(topRealNear(Ln5));
}

TEST_F(MathValues, LnOfANegativeNumberIsComplex) {
    rpn(u"-2 ln");
    EXPECT_TRUE(topComplexNear(Ln2, Pi));
}

TEST_F(MathValues, LnNeedsADimensionlessOperand) {
    pushInt(2, metres());
    EXPECT_TRUE(refuses(opLn, u"Invalid Units"));
}

TEST_F(MathValues, LogAndLog10AndLn10AreOneFunction) {
    rpn(u"100 log");
    rpn(u"100 log10");
    rpn(u"100 ln10");
    ASSERT_EQ(app.stack.count(), 3);
    EXPECT_TRUE(topIsReal(u"2"));
    EXPECT_EQ(app.stack.at(0)->value, app.stack.at(1)->value);
    EXPECT_EQ(app.stack.at(1)->value, app.stack.at(2)->value);
}

TEST_F(MathValues, Log10OfPowersOfTenIsExact) {
    rpn(u"1E-30 log");
    EXPECT_TRUE(topIsReal(u"-30"));
    rpn(u"1000 log");
    EXPECT_TRUE(topIsReal(u"3"));
}

TEST_F(MathValues, Log2AndLn2AreOneFunctionAndExactForPowersOfTwo) {
    rpn(u"1024 log2");
    EXPECT_TRUE(topIsReal(u"10"));
    rpn(u"0.125 ln2");
    EXPECT_TRUE(topIsReal(u"-3"));
    rpn(u"2 ln2");
    EXPECT_TRUE(topIsReal(u"1"));
}

TEST_F(MathValues, Log2OfAnIntegerPowerOfTwoBeyondTheWorkingLength) {
    rpn(u"2 300 ^ log2");
    EXPECT_TRUE(topIsReal(u"300"));
}

TEST_F(MathValues, Log2OfFive) {
    rpn(u"5 log2");
    EXPECT_TRUE(topRealNear("2.321928094887362347870319429489390175864831393024580612054756395815934776608625215850139743359370155"));
}

TEST_F(MathValues, LogOfANegativeNumberIsComplexWithAnExactRealPart) {
    rpn(u"-100 log");
    EXPECT_TRUE(topComplexNear("2", PiOverLn10));
    EXPECT_EQ(compare(app.stack.at(0)->asComplex().re, number(u"2")), 0);
    rpn(u"-8 log2");
    EXPECT_TRUE(topComplexNear("3", PiOverLn2));
}

TEST_F(MathValues, LogOfAComplexZeroIsMinusInfinity) {
    rpn(u"0 i * ln");
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Complex);
    EXPECT_TRUE(app.stack.at(0)->asComplex().re.isInfinite());
}

// --- Hyperbolic functions -------------------------------------------------------------

TEST_F(MathValues, HyperbolicFunctionsOfOne) {
    rpn(u"1 sinh");
    EXPECT_TRUE(topRealNear(Sinh1));
    rpn(u"1 cosh");
    EXPECT_TRUE(topRealNear(Cosh1));
    rpn(u"1 tanh");
    EXPECT_TRUE(topRealNear(Tanh1));
    rpn(u"1 asinh");
    EXPECT_TRUE(topRealNear(Asinh1));
    rpn(u"2 acosh");
    EXPECT_TRUE(topRealNear(Acosh2));
    rpn(u"0.5 atanh");
    EXPECT_TRUE(topRealNear(HalfLn3));
}

TEST_F(MathValues, AcoshBelowOneIsComplex) {
    rpn(u"0.5 acosh");
    EXPECT_TRUE(topComplexNear("0", Acos05));
    EXPECT_TRUE(app.stack.at(0)->asComplex().re.isZero());
    rpn(u"-2 acosh");
    EXPECT_TRUE(topComplexNear(Acosh2, Pi));
}

TEST_F(MathValues, AtanhOfPlusOrMinusOneIsInfinite) {
    rpn(u"1 atanh");
    EXPECT_TRUE(topIsInfinity(1));
    rpn(u"-1 atanh");
    EXPECT_TRUE(topIsInfinity(-1));
}

TEST_F(MathValues, AtanhBeyondOneIsComplex) {
    rpn(u"2 atanh");
    EXPECT_TRUE(topComplexNear(HalfLn3, "-1.570796326794896619231321691639751442098584699687552910487472296153908203143104499314017412671058534"));
    rpn(u"-2 atanh");
    EXPECT_TRUE(topComplexNear("-5.493061443340548456976226184612628523237452789113747258673471668187471466093044834368078774068660444e-1", HalfPi));
}

TEST_F(MathValues, HyperbolicFunctionsNeedDimensionlessOperands) {
    for (Handler handler : {opSinh, opCosh, opTanh, opAsinh, opAcosh, opAtanh, opExp2, opExp10, opLog10, opLog2}) {
        pushInt(1, metres());
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Units"));
        app.stack.freeAll();
        push(Item::string(u"x"));
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Data Type"));
        app.stack.freeAll();
    }
}

TEST_F(MathValues, AVariableReferenceIsResolved) {
    alg(u"a = 4");
    rpn(u"a sqrt");
    EXPECT_TRUE(topIsReal(u"2"));
}

// --- Abort ------------------------------------------------------------------------------

// With the host asking to stop, the real power of a prime exponent (65520
// multiplications at 1000 digits) stops at its first poll with "Aborted" and
// the operands go back, so the stack is as it was before the operation.
TEST_F(MathValues, AbortStopsALongPowerAndRestoresTheOperands) {
    SetDigits(app, 1000);
    rpn(u"2 65521");
    const std::vector<Item> before = snapshot();
    host.abortNow = true;
    const auto start = std::chrono::steady_clock::now();
    rpn(u"^");
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(shows(u"Aborted"));
    EXPECT_TRUE(stackIs(before));
    EXPECT_TRUE(app.abortFlag);
    EXPECT_LT(std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count(), 2000);
}

TEST_F(MathValues, AbortOnTheWholeLineLeavesTheOperandsOfThePower) {
    SetDigits(app, 1000);
    host.abortNow = true;
    rpn(u"2 65521 ^");
    EXPECT_TRUE(shows(u"Aborted"));
    ASSERT_EQ(app.stack.count(), 2);
    EXPECT_TRUE(topIsInteger(65521));
}

TEST_F(MathValues, TheNextLineRunsAgainAfterAnAbort) {
    host.abortNow = true;
    rpn(u"1.5 65521 ^");
    EXPECT_TRUE(shows(u"Aborted"));
    host.abortNow = false;
    rpn(u"drop drop 2 sqrt");
    EXPECT_EQ(host.shownText(), u"");
    EXPECT_TRUE(topRealNear(Sqrt2));
}

TEST_F(MathValues, AnAbortedConstantIsNotPushed) {
    SetDigits(app, 1000);
    host.abortNow = true;
    rpn(u"eulergamma");
    EXPECT_TRUE(shows(u"Aborted"));
    EXPECT_EQ(app.stack.count(), 0);
    host.abortNow = false;
    rpn(u"eulergamma");
    EXPECT_EQ(app.stack.count(), 1);
}

}  // namespace
}  // namespace quorvel::test
