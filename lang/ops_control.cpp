// The control words `if`, `else`, `while`, `do`, `function`, `return` and the
// comment marker `//`: they act through the program compiler and the scanner,
// so as operations they do nothing.
#include "lang/handlers.h"

namespace quorvel {

void opNothing(AppState&, ItemList&) {}

}  // namespace quorvel
