#pragma once

/// Where the page of a link opens.
namespace tallowmere {

enum class PagePlace {
    Pane,     ///< the pane that the link is made for
    BackTab,  ///< a further pane that is not brought to the front
    FrontTab, ///< a further pane in front
    Outside   ///< a separate browser
};

constexpr bool IsTab(PagePlace place) {
    return place == PagePlace::BackTab || place == PagePlace::FrontTab;
}

/// Where a click with the left or the middle button, with Ctrl and Shift held or not, wants a page.
constexpr PagePlace PlaceOfClick(bool isMiddle, bool isCtrl, bool isShift) {
    if (!isMiddle && !isCtrl)
        return PagePlace::Pane;
    return isShift ? PagePlace::FrontTab : PagePlace::BackTab;
}

} // namespace tallowmere
