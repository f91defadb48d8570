#include "core/portal/generated_pages.h"

#include "core/custom/multi_link.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::array<std::string_view, 5> kFixedPages = {"ycs.htm", "ycl.htm", "ycprint.html",
                                                         "report.html", "multiweb.html"};

} // namespace

bool IsGeneratedPageName(std::string_view name) {
    if (std::ranges::find(kFixedPages, name) != kFixedPages.end())
        return true;
    return name.ends_with(kMultiLinkSuffix) &&
           MultiLinkPageName(name.substr(0, name.size() - kMultiLinkSuffix.size())) == name;
}

std::string_view GeneratedPageIn(std::string_view folder, std::string_view address) {
    if (folder.empty() || !address.starts_with(folder))
        return {};
    std::string_view name = address.substr(folder.size());
    if (!name.starts_with('/') && !name.starts_with('\\'))
        return {};
    name.remove_prefix(1);
    return IsGeneratedPageName(name) ? name : std::string_view();
}

} // namespace tallowmere
