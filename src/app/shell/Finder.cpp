#include "app/shell/Finder.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmFinder.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "core/links/smart_navigate.h"
#include "core/portfolio/ticker_list.h"
#include "core/shell/commands.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <map>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kFile = "finder.txt";
constexpr std::size_t kMostRows = 50;
constexpr const char* kSmartNavigate = "link80";

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
    connect(form.menus->At("openAddress"), &QAction::triggered, this, &Finder::ShowAddress);
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
    if (m_box && m_box->isVisible() && !m_wantsAddress) {
        m_box->SelectLine();
        return;
    }
    m_wantsAddress = false;
    OpenWith({});
}

// The address of a page of the program's own says nothing to anybody.
void Finder::ShowAddress() {
    m_wantsAddress = true;
    const QString address = m_panes.Front()->RealAddress();
    OpenWith(IsWebUrl(UrlFromAddress(address)) ? address : QString());
}

void Finder::OpenWith(const QString& line) {
    if (!m_box)
        Make();
    if (!m_box->isVisible())
        Collect();
    m_box->Open(line, m_wantsAddress ? tr("An address, or what is to be found")
                                     : tr("A link, a command, a note ... or: a ticker, a blank and "
                                          "a link; /p and a portfolio"));
    Search(line);
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
    ReadTyped(line);
    m_rows.clear();
    for (FinderMatch& match : m_result.matches)
        m_rows.push_back({Row::What::Match, std::move(match)});
    // What the line is itself stands behind what holds all its words; an address that is wanted
    // stands in front.
    auto offer = m_rows.begin() + static_cast<std::ptrdiff_t>(m_result.offerAt);
    const bool isWholeAddress =
        m_typed && m_wantsAddress && m_typed->text == FromQt(line.trimmed());
    if (m_typed && !isWholeAddress)
        offer = m_rows.insert(offer, {Row::What::Typed, {}});
    if (m_result.offersTickers)
        m_rows.insert(offer, {Row::What::Tickers, {}});
    if (isWholeAddress)
        m_rows.insert(m_rows.begin(), {Row::What::Typed, {}});
    if (m_wantsAddress)
        m_rows.push_back({Row::What::SmartNavigate, {}});
    QList<FinderRow> rows;
    for (const Row& row : m_rows)
        rows << Shown(row);
    m_box->ShowRows(std::move(rows), [this](int row) { return DetailOf(row); });
}

// Where an address is wanted the name of a site is one, as in smart navigate.
void Finder::ReadTyped(const QString& line) {
    m_typed.reset();
    const std::string text = FromQt(line);
    const std::string wanted = m_wantsAddress ? CompleteEntry(text) : text;
    for (const auto& source : m_sources)
        if (!m_typed) {
            m_typed = source->Read(wanted);
            m_typedSource = source.get();
        }
}

FinderRow Finder::Shown(const Row& row) const {
    switch (row.what) {
    case Row::What::Tickers:
        return {ToQt(KindName(FinderKind::Ticker)), Tickers(m_result.tickers), {}};
    case Row::What::Typed:
        return RowOf(*m_typed, {}, {});
    case Row::What::SmartNavigate:
        return {ToQt(KindName(FinderKind::Command)),
                ToQt(SpokenCaption(FromQt(SmartNavigate()->text()))),
                {}};
    case Row::What::Match:
        break;
    }
    return RowOf(m_catalogue->Items()[row.match.item], row.match, Tickers(m_result.tickers));
}

QAction* Finder::SmartNavigate() const {
    return m_form.menus->At(kSmartNavigate);
}

QString Finder::DetailOf(int at) const {
    const Row& row = At(at);
    switch (row.what) {
    case Row::What::Tickers:
        return m_result.unknown.empty() ? QString() : Tickers(m_result.unknown) + tr(" in no list");
    case Row::What::Typed:
        return m_typedSource->Detail(*m_typed, {});
    case Row::What::SmartNavigate:
        return SmartNavigate()->shortcut().toString(QKeySequence::NativeText);
    case Row::What::Match:
        break;
    }
    return m_sourceOf[row.match.item]->Detail(
        m_catalogue->Items()[row.match.item],
        row.match.isForTickers ? ToQt(m_result.tickers.front()) : QString());
}

bool Finder::CanAdd(int row) const {
    return !m_result.unknown.empty() &&
           (m_result.offersTickers || (row >= 0 && At(row).match.isForTickers));
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
void Finder::Open(int at, PagePlace place) {
    const Row row = At(at);
    const std::optional<FinderItem> typed = m_typed;
    FinderSource* typedSource = m_typedSource;
    m_box->Dismiss();
    if (row.what == Row::What::SmartNavigate)
        SmartNavigate()->trigger();
    else if (row.what == Row::What::Typed)
        typedSource->Open(*typed, place, {});
    else
        OpenFor(row, place);
}

void Finder::OpenFor(const Row& row, PagePlace place) {
    const bool isMatch = row.what == Row::What::Match;
    const FinderItem item = isMatch ? m_catalogue->Items()[row.match.item] : FinderItem{};
    FinderSource* source = isMatch ? m_sourceOf[row.match.item] : nullptr;
    const std::vector<std::string> tickers =
        !isMatch || row.match.isForTickers ? m_result.tickers : std::vector<std::string>{""};
    if (isMatch)
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

// A page of the history is another one at the next start; what an address holds may be private.
void Finder::Note(const FinderItem& item) {
    if (item.kind == FinderKind::History || item.kind == FinderKind::Address || !m_isRecordRead)
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
