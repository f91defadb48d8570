#include "core/portfolio/report.h"

#include "core/links/address.h"
#include "core/links/web_address.h"
#include "core/portfolio/ticker_list.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

constexpr int kTickersPerLine = 10;
constexpr std::string_view kSeparator = ", ";
constexpr std::string_view kLeader = ".......";

constexpr int kTitlePoints = 12; // what a printer starts with
constexpr int kDatePoints = 15;
constexpr int kTextPoints = 11;

/// The date as m/d/yyyy, the same on every machine.
std::string ShortDate(Date date) {
    return std::to_string(date.month) + "/" + std::to_string(date.day) + "/" +
           std::to_string(date.year);
}

std::string Heading(const StoredPortfolio& portfolio) {
    return "Portfolio #" + std::to_string(portfolio.number) + " : " + portfolio.name;
}

/// Gathers tickers without a note into lines of ten, separated by commas.
class PendingLine {
public:
    /// Adds one ticker; true when the line is full now.
    bool Add(std::string_view ticker) {
        m_text.append(ticker).append(kSeparator);
        return ++m_count == kTickersPerLine;
    }

    bool IsEmpty() const { return m_text.empty(); }

    /// The line without the separator at its end; a new one begins.
    std::string Take() {
        m_text.resize(m_text.size() - kSeparator.size());
        m_count = 0;
        return std::exchange(m_text, {});
    }

private:
    std::string m_text;
    int m_count = 0;
};

std::string QuoteLink(std::string_view ticker, const SiteTable& sites) {
    const std::string path =
        "/click?page=quote&symbol=" + PercentEncode(ToUpper(ticker)) + "&button=Go";
    return "<a href=\"" + WithScheme(sites.Address("quicken_click", path)) + "\">" +
           EscapeHtml(ticker) + "</a>";
}

void AppendTickers(std::string& page, std::string_view storedList, const NoteIndex& notes,
                   const SiteTable& sites) {
    constexpr std::string_view kNotedEnd = "\"</font></b>";
    PendingLine pending;
    // A ticker with a note has a line of its own: what follows it begins a new one.
    const auto flush = [&] {
        if (page.ends_with(kNotedEnd))
            page.append("<br>");
        page.append(pending.Take()).append("<br>");
    };
    for (const std::string& ticker : SplitTickerList(storedList)) {
        const std::string_view note = notes.Find(ticker);
        const std::string link = QuoteLink(ticker, sites);
        if (!note.empty()) {
            page.append("<br><b>").append(link).append("&nbsp;&nbsp;&nbsp;&nbsp;");
            page.append(kLeader).append("<font color=\"#008000\">\"");
            page.append(EscapeHtml(note)).append(kNotedEnd);
        } else if (pending.Add(link)) {
            flush();
        }
    }
    if (!pending.IsEmpty())
        flush();
}

/// A note may hold line breaks; each of its lines is a line on paper.
void AppendLines(std::vector<PrintedLine>& lines, std::string_view text, int points, bool bold) {
    for (std::string_view line : Split(text, '\n')) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back({std::string(line), points, bold});
    }
}

void PrintTickers(std::vector<PrintedLine>& lines, std::string_view storedList,
                  const NoteIndex& notes) {
    PendingLine pending;
    for (const std::string& ticker : SplitTickerList(storedList)) {
        const std::string_view note = notes.Find(ticker);
        if (!note.empty())
            AppendLines(lines,
                        ticker + "    " + std::string(kLeader) + "\"" + std::string(note) + "\"",
                        kTextPoints, false);
        else if (pending.Add(ticker))
            AppendLines(lines, pending.Take(), kTextPoints, false);
    }
    if (!pending.IsEmpty())
        AppendLines(lines, pending.Take(), kTextPoints, false);
}

} // namespace

std::string ReportPage(std::span<const StoredPortfolio> portfolios, const NoteIndex& notes,
                       Date today, const SiteTable& sites) {
    std::string body;
    std::size_t total = 0;
    for (const StoredPortfolio& portfolio : portfolios) {
        if (portfolio.tickers.empty())
            continue;
        const std::size_t count = CountOccurrences(portfolio.tickers, "|");
        total += count;
        body += "<big><big>" + EscapeHtml(Heading(portfolio)) + "</big> (" + std::to_string(count) +
                ")</big><br>";
        AppendTickers(body, portfolio.tickers, notes, sites);
        body += "<br><br>";
    }
    return "<big><big>Quorvane Portfolio Report : " + ShortDate(today) + "<br></big>" +
           std::to_string(total) + " Stocks </big><br><br>" + body;
}

std::vector<PrintedLine> PrintedReport(std::span<const StoredPortfolio> portfolios,
                                       const NoteIndex& notes, Date today) {
    std::vector<PrintedLine> lines{{"Quorvane Portfolio Report", kTitlePoints, false},
                                   {ShortDate(today), kDatePoints, false}};
    for (const StoredPortfolio& portfolio : portfolios) {
        if (portfolio.tickers.empty())
            continue;
        AppendLines(lines, "\r\n" + Heading(portfolio) + "\r\n", kTextPoints, true);
        PrintTickers(lines, portfolio.tickers, notes);
    }
    return lines;
}

} // namespace tallowmere
