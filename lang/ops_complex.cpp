// The parts of a complex value: `re`, `im` and `conj`. No unit check; the
// units are kept. Integer and Real operands are complex values with a zero
// imaginary part: `re` and `conj` give them back as they are and `im` gives
// a zero of the same type (the Integer 0, or a Real 0 at the operand's
// length). Other types: "Invalid Data Type".
#include "lang/handlers.h"
#include "lang/ops_math.h"
#include "lang/ops_values.h"

namespace quorvel {

namespace {

enum class Part { Re, Im, Conj };

template <Part P>
void part(AppState& app, ItemList& list) {
    UnaryHandler(app, list, [](AppState&, const Item& x) -> Outcome {
        if (!IsNumber(x)) return Refusal{InvalidDataType};
        if (x.type == ItemType::Complex) {
            const ComplexNum& z = x.asComplex();
            switch (P) {
                case Part::Re: return Item::real(z.re, x.units);
                case Part::Im: return Item::real(z.im, x.units);
                case Part::Conj: {
                    BigNum im = z.im;
                    im.sign = static_cast<int8_t>(-im.sign);
                    return Item::complex(ComplexNum{z.re, std::move(im)}, x.units);
                }
            }
        }
        if (P != Part::Im) return x.duplicate();
        if (x.type == ItemType::Integer) return Item::integer(BigInt{}, x.units);
        return Item::real(makeZero(x.asReal().length()), x.units);
    });
}

}  // namespace

void opRe(AppState& app, ItemList& list) { part<Part::Re>(app, list); }
void opIm(AppState& app, ItemList& list) { part<Part::Im>(app, list); }
void opConj(AppState& app, ItemList& list) { part<Part::Conj>(app, list); }

}  // namespace quorvel
