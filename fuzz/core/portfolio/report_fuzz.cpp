#include "core/portfolio/report.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::string_view kTags[] = {"<a href=\"http://click.test/click?page=quote&symbol=",
                                      "</a>",
                                      "<b>",
                                      "</b>",
                                      "<big>",
                                      "</big>",
                                      "<br>",
                                      "<font color=\"#008000\">",
                                      "</font>"};

/// Whether every tag of the page is one of ours: nothing of the input is read as HTML.
bool HoldsOnlyOurTags(std::string_view page) {
    for (auto at = page.find('<'); at != std::string_view::npos; at = page.find('<', at + 1)) {
        if (std::ranges::none_of(
                kTags, [&](std::string_view tag) { return page.substr(at).starts_with(tag); }))
            return false;
    }
    return true;
}

} // namespace

// The parts of the input are names and lists of portfolios in turn; the last one is the file of
// notes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    static const SiteTable sites =
        SiteTable::Parse("[hosts]\nquicken_click = \"click.test\"\n", "sites.toml");
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    std::vector<std::string_view> parts = Split(input, '\x01');
    const std::string notes(parts.back());
    parts.pop_back();
    std::vector<StoredPortfolio> portfolios;
    for (std::size_t i = 0; i + 1 < parts.size() && i < 2 * kPortfolioCount; i += 2)
        portfolios.push_back(
            {static_cast<int>(i / 2) + 1, std::string(parts[i]), std::string(parts[i + 1])});

    const NoteIndex index(notes);
    const std::string page = ReportPage(portfolios, index, {2026, 11, 21}, sites);
    if (!page.starts_with("<big><big>Quorvane Portfolio Report : 11/21/2026<br></big>") ||
        !HoldsOnlyOurTags(page))
        std::abort();
    for (const PrintedLine& line : PrintedReport(portfolios, index, {2026, 11, 21})) {
        if (Contains(line.text, "\n") || line.points < 11 || line.points > 15)
            std::abort();
    }
    return 0;
}
