#pragma once

#include <QString>
#include <QUrl>

#include <string_view>

namespace tallowmere {

/// The addresses of the private scheme under which the panes find what the program itself answers.
struct PortalAddress {
    static QString Scheme() { return QStringLiteral("portal"); }
    /// The address of a generated page: each has a host, and so an origin, of its own.
    static QUrl Page(std::string_view name);
    /// Whether a host is one under which generated pages are found.
    static bool IsPagesHost(const QString& host);
    /// Whether an address, or the origin that asks for one, is that of a generated page.
    static bool IsPage(const QUrl& url) {
        return url.scheme() == Scheme() && IsPagesHost(url.host());
    }
    /// The host under which the user guide is found, and the address of its first page: the same
    /// in all modes, so that it may be a start page.
    static QString HelpHost() { return QStringLiteral("help"); }
    static QString Help() { return QStringLiteral("portal://help/index.html"); }
    /// The address of a source that is shown, by its number.
    static QUrl Source(int number) {
        return QUrl(QStringLiteral("portal://source/%1").arg(number));
    }
    static bool IsSource(const QUrl& url) {
        return url.scheme() == Scheme() && url.host() == QStringLiteral("source");
    }
    /// Whether an address is one of the user guide or of a source, which no address of the web
    /// stands behind.
    static bool IsOwn(const QUrl& url) {
        return (url.scheme() == Scheme() && url.host() == HelpHost()) || IsSource(url);
    }
};

} // namespace tallowmere
