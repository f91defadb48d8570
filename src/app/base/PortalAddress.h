#pragma once

#include <QString>
#include <QUrl>

#include <string_view>

namespace tallowmere {

/// The addresses of the private scheme under which the panes find what the program itself answers.
struct PortalAddress {
    static QString Scheme() { return QStringLiteral("portal"); }
    /// The host under which the generated pages are found.
    static QString PagesHost() { return QStringLiteral("pages"); }
    /// The address of a generated page.
    static QUrl Page(std::string_view name);
    /// The host under which the user guide is found, and the address of its first page: the same
    /// in all modes, so that it may be a start page.
    static QString HelpHost() { return QStringLiteral("help"); }
    static QString Help() { return QStringLiteral("portal://help/index.html"); }
    /// Whether an address is one of the user guide.
    static bool IsHelp(const QUrl& url) {
        return url.scheme() == Scheme() && url.host() == HelpHost();
    }
};

} // namespace tallowmere
