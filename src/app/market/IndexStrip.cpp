#include "app/market/IndexStrip.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/market/index_strip.h"
#include "core/quotes/quote_age.h"
#include "core/quotes/time_text.h"
#include "core/sites/site_table.h"

#include <QPointer>

namespace tallowmere {

namespace {

constexpr int kFirstTickMilliseconds = 1000;
constexpr int kTickMilliseconds = 60000;
constexpr int kChunkSize = 1000000;
constexpr double kLongestWaitSeconds = 15;

std::string_view View(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

IndexStrip::IndexStrip(frmMain& form, const SiteTable& sites, const Clock& clock, PaneDeck& panes,
                       TransferControl& spooNet)
    : QObject(&form), m_form(form), m_sites(sites), m_clock(clock), m_panes(panes),
      m_spooNet(spooNet) {
    for (int panel = 1; panel <= StripBar::kPanels; ++panel) {
        form.SpooBar->SetPanelHint(panel, tr("Quotes awaited"));
        form.SpooBar->SetPanelNote(panel, tr("The quotes of the indices are awaited."));
    }
    Timer1.setInterval(kFirstTickMilliseconds);
    connect(&Timer1, &QTimer::timeout, this, &IndexStrip::Tick);
    connect(form.SpooBar, &StripBar::Clicked, this, &IndexStrip::OpenDetails);
    connect(form.SpooBar, &StripBar::NotePointedAt, this, [this](const QString& note) {
        m_panes.ShowStatus(note.isEmpty() ? m_panes.Front()->LocationURL() : note);
    });
}

void IndexStrip::Start() {
    Timer1.start();
}

void IndexStrip::Tick() {
    if (m_fetching)
        return;
    const double clock = m_clock.SecondsSinceMidnight();
    if (!FetchIsDue(clock, m_lastFetch))
        return;
    m_lastFetch = FetchMark(clock);
    Timer1.setInterval(kTickMilliseconds);
    const QPointer<IndexStrip> alive(this);
    m_fetching = true;
    Fetch();
    if (alive)
        m_fetching = false;
}

void IndexStrip::Fetch() {
    const QPointer<IndexStrip> alive(this);
    // The wait for the rest of the page is measured from midnight, or from one second after it in
    // the afternoon: in practice there is one further read.
    const double start = m_clock.SecondsSinceMidnight() < 12 * 3600 ? 0 : 1;
    QByteArray page = m_spooNet.OpenURL(ToQt(m_sites.Address("quote_server", IndexQuery())));
    while (alive && !IsCompleteIndexPage(View(page))) {
        page = m_spooNet.GetChunk(kChunkSize);
        if (!alive || IsCompleteIndexPage(View(page)) ||
            m_clock.SecondsSinceMidnight() - start > kLongestWaitSeconds || page.isEmpty())
            break;
    }
    if (!alive)
        return;
    StripBar& strip = *m_form.SpooBar;
    int panel = 1;
    for (const std::string& text : ReadIndexPage(View(page))) {
        const IndexRow& row = IndexTable()[static_cast<std::size_t>(panel - 1)];
        m_written.at(static_cast<std::size_t>(panel - 1)) = Now();
        strip.SetPanelNote(panel, ToQt(ReadIndexNote(View(page), row)));
        strip.SetPanelAge(panel, ToQt(ReadIndexAge(View(page), row)));
        strip.SetPanelText(panel++, ToQt(text));
    }
    for (; panel <= StripBar::kPanels; ++panel)
        ShowMissing(panel,
                    ReadIndexNote(View(page), IndexTable()[static_cast<std::size_t>(panel - 1)]));
}

/// A panel that got no text from the last page says so, beside the text that it has.
void IndexStrip::ShowMissing(int panel, const std::string& reason) {
    const QString why =
        reason.empty() ? tr("The page of the indices did not come, or says nothing about this one.")
                       : ToQt(reason);
    m_form.SpooBar->SetPanelHint(panel, tr("No quotes"));
    const std::int64_t written = m_written.at(static_cast<std::size_t>(panel - 1));
    if (written == 0) {
        m_form.SpooBar->SetPanelNote(panel, why);
        return;
    }
    m_form.SpooBar->SetPanelAge(panel, ToQt(AgeText(written, Now())));
    m_form.SpooBar->SetPanelNote(panel,
                                 tr("Not renewed since %1: %2").arg(ToQt(ShowTime(written)), why));
}

std::int64_t IndexStrip::Now() const {
    return m_clock.Now().toSecsSinceEpoch();
}

void IndexStrip::OpenDetails() {
    m_panes.ShowFirst();
    m_form.Web->Navigate(ToQt(m_sites.Address("quote_server", DetailedIndexQuery())));
}

} // namespace tallowmere
