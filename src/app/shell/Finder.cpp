#include "app/shell/Finder.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/forms/frmFinder.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "core/portfolio/ticker_list.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <map>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kFile = "finder.txt";
constexpr std::size_t kMostRows = 50;

FinderRow RowOf(const FinderItem& item, const FinderMatch& match, const QString& tickers) {
    FinderRow row{ToQt(KindName(item.kind)), {}, {}};
    // The tickers that it is opened for stand in front.
    const QString front = match.isForTickers ? tickers + u": "_s : QString();
    row.text = front + ToQt(item.text);
    const auto place = [&](std::size_t at) {
        return static_cast<int>(front.size() +
                                ToQt(std::string_view(item.text).substr(0, at)).size());
    };
    for (const FinderSpan& span : match.spans)
        row.marks.append({place(span.start), place(span.start + span.length) - place(span.start)});
    return row;
}

} // namespace

Finder::Finder(frmMain& form, const Clock& clock, const std::filesystem::path& programFolder,
               PaneDeck& panes, LinkPanel& panel, const LinkDispatch& dispatch,
               Portfolios& portfolios, std::function<FinderSources()> make)
    : QObject(&form), m_form(form), m_clock(clock), m_file(programFolder / kFile), m_panes(panes),
      m_panel(panel), m_dispatch(dispatch), m_portfolios(portfolios), m_make(std::move(make)) {
    connect(form.menus->At("findAnything"), &QAction::triggered, this, &Finder::Show);
}

Finder::~Finder() = default;

void Finder::Make() {
    m_sources = m_make();
    m_box = new frmFinder(&m_form);
    connect(m_box, &frmFinder::Typed, this, &Finder::Search);
    connect(m_box, &frmFinder::Chosen, this, &Finder::Open);
    connect(m_box, &frmFinder::AddWanted, this, &Finder::Add);
    connect(m_box, &frmFinder::RowChanged, this, &Finder::ShowHint);
    try {
        m_uses = UseRecord(ReadExistingFile(m_file, kMegabyte));
        m_isRecordRead = true;
    } catch (const RuntimeError& error) {
        m_panes.ShowLastingStatus(ToQt(error.what()));
    }
}

void Finder::Show() {
    if (!m_box)
        Make();
    if (!m_box->isVisible()) {
        Collect();
        m_box->Open();
        Search({});
    } else {
        m_box->Open();
    }
}

void Finder::Collect() {
    std::map<FinderKind, std::vector<std::pair<FinderItem, FinderSource*>>> offered;
    for (const auto& source : m_sources) {
        std::vector<FinderItem> items;
        source->Offer(items);
        for (FinderItem& item : items)
            offered[item.kind].emplace_back(std::move(item), source.get());
    }
    const Date today = m_clock.Today();
    std::vector<FinderItem> items;
    m_sourceOf.clear();
    for (auto& kind : offered)
        for (auto& [item, source] : kind.second) {
            item.use = m_uses.Of(item.key, today);
            items.push_back(std::move(item));
            m_sourceOf.push_back(source);
        }
    m_catalogue = std::make_unique<FinderCatalogue>(std::move(items));
}

QString Finder::Tickers(const std::vector<std::string>& tickers) const {
    QStringList names;
    for (const std::string& ticker : tickers)
        names << ToQt(ticker);
    return names.join(u", "_s);
}

void Finder::Search(const QString& line) {
    m_result = m_catalogue->Find(FromQt(line.left(kLongestFinderLine)), kMostRows);
    const QString tickers = Tickers(m_result.tickers);
    QList<FinderRow> rows;
    for (const FinderMatch& match : m_result.matches)
        rows << RowOf(m_catalogue->Items()[match.item], match, tickers);
    m_offerRow = kNoRow;
    if (m_result.offersTickers) {
        m_offerRow = static_cast<int>(m_result.offerAt);
        rows.insert(m_offerRow, {ToQt(KindName(FinderKind::Ticker)), tickers, {}});
    }
    m_box->ShowRows(std::move(rows), [this](int row) { return DetailOf(row); });
}

// The row that offers tickers is none of the matches.
const FinderMatch& Finder::MatchOf(int row) const {
    const int match = m_offerRow != kNoRow && row > m_offerRow ? row - 1 : row;
    return m_result.matches.at(static_cast<std::size_t>(match));
}

QString Finder::DetailOf(int row) const {
    if (row == m_offerRow)
        return m_result.unknown.empty() ? QString() : Tickers(m_result.unknown) + tr(" in no list");
    const FinderMatch& match = MatchOf(row);
    return m_sourceOf[match.item]->Detail(m_catalogue->Items()[match.item],
                                          match.isForTickers ? ToQt(m_result.tickers.front())
                                                             : QString());
}

bool Finder::CanAdd(int row) const {
    return !m_result.unknown.empty() &&
           (m_result.offersTickers || (row >= 0 && MatchOf(row).isForTickers));
}

void Finder::ShowHint(int row) {
    QString hint = row < 0 ? tr("Nothing found. Esc closes.")
                           : tr("Enter opens, with Ctrl in a new tab, with Shift in your browser. "
                                "Esc closes.");
    if (CanAdd(row))
        hint = tr("Tab adds %1 to the list. ").arg(Tickers(m_result.unknown)) + hint;
    m_box->lblHint->setText(LineStart(hint));
}

// What is opened may open a dialog, and the box be opened anew meanwhile.
void Finder::Open(int row, PagePlace place) {
    const bool isOffer = row == m_offerRow;
    const FinderMatch match = isOffer ? FinderMatch{0, {}, true} : MatchOf(row);
    const FinderItem item = isOffer ? FinderItem{} : m_catalogue->Items()[match.item];
    FinderSource* source = isOffer ? nullptr : m_sourceOf[match.item];
    const std::vector<std::string> tickers =
        match.isForTickers ? m_result.tickers : std::vector<std::string>{""};
    m_box->Dismiss();
    if (!isOffer)
        Note(item);
    bool isFirst = true;
    for (const std::string& ticker : tickers) {
        // Several pages are tabs, the first of them in front.
        const PagePlace where = tickers.size() == 1 || place == PagePlace::Outside ? place
                                : isFirst ? PagePlace::FrontTab
                                          : PagePlace::BackTab;
        isFirst = false;
        if (source)
            source->Open(item, where, ToQt(ticker));
        else
            m_panel.Open(m_dispatch.LastLink(), where, ToQt(ticker));
    }
}

// A page of the history is another one at the next start.
void Finder::Note(const FinderItem& item) {
    if (item.kind == FinderKind::History || !m_isRecordRead)
        return;
    m_uses.Note(item.key, m_clock.Today());
    try {
        WriteWholeFile(m_file, m_uses.Text());
    } catch (const RuntimeError& error) {
        m_panes.ShowLastingStatus(ToQt(error.what()));
    }
}

void Finder::Add() {
    if (!CanAdd(m_box->Row()))
        return;
    const std::vector<std::string> added = m_result.unknown;
    m_portfolios.AddTickers(added);
    m_panes.ShowLastingStatus(ToQt(EntryWords({added, true, {}, added.back()})));
    Collect();
    Search(m_box->txtFind->text());
}

} // namespace tallowmere
