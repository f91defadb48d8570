#pragma once

#include "core/links/page_place.h"

#include <Qt>

namespace tallowmere {

/// Where a page is opened by Enter or a click with these keys held.
inline PagePlace PlaceOf(Qt::KeyboardModifiers modifiers) {
    return modifiers & Qt::ControlModifier ? PagePlace::FrontTab
           : modifiers & Qt::ShiftModifier ? PagePlace::Outside
                                           : PagePlace::Pane;
}

} // namespace tallowmere
