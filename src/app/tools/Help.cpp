#include "app/tools/Help.h"

#include "app/base/QtText.h"
#include "app/engine/PortalScheme.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/links/SeparateBrowser.h"
#include "core/tools/engine_age.h"

#include <QUrl>
#include <QtWebEngineCore/qtwebenginecoreglobal.h>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QString Versions() {
    return u"Qt %1, Chromium %2 with security patches up to %3"_s.arg(
        QString::fromLatin1(qWebEngineVersion()), QString::fromLatin1(qWebEngineChromiumVersion()),
        QString::fromLatin1(qWebEngineChromiumSecurityPatchVersion()));
}

} // namespace

Help::Help(frmMain& form, const Services& services, PaneDeck& panes, SeparateBrowser& outside)
    : QObject(&form), m_services(services), m_panes(panes), m_outside(outside) {
    connect(form.menus->help, &QAction::triggered, this, &Help::Open);
    connect(form.menus->about, &QAction::triggered, this, &Help::About);
}

void Help::Open() {
    m_panes.Navigate(PortalScheme::HelpAddress());
}

void Help::About() {
    QString text = u"Tallowmere " TALLOWMERE_VERSION "\n"
                   "A research browser for private investors.\n\n"_s +
                   Versions() + u'.';
    if (IsOldEngine(qWebEngineChromiumSecurityPatchVersion(), m_services.clock.Today()))
        text += u"\n\nThis web engine is old: newer attacks on browsers are not fixed in it. A "
                "newer version of Qt brings a newer engine."_s;
    m_services.prompts.Message(text, u"About Tallowmere"_s);
}

void Help::Report() {
    const QString subject = u"Tallowmere " TALLOWMERE_VERSION " ("_s + Versions() + u')';
    m_outside.WriteMail(u"mailto:"_s + ToQt(m_services.sites.Program("support")) + u"?subject="_s +
                        QString::fromLatin1(QUrl::toPercentEncoding(subject)));
}

} // namespace tallowmere
