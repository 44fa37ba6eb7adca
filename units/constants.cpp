// The constant table and its lookup.
#include "units/constants.h"

#include <array>
#include <string>

#include "lang/evaluator.h"

namespace quorvel {

namespace {

// Values are CODATA-style texts: a number with a unit string applies the
// units at once; `const('x')` nests another row, evaluated anew each time.
// The displays "mp", "mn", "mt", "mu" and "NA" carry no subscripts.
constexpr std::array<ConstDef, ConstantCount> ConstantTable{{
    {u"a0", u"a₀", u"Bohr Radius", u"5.29177210903E-11 'm'"},
    {u"amu", u"mᵤ", u"Atomic Mass Unit", u"1.0 'u'"},
    {u"c", u"c", u"Speed of Light", u"299792458.0 'm/s'"},
    {u"c1", u"c₁", u"First Radiation Constant", u"3.741771852E-16 'W*m^2'"},
    {u"c2", u"c₂", u"Second Radiation Constant", u"1.438776877E-2 'm*K'"},
    {u"e", u"e", u"Elementary Charge", u"1.602176634E-19 'C'"},
    {u"eV", u"eV", u"Electron Volt", u"1.0 'eV'"},
    {u"G", u"G", u"Newtonian Gravitational Constant", u"6.67430E-11 'm^3/kg*s^2'"},
    {u"g", u"g", u"Standard Earth Gravity", u"9.80665 'm/s^2'"},
    {u"h", u"h", u"Planck Constant", u"6.62607015E-34 'J*s'"},
    {u"hbar", u"ħ", u"Reduced Planck Constant", u"const('h')/(2*pi)"},
    {u"k", u"k", u"Boltzmann Constant", u"1.380649E-23 'J/K'"},
    {u"ke", u"kₑ", u"Coulomb's Constant", u"1.0/4/pi/const('e0')"},
    {u"ma", u"mₐ", u"Alpha Particle Mass", u"4.001506179127 'u'"},
    {u"me", u"mₑ", u"Electron Mass", u"5.48579909065E-4 'u'"},
    {u"mp", u"mp", u"Proton Mass", u"1.007276466621 'u'"},
    {u"mn", u"mn", u"Neutron Mass", u"1.00866491595 'u'"},
    {u"mt", u"mt", u"Tau Mass", u"1.90754 'u'"},
    {u"mu", u"mu", u"Muon Mass", u"0.1134289259 'u'"},
    {u"NA", u"NA", u"Avogadro's Number", u"6.02214076E+23 'mol^-1'"},
    {u"R", u"R", u"Molar Gas Constant", u"8.314462618 'J*K^-1*mol^-1'"},
    {u"Ryd", u"R∞", u"Rydberg Constant", u"10973731.568160 'm^-1'"},
    {u"re", u"rₑ", u"Classical Electron Radius", u"2.8179403262E-15 'm'"},
    {u"alpha", u"α", u"Fine-Structure Constant", u"7.2973525693E-3"},
    {u"ue", u"μₑ", u"Electron Magnetic Moment", u"-9.2847647043E-24 'J/T'"},
    {u"up", u"μₚ", u"Proton Magnetic Moment", u"1.41060679736E-26 'J/T'"},
    {u"u0", u"μ₀", u"Magnetic Constant (Vacuum Permeability)", u"4*pi*1.000000000449E-7 'N/A^2'"},
    {u"e0", u"ε₀", u"Electric Constant (Vacuum Permittivity)", u"1.0/const('u0')/const('c')^2"},
    {u"ub", u"μb", u"Bohr Magneton", u"9.2740100783E-24 'J/T'"},
    {u"un", u"μn", u"Nuclear Magneton", u"5.0507837461E-27 'J/T'"},
    {u"sigma", u"σ", u"Stefan-Boltzmann Constant", u"5.670374419E-8 'W/m^2*K^4'"},
}};

constexpr bool sameText(const char16_t* a, const char16_t* b) {
    while (*a != 0 && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
}

constexpr bool symbolsUnique() {
    for (size_t i = 0; i < ConstantTable.size(); ++i)
        for (size_t j = i + 1; j < ConstantTable.size(); ++j)
            if (sameText(ConstantTable[i].symbol, ConstantTable[j].symbol)) return false;
    return true;
}

static_assert(ConstantTable.size() == 31);
static_assert(symbolsUnique(), "a constant symbol appears twice");

}  // namespace

std::span<const ConstDef> Constants() { return ConstantTable; }

const ConstDef* FindConst(std::u16string_view symbol) {
    for (const ConstDef& row : ConstantTable)
        if (symbol == row.symbol) return &row;
    return nullptr;
}

std::optional<Item> EvaluateConstant(AppState& app, const ConstDef& row) {
    const std::u16string text(row.value);   // the evaluator works on its own copy
    return EvaluateText(app, text);
}

}  // namespace quorvel
