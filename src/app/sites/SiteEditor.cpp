#include "app/sites/SiteEditor.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/links/RecordingState.h"
#include "app/sites/UserSites.h"
#include "core/sites/site_resolver.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// The ticker that addresses are shown for when none is selected.
constexpr std::string_view kExampleTicker = "MSFT";

QString NoteOf(WebMode mode) {
    if (mode == WebMode::Sample)
        return u"The program runs with sample data: every address leads to its own portal. The "
               u"rows "
               "count when it runs live."_s;
    if (mode == WebMode::Direct)
        return u"The program loads addresses as they are built. The rows count when it runs live."_s;
    return {};
}

} // namespace

SiteEditor::SiteEditor(frmMain& form, const Clock& clock, const RecordingState& recording,
                       const Tables& tables, WebMode mode, UserSites& userSites, PaneDeck& panes)
    : QObject(&form), m_form(form), m_clock(clock), m_recording(recording), m_tables(tables),
      m_mode(mode), m_userSites(userSites), m_panes(panes) {
    connect(form.menus->sites, &QAction::triggered, this, &SiteEditor::Show);
}

void SiteEditor::Show() {
    if (!m_window) {
        m_window = new frmSites(&m_form);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        Connect();
    }
    List();
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void SiteEditor::Connect() {
    connect(m_window->lstSites, &QTreeWidget::currentItemChanged, this, &SiteEditor::ShowSelected);
    connect(m_window->lstSites, &QTreeWidget::itemActivated, m_window->txtAddress,
            [address = m_window->txtAddress] { address->setFocus(); });
    connect(m_window->txtAddress, &QLineEdit::textChanged, this, &SiteEditor::ShowButtons);
    connect(m_window->cmdSave, &QPushButton::clicked, this, &SiteEditor::Save);
    connect(m_window->cmdReset, &QPushButton::clicked, this, &SiteEditor::Reset);
    connect(m_window->cmdTry, &QPushButton::clicked, this, &SiteEditor::Try);
    connect(&m_userSites, &UserSites::Changed, m_window, [this] { List(); });
    connect(&m_userSites, &UserSites::ProblemsFound, m_window, [this] { ShowNote(); });
}

void SiteEditor::ShowNote() {
    QStringList lines;
    if (m_mode != WebMode::Live)
        lines << NoteOf(m_mode);
    for (const std::string& problem : m_userSites.Problems())
        lines << ToQt(problem);
    m_window->lblNote->setText(lines.join(u'\n'));
    m_window->lblNote->setVisible(!lines.isEmpty());
}

// Fills the list anew, or what it says about each row. The selection stays, and what is typed.
void SiteEditor::List() {
    const bool isTyping = m_window->cmdSave->isEnabled();
    m_sites = ListSites(m_tables.sites, m_tables.menus, m_tables.today, m_userSites.Shipped().today,
                        Ticker(), m_clock.Today());
    QTreeWidget& list = *m_window->lstSites;
    for (const ListedSite& site : m_sites) {
        const auto n = static_cast<int>(&site - m_sites.data());
        QTreeWidgetItem* item = list.topLevelItem(n);
        if (!item)
            item = new QTreeWidgetItem(&list);
        const QString today =
            site.row == kPortalTarget ? u"the portal of the program"_s : ToQt(site.today);
        item->setText(frmSites::Link, ToQt(site.name));
        item->setToolTip(frmSites::Link, ToQt(site.description));
        item->setText(frmSites::Built, ToQt(site.built));
        item->setText(frmSites::Today, today);
        item->setText(frmSites::Row, site.isOwn ? u"Yours"_s : u"Shipped"_s);
    }
    if (!list.currentItem())
        list.setCurrentItem(list.topLevelItem(0));
    if (isTyping)
        ShowButtons();
    else
        ShowSelected();
    ShowNote();
}

const ListedSite* SiteEditor::Selected() const {
    QTreeWidgetItem* item = m_window->Selected();
    const int n = item ? m_window->lstSites->indexOfTopLevelItem(item) : -1;
    return n < 0 ? nullptr : &m_sites[static_cast<std::size_t>(n)];
}

void SiteEditor::ShowSelected() {
    const ListedSite* site = Selected();
    m_window->lblMessage->clear();
    m_window->lblSite->setText(site ? ToQt(site->name + ":  " + site->built) : QString());
    m_window->txtAddress->setText(site ? ToQt(site->row) : QString());
    m_window->txtAddress->setCursorPosition(0);
    m_window->txtAddress->setEnabled(site);
    ShowButtons();
}

// What Enter does: an address that was changed is saved, else the page is tried.
void SiteEditor::ShowButtons() {
    const ListedSite* site = Selected();
    const bool isChanged = site && FromQt(m_window->txtAddress->text().trimmed()) != site->row;
    m_window->cmdSave->setEnabled(isChanged);
    m_window->cmdReset->setEnabled(site && site->isOwn);
    m_window->cmdTry->setEnabled(site);
    m_window->cmdSave->setDefault(isChanged);
    m_window->cmdTry->setDefault(!isChanged);
}

std::string SiteEditor::Ticker() const {
    const std::string selected = FromQt(m_form.List1->SelectedText());
    return selected.empty() ? std::string(kExampleTicker) : selected;
}

void SiteEditor::Run(const std::function<void(const ListedSite&)>& command, const QString& done) {
    const ListedSite* selected = Selected();
    if (!selected)
        return;
    const ListedSite site = *selected; // the list is made anew meanwhile
    QString message = done;
    try {
        command(site);
    } catch (const RuntimeError& error) {
        message = ToQt(error.what());
    }
    m_window->lblMessage->setText(message);
    m_window->lblMessage->setAccessibleName(message);
}

void SiteEditor::Save() {
    Run(
        [this](const ListedSite& site) {
            m_userSites.Save(site.key, FromQt(m_window->txtAddress->text().trimmed()));
            ShowSelected();
        },
        u"Saved in %1"_s.arg(PathToQt(m_userSites.File())));
}

void SiteEditor::Reset() {
    Run(
        [this](const ListedSite& site) {
            m_userSites.Remove(site.key);
            ShowSelected();
        },
        u"The shipped row is in force again"_s);
}

// A changed address is tried before it is saved; otherwise the page opens as by a click.
void SiteEditor::Try() {
    Run(
        [this](const ListedSite& site) {
            if (m_recording.templateMode)
                throw RuntimeError("A multi-link is being recorded.");
            const std::string address = FromQt(m_window->txtAddress->text().trimmed());
            const std::string flaw = FlawOfToday(address);
            if (!flaw.empty())
                throw RuntimeError("\"" + address + "\" " + flaw);
            const bool isTyped = address != site.row && !address.empty() &&
                                 address != kPortalTarget && m_mode == WebMode::Live;
            m_panes.Navigate(ToQt(isTyped ? FillToday(address, Ticker()) : site.built));
        },
        {});
}

} // namespace tallowmere
