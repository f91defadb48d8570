#pragma once

#include <stdexcept>

namespace tallowmere {

/// An error that ends the command which caused it; its text is fit for a message box. The event
/// boundary of the application shows it and goes on.
class RuntimeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace tallowmere
