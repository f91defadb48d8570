#include "app/portfolio/FinderPortfolios.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerBox.h"
#include "app/portfolio/TickerMarks.h"
#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

namespace {

constexpr std::string_view kPortfolioKey = "portfolio ";
constexpr std::string_view kTickerKey = "ticker ";
constexpr std::string_view kNoteKey = "note ";
constexpr std::size_t kNoteCharacters = 80;

QString TickerOf(const FinderItem& item) {
    return ToQt(item.key.substr(item.key.find(' ') + 1));
}

// Where no note can be read, none is offered; who opens one is told.
std::string ReadNotes(const std::filesystem::path& folder) {
    try {
        return ReadStore(folder, kTickerNotesFile);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

FinderPortfolios::FinderPortfolios(frmMain& form, const std::filesystem::path& programFolder,
                                   Portfolios& portfolios, TickerBox& tickers,
                                   const TickerMarks& marks, const LinkDispatch& dispatch,
                                   LinkPanel& panel)
    : m_form(form), m_programFolder(programFolder), m_portfolios(portfolios), m_tickers(tickers),
      m_marks(marks), m_dispatch(dispatch), m_panel(panel) {}

void FinderPortfolios::Offer(std::vector<FinderItem>& items) {
    for (int number = 1; number <= kPortfolioCount; ++number)
        items.push_back({FinderKind::Portfolio,
                         PortfolioItemText(number, FromQt(m_portfolios.PortfolioName(number))),
                         "",
                         std::string(kPortfolioKey) + std::to_string(number),
                         {},
                         0});
    OfferTickers(items);
}

void FinderPortfolios::OfferTickers(std::vector<FinderItem>& items) {
    m_homes.clear();
    const NoteIndex notes(ReadNotes(m_programFolder));
    const auto offer = [&](int number, const std::vector<std::string>& tickers) {
        for (const std::string& ticker : tickers) {
            if (ticker.empty() || m_homes.contains(ToQt(ticker)))
                continue;
            m_homes.insert(ToQt(ticker), number);
            items.push_back({FinderKind::Ticker,
                             ticker,
                             m_marks.NameOf(ticker),
                             std::string(kTickerKey) + ticker,
                             {},
                             0});
        }
    };
    offer(m_portfolios.Current(), m_portfolios.ListedTickers());
    for (int number = 1; number <= kPortfolioCount; ++number)
        if (number != m_portfolios.Current())
            offer(number, SplitTickerList(m_portfolios.StoredList(number)));
    for (const std::string_view ticker : notes.Keys())
        items.push_back(
            {FinderKind::Note,
             std::string(ticker) + ": " + FirstLine(notes.Find(ticker), kNoteCharacters),
             ShownLines(notes.Find(ticker)),
             std::string(kNoteKey).append(ticker),
             {},
             0});
}

QString FinderPortfolios::Detail(const FinderItem& item, const QString&) {
    if (item.kind == FinderKind::Portfolio)
        return {};
    const auto home = m_homes.constFind(TickerOf(item));
    const QString portfolio =
        home == m_homes.cend() ? QString() : m_portfolios.PortfolioName(*home);
    if (item.kind == FinderKind::Note || item.words.empty())
        return portfolio;
    return ToQt(item.words) + QStringLiteral(", ") + portfolio;
}

void FinderPortfolios::Select(const QString& ticker) {
    const auto home = m_homes.constFind(ticker);
    if (home != m_homes.cend() && *home != m_portfolios.Current())
        m_portfolios.SelectPortfolio(*home);
    const qsizetype row = m_form.List1->Items().indexOf(ticker);
    if (row >= 0)
        m_form.List1->SetListIndex(static_cast<int>(row));
    m_form.List1->setFocus();
}

void FinderPortfolios::Open(const FinderItem& item, PagePlace place, const QString&) {
    if (item.kind == FinderKind::Portfolio) {
        m_portfolios.SelectPortfolio(std::stoi(item.key.substr(kPortfolioKey.size())));
        return;
    }
    const QString ticker = TickerOf(item);
    // A note may be left of a ticker that is in no list any more.
    if (m_homes.contains(ticker))
        Select(ticker);
    if (item.kind == FinderKind::Note) {
        m_tickers.FillTickerMenu();
        // An empty box in place of a note that cannot be read would be saved over it.
        const NoteIndex notes(ReadStore(m_programFolder, kTickerNotesFile));
        m_tickers.EditNoteOn(ticker, ToQt(notes.Find(FromQt(ticker))));
    } else if (place != PagePlace::Pane) {
        m_panel.Open(m_dispatch.LastLink(), place, ticker);
    }
}

} // namespace tallowmere
