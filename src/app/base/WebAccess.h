#pragma once

#include "app/base/HttpsHosts.h"
#include "app/base/WebMode.h"
#include "core/pages/page_scheme.h"
#include "core/portal/portal_answer.h"
#include "core/shell/command_keys.h"
#include "core/sites/site_resolver.h"

#include <QUrl>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tallowmere {

/// Who asks the portal for a page.
enum class Asker : std::uint8_t {
    Pane,     ///< the user, by a pane or a page of ours in it
    Transfer, ///< the program, which reads pages by itself
    WebPage   ///< a page of the web: it makes nobody ask the sources of quotes
};

/// Decides where an http(s) address leads when the engine or a transfer asks for it. The address
/// that is built, shown and stored never changes; only this answer does.
class WebAccess {
public:
    /// Answers host (with its port, if any) and path with query.
    using PortalFunction = std::function<PortalAnswer(const std::string&, const std::string&)>;
    /// Takes the portal's answer; nothing when there is none.
    using PortalReply = std::function<void(const std::optional<PortalAnswer>&)>;
    /// The same function for a portal whose answer may come later.
    using LatePortalFunction =
        std::function<void(const std::string&, const std::string&, Asker, PortalReply)>;
    /// Gives the address that stands in for an address, or the same address; one that begins with
    /// "portal:" leads to the portal.
    using Resolver = std::function<std::string(const std::string&, AddressUse)>;

    explicit WebAccess(WebMode mode, std::chrono::milliseconds patience = HttpsHosts::kPatience)
        : m_mode(mode), m_https(std::make_unique<HttpsHosts>(patience)) {}

    WebMode Mode() const { return m_mode; }
    void SetPortal(PortalFunction portal);
    void SetLatePortal(LatePortalFunction portal) { m_portal = std::move(portal); }
    /// Where the files of the user guide lie.
    void SetHelpFolder(const QString& folder) { m_helpFolder = folder; }
    const QString& HelpFolder() const { return m_helpFolder; }
    /// Whether pages of our own that are loaded from now on are light or dark.
    void SetScheme(PageScheme scheme) { m_scheme = scheme; }
    PageScheme Scheme() const { return m_scheme; }
    /// The shortcuts that the guide tells; without it, those that ship.
    void SetShortcuts(std::function<CommandChords()> shortcuts) {
        m_shortcuts = std::move(shortcuts);
    }
    CommandChords Shortcuts() const { return m_shortcuts(); }
    /// Used in live mode only.
    void SetResolver(Resolver resolver) { m_resolver = std::move(resolver); }

    /// Where an http(s) address leads instead; nothing when it is loaded as it stands. In sample
    /// mode every such address leads to the portal; in live mode a site of the web is asked by
    /// https, wherever its address comes from.
    std::optional<QUrl> Resolve(const QUrl& url, AddressUse use) const;
    /// Where the tables alone lead it.
    std::optional<QUrl> ResolveByTables(const QUrl& url, AddressUse use) const;
    /// The https address that is asked for instead of an http address; nothing when it is asked
    /// for as it stands.
    std::optional<QUrl> Secure(const QUrl& url) const;

    /// Which sites answer by https.
    HttpsHosts& Https() const { return *m_https; }

    /// Where a browser outside of the program goes for an http(s) address: in live mode to today's,
    /// never to the portal. Whether it tries https first is its own affair, as is what it does
    /// then.
    QUrl ResolveOutside(const QUrl& url) const;

    /// Asks the portal for an address of its scheme. `reply` is called once, at once or later, and
    /// sees to it itself that whom it answers is still there.
    void Ask(const QUrl& portalUrl, Asker asker, PortalReply reply) const;

    /// The http address that an address of the portal stands for; any other address as it is.
    static QUrl AsBuilt(const QUrl& url);

private:
    WebMode m_mode;
    PageScheme m_scheme = PageScheme::Desktop;
    LatePortalFunction m_portal;
    QString m_helpFolder;
    std::function<CommandChords()> m_shortcuts = ShippedChords;
    Resolver m_resolver;
    std::unique_ptr<HttpsHosts> m_https;
};

/// Whether an address has the scheme http or https.
bool IsWebUrl(const QUrl& url);

/// An address as typed or built, made fit for loading: blanks around it cut off, "http://" before
/// it when it has no scheme. Invalid when it cannot be read as an address.
QUrl UrlFromAddress(const QString& address);

} // namespace tallowmere
