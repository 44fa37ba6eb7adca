// The manual's Units and Physical constants chapters: their examples are run
// as typed, and their tables list every unit and constant as the tables in
// the program hold them.
#include "tests/manual_testing.h"
#include "tests/units_testing.h"
#include "units/constants.h"

namespace quorvel::test {
namespace {

class UnitsManualExamples : public UnitsTest {};

TEST_F(UnitsManualExamples, RunAsWritten) {
    const auto blocks = exampleBlocks("units-example");
    ASSERT_GE(blocks.size(), 6u);
    for (const auto& block : blocks) runExampleBlock(block);
}

std::string text(const char16_t* t) { return t == nullptr ? "1" : toUtf8(t); }

TEST(UnitsManualTables, BaseUnitsListedAsHeld) {
    const auto rows = tableRows("### Base units");
    ASSERT_EQ(rows.size(), BaseUnits().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const UnitDef& unit = BaseUnits()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(unit.symbol));
        EXPECT_EQ(rows[i][2], text(unit.name));
        EXPECT_EQ(rows[i][3], text(unit.factor));
        EXPECT_EQ(rows[i][4], toUtf8(DimensionLabel(unit.dimension)));
    }
}

TEST(UnitsManualTables, DerivedUnitsListedAsHeld) {
    const char* symbols[] = {"m", "kg", "s", "mol", "K", "A", "cd", "rad"};
    const auto rows = tableRows("### Derived units");
    ASSERT_EQ(rows.size(), DerivedUnits().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const DerivedUnitDef& unit = DerivedUnits()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(unit.symbol));
        EXPECT_EQ(rows[i][1], text(unit.display));
        EXPECT_EQ(rows[i][2], text(unit.name));
        EXPECT_EQ(rows[i][3], text(unit.factor));
        std::string exponents;
        for (int d = 0; d < DimensionCount; ++d) {
            if (unit.units[d] == 0) continue;
            if (!exponents.empty()) exponents += ' ';
            exponents += symbols[d];
            if (unit.units[d] != 1) exponents += "^" + std::to_string(unit.units[d]);
        }
        EXPECT_EQ(rows[i][4], exponents);
    }
}

TEST(UnitsManualTables, ConstantsListedAsHeld) {
    const auto rows = tableRows("## Physical constants");
    ASSERT_EQ(rows.size(), Constants().size());
    for (size_t i = 0; i < rows.size(); ++i) {
        const ConstDef& c = Constants()[i];
        ASSERT_EQ(rows[i].size(), 5u);
        EXPECT_EQ(rows[i][0], text(c.symbol));
        EXPECT_EQ(rows[i][1], text(c.display));
        EXPECT_EQ(rows[i][2], text(c.name));
        EXPECT_EQ(rows[i][3], text(c.value));
    }
}

}  // namespace
}  // namespace quorvel::test
