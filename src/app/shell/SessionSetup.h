#pragma once

#include "app/base/Folders.h"
#include "app/base/WebAccess.h"
#include "app/sites/Tables.h"
#include "core/portal/portal_answer.h"
#include "core/quotes/listed_price.h"
#include "core/quotes/source_table.h"

namespace tallowmere {

class Clock;
class Prompts;

/// What a session is started with.
struct SessionSetup {
    Folders folders;
    WebMode web = WebMode::Direct;
    Tables& tables; ///< change when the user's own table of sites does
    /// The built-in portal of the sample mode.
    WebAccess::PortalFunction portal;
    Prompts& prompts;
    const Clock& clock;
    /// Only the live mode has these: where quotes come from, and the pages that its portal hands
    /// out as they are.
    SourceTable sources = {};
    PortalTexts texts = {};
    /// Only the sample mode has it: the invented price of a ticker.
    std::function<std::optional<ListedPrice>(const std::string& ticker)> prices = {};
};

} // namespace tallowmere
