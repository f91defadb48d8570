#pragma once

#include <cstdlib>

/// Ends a fuzzer with a crash, which keeps the input, unless what was promised holds.
inline void Check(bool holds) {
    if (!holds)
        std::abort();
}
