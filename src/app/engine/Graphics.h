#pragma once

namespace tallowmere {

/// Whether a graphics card draws what the programs of this display show. Without one the processor
/// does, and every picture that moves costs its time. The first call asks the driver, which takes
/// some milliseconds; the answer is kept.
bool HasGraphicsCard();

} // namespace tallowmere
