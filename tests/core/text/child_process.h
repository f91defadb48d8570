#pragma once

#include <exception>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace tallowmere {

/// Runs `body`, a function that gives a text, in a process of its own and gives that text, or what
/// it threw. Limits, privileges and mounts that the body changes end with it.
template <typename Body>
std::string RunInChild(Body body) {
    int ends[2];
    if (::pipe(ends) != 0)
        return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        std::string result;
        try {
            result = body();
        } catch (const std::exception& error) {
            result = std::string("threw: ") + error.what();
        }
        const auto written = ::write(ends[1], result.data(), result.size());
        ::_exit(written == static_cast<ssize_t>(result.size()) ? 0 : 1);
    }
    ::close(ends[1]);
    std::string result;
    char buffer[4096];
    for (ssize_t count; (count = ::read(ends[0], buffer, sizeof buffer)) > 0;)
        result.append(buffer, static_cast<std::size_t>(count));
    ::close(ends[0]);
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? result : "ended with status " + std::to_string(status);
}

} // namespace tallowmere
