#include "app/sites/SiteControllers.h"

#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/sites/SiteDataKeeper.h"
#include "app/sites/SiteEditor.h"
#include "app/sites/Tables.h"
#include "app/sites/UserSites.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// What is wrong with the user's table, for one line: files are named without their folders.
QString TextOfProblems(const std::vector<std::string>& problems) {
    if (problems.empty())
        return {};
    const QString first = ToQt(problems.front());
    const auto file = first.lastIndexOf(u'/', first.indexOf(u".toml:"_s)) + 1;
    const auto more = problems.size() - 1;
    return more == 0 ? first.mid(file) : first.mid(file) + u" (and %1 more)"_s.arg(more);
}

} // namespace

SiteControllers::SiteControllers(frmMain& form, SettingsStore& settings, Prompts& prompts,
                                 const Clock& clock, const RecordingState& recording,
                                 const Tables& tables, UserSites& userSites, WebAccess& web,
                                 EngineProfile& profile, PaneDeck& panes)
    : QObject(&form),
      editor(new SiteEditor(form, clock, recording, tables, web.Mode(), userSites, panes)),
      data(new SiteDataKeeper(form, settings, prompts, profile)), m_pane(*form.Web),
      m_tables(tables), m_userSites(userSites), m_web(web), m_panes(panes) {
    LeadAddresses();
    connect(&userSites, &UserSites::Changed, this, &SiteControllers::LeadAddresses);
    connect(&userSites, &UserSites::ProblemsFound, this, &SiteControllers::TellProblems);
}

void SiteControllers::LeadAddresses() {
    if (m_web.Mode() == WebMode::Live)
        m_web.SetResolver(MakeResolver(m_tables));
}

// The status line says it at once, and once more when the page that is loading has had its say.
void SiteControllers::TellProblems() {
    const QString text = TextOfProblems(m_userSites.Problems());
    if (text.isEmpty())
        return;
    m_panes.ShowStatus(text);
    if (m_pane.Busy())
        connect(
            &m_pane, &BrowserPane::DocumentComplete, &m_panes,
            [this, text] { m_panes.ShowStatus(text); }, Qt::SingleShotConnection);
}

} // namespace tallowmere
