// Comparisons `==`, `!=`, `<`, `<=`, `>`, `>=` of y (second) against x (top):
// an Integer 1 when the relation holds, else 0, without units. Two Integers
// compare exactly; with a Real on either side both are compared as reals,
// an Integer converted at the working length. The units must agree in the
// first seven exponents (Angle is not compared). A NaN is unordered: every
// relation with it is false except `!=`, which is true.
#include "lang/handlers.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

enum class Relation { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };

bool holds(Relation relation, int order) {
    switch (relation) {
        case Relation::Equal: return order == 0;
        case Relation::NotEqual: return order != 0;
        case Relation::Less: return order < 0;
        case Relation::LessEqual: return order <= 0;
        case Relation::Greater: return order > 0;
        case Relation::GreaterEqual: return order >= 0;
    }
    return false;
}

Outcome compareValues(const AppState& app, const Item& y, const Item& x, Relation relation) {
    if (!IsIntegerOrReal(y) || !IsIntegerOrReal(x)) return Refusal{InvalidDataType};
    if (!AdditiveUnits(y.units, x.units)) return Refusal{IncompatibleUnits};
    bool result = false;
    if (y.type == ItemType::Integer && x.type == ItemType::Integer) {
        result = holds(relation, compare(y.asInteger(), x.asInteger()));
    } else {
        const BigNum a = RealOf(app, y);
        const BigNum b = RealOf(app, x);
        if (a.isNaN() || b.isNaN())
            result = relation == Relation::NotEqual;
        else
            result = holds(relation, compare(a, b));
    }
    return Item::integer(bigIntFromI32(result ? 1 : 0));
}

template <Relation R>
void comparison(AppState& app, ItemList& list) {
    BinaryHandler(app, list, [](AppState& a, const Item& x, const Item& y) { return compareValues(a, y, x, R); });
}

}  // namespace

void opEqual(AppState& app, ItemList& list) { comparison<Relation::Equal>(app, list); }
void opNotEqual(AppState& app, ItemList& list) { comparison<Relation::NotEqual>(app, list); }
void opLess(AppState& app, ItemList& list) { comparison<Relation::Less>(app, list); }
void opLessEqual(AppState& app, ItemList& list) { comparison<Relation::LessEqual>(app, list); }
void opGreater(AppState& app, ItemList& list) { comparison<Relation::Greater>(app, list); }
void opGreaterEqual(AppState& app, ItemList& list) { comparison<Relation::GreaterEqual>(app, list); }

}  // namespace quorvel
