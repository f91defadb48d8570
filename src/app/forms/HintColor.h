#pragma once

#include <QColor>

#include <optional>

class QPalette;

namespace tallowmere {

/// A colour for the hints in empty boxes, where that of the palette cannot be read on their ground;
/// none where it can. Not every dark theme of a desktop has such a colour.
std::optional<QColor> LegibleHint(const QPalette& palette);

} // namespace tallowmere
