#pragma once

namespace tallowmere {

/// Where addresses lead: today's web, the built-in portal with its sample market, or as built.
enum class WebMode { Live, Sample, Direct };

} // namespace tallowmere
