// Complex values through the handlers: the arithmetic with mixed types and
// units, `re`, `im`, `conj`, `abs`, `inv`, `sqr`, and the display of results.
#include "tests/math_testing.h"

namespace quorvel::test {
namespace {

class ComplexOps : public MathTest {
protected:
    // 1 + 2i and 3 - 1i as typed lines.
    static constexpr std::u16string_view Z = u"1 2 i * +";
    static constexpr std::u16string_view W = u"3 1 i * -";

    Item complex(std::u16string_view re, std::u16string_view im, const UnitVector& units = NoUnits) {
        return Item::complex(ComplexNum{number(re), number(im)}, units);
    }
};

TEST_F(ComplexOps, ITimesIIsMinusOne) {
    rpn(u"i i *");
    EXPECT_TRUE(topComplexIs(u"-1", u"0"));
    EXPECT_EQ(shown(), "-1.");
}

TEST_F(ComplexOps, AlgebraicComplexArithmetic) {
    alg(u"(1 + 2*i) * (3 - i)");
    EXPECT_TRUE(topComplexIs(u"5", u"5"));
    EXPECT_EQ(shown(), "(5. + 5.*i)");
}

TEST_F(ComplexOps, SumAndDifferenceWithIntegersAndReals) {
    rpn(Z);
    EXPECT_TRUE(topComplexIs(u"1", u"2"));
    rpn(u"0.5 +");
    EXPECT_TRUE(topComplexIs(u"1.5", u"2"));
    rpn(u"2 i * -");
    EXPECT_TRUE(topComplexIs(u"1.5", u"0"));
    rpn(u"7 i -");
    EXPECT_TRUE(topComplexIs(u"7", u"-1"));
    EXPECT_EQ(shown(), "(7. - i)");
}

TEST_F(ComplexOps, ProductAndQuotient) {
    rpn(std::u16string(Z) + u" " + std::u16string(W) + u" *");
    EXPECT_TRUE(topComplexIs(u"5", u"5"));
    rpn(std::u16string(Z) + u" " + std::u16string(W) + u" /");
    EXPECT_TRUE(topComplexIs(u"0.1", u"0.7"));
    rpn(u"10 i /");
    EXPECT_TRUE(topComplexIs(u"0", u"-10"));
}

TEST_F(ComplexOps, DivisionByAComplexZeroIsNaN) {
    rpn(u"1 0 i * /");
    ASSERT_EQ(app.stack.at(0)->type, ItemType::Complex);
    EXPECT_TRUE(app.stack.at(0)->asComplex().re.isNaN());
}

TEST_F(ComplexOps, UnitsFollowTheArithmeticRules) {
    push(complex(u"1", u"1", metres()));
    pushInt(2, metres());
    opAdd(app, app.stack);
    EXPECT_EQ(app.stack.at(0)->units, metres());
    pushInt(2, seconds());
    EXPECT_TRUE(refuses(opAdd, u"Incompatible Units"));
    opDiv(app, app.stack);
    EXPECT_EQ(app.stack.at(0)->type, ItemType::Complex);
    EXPECT_EQ(app.stack.at(0)->units, (UnitVector{1, 0, -1, 0, 0, 0, 0, 0}));
}

TEST_F(ComplexOps, AStringWithAComplexIsInvalidDataType) {
    push(complex(u"1", u"1"));
    push(Item::string(u"m"));
    EXPECT_TRUE(refuses(opMul, u"Invalid Data Type"));
}

TEST_F(ComplexOps, InvAndSqr) {
    rpn(std::u16string(Z) + u" inv");
    EXPECT_TRUE(topComplexIs(u"0.2", u"-0.4"));
    rpn(std::u16string(Z) + u" sqr");
    EXPECT_TRUE(topComplexIs(u"-3", u"4"));
    push(complex(u"0", u"2", metres()));
    opSqr(app, app.stack);
    EXPECT_TRUE(topComplexIs(u"-4", u"0"));
    EXPECT_EQ(app.stack.at(0)->units, (UnitVector{2, 0, 0, 0, 0, 0, 0, 0}));
    opInv(app, app.stack);
    EXPECT_EQ(app.stack.at(0)->units, (UnitVector{-2, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(ComplexOps, AbsIsTheModulus) {
    rpn(u"3 4 i * + abs");
    EXPECT_TRUE(topIsReal(u"5"));
}

TEST_F(ComplexOps, CompoundAssignmentTakesComplexValues) {
    alg(u"w = i");
    alg(u"w *= i");
    const Variable* w = app.variables.FindExisting(u"w");
    ASSERT_NE(w, nullptr);
    const Item* z = w->value.get();
    ASSERT_EQ(z->type, ItemType::Complex);
    EXPECT_EQ(compare(z->asComplex().re, number(u"-1")), 0);
}

// --- re, im, conj ---------------------------------------------------------------------

TEST_F(ComplexOps, ReImConjOfAComplexKeepTheUnits) {
    push(complex(u"3", u"-4", metres()));
    opRe(app, app.stack);
    EXPECT_TRUE(topIsReal(u"3", metres()));
    push(complex(u"3", u"-4", metres()));
    opIm(app, app.stack);
    EXPECT_TRUE(topIsReal(u"-4", metres()));
    push(complex(u"3", u"-4", metres()));
    opConj(app, app.stack);
    EXPECT_TRUE(topComplexIs(u"3", u"4"));
    EXPECT_EQ(app.stack.at(0)->units, metres());
}

TEST_F(ComplexOps, ReImConjOfRealsAndIntegers) {
    rpn(u"7 re");
    EXPECT_TRUE(topIsInteger(7));
    rpn(u"7 im");
    EXPECT_TRUE(topIsInteger(0));
    rpn(u"7.5 im");
    EXPECT_TRUE(topIsReal(u"0"));
    rpn(u"7.5 conj");
    EXPECT_TRUE(topIsReal(u"7.5"));
}

TEST_F(ComplexOps, ReImConjMessages) {
    for (Handler handler : {opRe, opIm, opConj}) {
        push(Item::string(u"x"));
        EXPECT_TRUE(refusesAgain(handler, u"Invalid Data Type"));
        app.stack.freeAll();
        EXPECT_TRUE(refusesAgain(handler, u"Missing Operand"));
    }
}

// --- Functions of complex values ----------------------------------------------------------

TEST_F(ComplexOps, SquareRootAndExponential) {
    rpn(std::u16string(Z) + u" sqrt");
    EXPECT_TRUE(topComplexNear("1.272019649514068964252422461737491491715608041840096248616640382539297575536068011830384214988460259",
                               "7.861513777574232860695585858429589295231220578377232376649019701011820476223109137119128891585081356e-1"));
    rpn(std::u16string(Z) + u" exp");
    EXPECT_TRUE(topComplexNear("-1.131204383756813638431255255510794710628867995826525750217721910416501916610226176047063765315958417",
                               "2.471726672004818927616930893551664532736190369241008184200758835277839660811311204078719350435569235"));
}

TEST_F(ComplexOps, AComplexWithUnitsIsRefusedByFunctionsOfPureNumbers) {
    push(complex(u"1", u"1", metres()));
    EXPECT_TRUE(refuses(opExp, u"Invalid Units"));
    EXPECT_TRUE(refuses(opLn, u"Invalid Units"));
    EXPECT_TRUE(refuses(opAtan, u"Invalid Units"));
}

}  // namespace
}  // namespace quorvel::test
