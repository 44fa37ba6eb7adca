// quorvel: one command line at a time (-e), the console on a terminal, or the
// desktop window. No toolkit is linked here, so -e starts in a millisecond or
// two; the window is the program quorvel-desktop, started in this one's place.
#include "app/launcher.h"

int main(int argc, char** argv) { return quorvel::app::RunProgram(argc, argv, quorvel::app::ExecDesktopProgram); }
