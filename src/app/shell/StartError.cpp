#include "app/shell/StartError.h"

#include "app/base/Prompts.h"

#include <cstdio>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace tallowmere {

namespace {

/// Whether standard error leads to a terminal or to a program that waits for it.
bool IsStandardErrorRead() {
#ifdef _WIN32
    return false;
#else
    struct stat status {};
    return isatty(STDERR_FILENO) != 0 ||
           (fstat(STDERR_FILENO, &status) == 0 && S_ISFIFO(status.st_mode));
#endif
}

} // namespace

void TellOfStart(const QString& text, Prompts& prompts) {
    std::fprintf(stderr, "tallowmere: %s\n", qUtf8Printable(text));
    if (!IsStandardErrorRead())
        prompts.Message(text, MessageTitle());
}

} // namespace tallowmere
