// Prints the manual page while the program is built, so that it has the options of the program.
#include "core/shell/command_options.h"

#include <cstdio>

int main() {
    return std::fputs(tallowmere::ManualPage().c_str(), stdout) < 0 ? 1 : 0;
}
