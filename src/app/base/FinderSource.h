#pragma once

#include "core/finder/finder.h"
#include "core/links/page_place.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tallowmere {

class WebAccess;

/// What a part of the program offers to the box that finds everything.
class FinderSource {
public:
    virtual ~FinderSource() = default;

    /// Adds what there is now. Keys are the same from call to call, and begin with a word of their
    /// own for each kind.
    virtual void Offer(std::vector<FinderItem>& items) = 0;

    /// The item that a typed line itself is, none for most lines and sources.
    virtual std::optional<FinderItem> Read(std::string_view) { return std::nullopt; }

    /// What stands dimmed beside an item that is to be opened for a ticker, or for the selected one
    /// when that is empty: where it leads, or where it is. May be of strangers.
    virtual QString Detail(const FinderItem& item, const QString& ticker) = 0;

    /// Opens an item, in the way of a click on it. Where it has no page the place is of no account.
    virtual void Open(const FinderItem& item, PagePlace place, const QString& ticker) = 0;
};

using FinderSources = std::vector<std::unique_ptr<FinderSource>>;

/// Makes the sources of a subsystem, when the box is opened for the first time.
using MakeFinderSources = std::function<FinderSources(const WebAccess&)>;

/// The host of an address as built and, in live mode, the one that it leads to today where that is
/// another; empty for what is no address of the web.
QString HostOfBuilt(const QString& built, const WebAccess& access);

} // namespace tallowmere
