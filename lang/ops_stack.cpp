// The stack commands. `swap`, `drop`, `clear` and `roll` rearrange the main
// stack whatever list they are given; `x`/`dup`, `y` and `z` copy an entry of
// the main stack onto the list they are given.
#include "lang/handler.h"
#include "lang/handlers.h"

namespace quorvel {

namespace {

inline constexpr std::u16string_view ValueNotFound = u"Value Not Found";

// Pushes a copy of the main stack's entry at `index` (0 = x) onto `list`.
void copyStackEntry(AppState& app, ItemList& list, size_t index) {
    const Item* entry = std::as_const(app.stack).at(index);
    if (entry == nullptr) {
        ReportError(app, ValueNotFound, Error);
        return;
    }
    Item copy = entry->duplicate();   // before pushing: `list` may be the main stack
    list.push(std::move(copy));
}

}  // namespace

void opSwap(AppState& app, ItemList&) {
    std::array<Item, 2> xy;
    if (!PopOperands(app, app.stack, xy)) return;
    app.stack.push(std::move(xy[0]));
    app.stack.push(std::move(xy[1]));
}

void opDrop(AppState& app, ItemList&) {
    std::array<Item, 1> x;
    PopOperands(app, app.stack, x, u"Stack Empty", Warning);   // x is destroyed here
}

void opClear(AppState& app, ItemList&) { app.stack.freeAll(); }

// z goes to x, x to y and y to z.
void opRoll(AppState& app, ItemList&) {
    std::array<Item, 3> xyz;
    if (!PopOperands(app, app.stack, xyz, ValueNotFound, Error)) return;
    app.stack.push(std::move(xyz[1]));
    app.stack.push(std::move(xyz[0]));
    app.stack.push(std::move(xyz[2]));
}

void opDup(AppState& app, ItemList& list) { copyStackEntry(app, list, 0); }
void opY(AppState& app, ItemList& list) { copyStackEntry(app, list, 1); }
void opZ(AppState& app, ItemList& list) { copyStackEntry(app, list, 2); }

}  // namespace quorvel
