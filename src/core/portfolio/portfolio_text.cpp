#include "core/portfolio/portfolio_text.h"

#include "core/portfolio/keyed_store.h"
#include "core/text/bytes.h"
#include "core/text/runtime_error.h"

namespace tallowmere {

namespace {

constexpr std::string_view kSeparator = ", ";

} // namespace

std::string PortfolioText(std::string_view storedList) {
    std::string text = ReplaceAll(storedList, "|", kSeparator);
    if (text.empty())
        return text;
    if (text.size() < kSeparator.size())
        throw RuntimeError("The stored ticker list \"" + text + "\" is damaged");
    text.resize(text.size() - kSeparator.size());
    return text;
}

std::string AllPortfoliosText(std::span<const StoredPortfolio> portfolios) {
    std::string text;
    for (const StoredPortfolio& portfolio : portfolios) {
        if (portfolio.tickers.empty())
            continue;
        text += "Portfolio #" + std::to_string(portfolio.number) + "\r\n" +
                PortfolioText(portfolio.tickers) + "\r\n\r\n";
    }
    return text;
}

TickerMenu MakeTickerMenu(const std::string* ticker, std::string_view note, int current,
                          bool listIsEmpty) {
    TickerMenu menu{};
    menu.hasTicker = ticker != nullptr;
    if (ticker) {
        menu.deleteCaption = "Delete " + *ticker;
        menu.moveCaption = "Move " + *ticker + " to :";
        menu.copyCaption = "Copy " + *ticker + " to :";
        menu.noteCaption = "Notes on " + *ticker;
        menu.note = note;
        menu.noteLine = FirstLine(note);
    } else {
        menu.deleteCaption = "Delete";
        menu.moveCaption = "Move to :";
        menu.copyCaption = "Copy to :";
        menu.noteCaption = "Note";
    }
    menu.hasList = !listIsEmpty;
    menu.copyAllCaption = "Copy Portfolio #" + std::to_string(current);
    for (int n = 1; n <= kPortfolioCount; ++n)
        menu.targets[static_cast<std::size_t>(n - 1)] = n != current;
    return menu;
}

} // namespace tallowmere
