#include "app/tools/Help.h"

#include "app/base/Clock.h"
#include "app/base/PortalAddress.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/EngineVersion.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/links/SeparateBrowser.h"
#include "core/sites/site_table.h"
#include "core/tools/engine_age.h"

#include <QUrl>

namespace tallowmere {

using namespace Qt::StringLiterals;

Help::Help(frmMain& form, const SiteTable& sites, Prompts& prompts, const Clock& clock,
           PaneDeck& panes, SeparateBrowser& outside)
    : QObject(&form), m_sites(sites), m_prompts(prompts), m_clock(clock), m_panes(panes),
      m_outside(outside) {
    connect(form.menus->help, &QAction::triggered, this, &Help::Open);
    connect(form.menus->about, &QAction::triggered, this, &Help::About);
}

void Help::Open() {
    m_panes.Navigate(PortalAddress::Help());
}

void Help::About() {
    QString text = u"Tallowmere " TALLOWMERE_VERSION "\n"
                   "A research browser for private investors.\n\n"_s +
                   EngineVersion::Text() + u'.';
    if (IsOldEngine(EngineVersion::SecurityPatch(), m_clock.Today()))
        text += u"\n\nThis web engine is old: newer attacks on browsers are not fixed in it. A "
                "newer version of Qt brings a newer engine."_s;
    else
        text +=
            u"\n\nThis web engine is current: its last security patches are younger than half a "
            "year."_s;
    text += u"\n\nCopyright 2026 The Tallowmere developers. Licence: MIT.\n"
            "It holds toml++, copyright Mark Gillard, and JSON for Modern C++, copyright Niels "
            "Lohmann, both under the MIT licence. All texts: Help, at its end, Licences."_s;
    m_prompts.Message(text, u"About Tallowmere"_s);
}

void Help::Report() {
    const QString subject = u"Tallowmere " TALLOWMERE_VERSION " ("_s + EngineVersion::Text() + u')';
    m_outside.WriteMail(u"mailto:"_s + ToQt(m_sites.Program("support")) + u"?subject="_s +
                        QString::fromLatin1(QUrl::toPercentEncoding(subject)));
}

} // namespace tallowmere
