#pragma once

#include "core/links/catalogue.h"
#include "core/links/site_hosts.h"
#include "core/text/date.h"

#include <string>
#include <string_view>

namespace tallowmere {

/// The three forms in which addresses take a ticker.
struct TickerForms {
    std::string upper;
    std::string lower;
    std::string first; ///< the first character of the lower-cased ticker
};

/// The forms of a ticker. An empty ticker has three empty forms.
TickerForms FormsOf(std::string_view ticker);

/// The placeholder words that stand for the forms in stored addresses.
TickerForms PlaceholderForms();

/// Fills in a path template of the catalogue. {year} is four digits; {month} is the first day of
/// the month of `today`, as 11-1-2026.
std::string FillPath(std::string_view pathTemplate, const TickerForms& forms, Date today);

/// The address of a row that HasAddress: the site's host and the filled-in path, without a scheme
/// where the table of sites gives none.
std::string BuildAddress(const LinkRow& row, const TickerForms& forms, const SiteHosts& sites,
                         Date today);

/// Whether an address of the user's own holds a placeholder for the ticker ("CASETICK").
bool HoldsPlaceholder(std::string_view address);

/// An address of the user's own with LCASETICK, UCASETICK and LEFTONE replaced, in this order.
std::string ExpandPlaceholders(std::string_view address, const TickerForms& forms);

} // namespace tallowmere
