// quorvel: the calculator on a terminal, or one command line at a time.
#include <cstdio>
#include <iostream>

#include "app/options.h"
#include "app/session.h"

int main(int argc, char** argv) {
    using namespace quorvel::app;
    std::string error;
    auto options = ParseOptions(argc, argv, error);
    if (!options) {
        std::cerr << "quorvel: " << error << "\nTry 'quorvel --help'.\n";
        return 2;
    }
    switch (options->mode) {
    case RunMode::Help:
        std::cout << UsageText();
        return 0;
    case RunMode::Version:
        std::cout << "Quorvel v2.1.8\n";
        return 0;
    case RunMode::Execute:
        return RunExecute(*options);
    case RunMode::Console:
        return RunConsole(*options);
    }
    return 0;
}
