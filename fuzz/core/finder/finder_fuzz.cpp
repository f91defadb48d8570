#include "core/finder/finder.h"

#include "check.h"
#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>

using namespace tallowmere;

namespace {

bool IsWhole(std::string_view text) {
    return WithoutHiddenCharacters(text, '\0') == text;
}

// Parts of a text in order, apart from each other, each of whole characters.
void CheckSpans(const FinderMatch& match, std::string_view text) {
    std::size_t from = 0;
    for (const FinderSpan& span : match.spans) {
        Check(span.length > 0 && span.start >= from && span.start + span.length <= text.size());
        Check(IsWhole(text.substr(span.start, span.length)));
        from = span.start + span.length + 1;
    }
}

} // namespace

// The input is a line and the texts and further words of items, apart by a byte that UTF-8 never
// has. Whatever they are, each item is found once at the most, and what is marked of it is there.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto pieces = Split(input, '\xFE');
    std::vector<FinderItem> items;
    for (std::size_t at = 1; at < pieces.size(); ++at)
        items.push_back({static_cast<FinderKind>(at % 10), std::string(pieces[at]),
                         std::string(pieces[at / 2]), std::to_string(at),
                         static_cast<FinderTickers>(at % 3), static_cast<double>(at % 4)});
    const std::size_t count = items.size();
    const FinderCatalogue catalogue(std::move(items));
    const FinderResult all = catalogue.Find(pieces[0], count);
    const FinderResult few = catalogue.Find(pieces[0], 3);

    std::set<std::size_t> seen;
    for (const FinderMatch& match : all.matches) {
        Check(match.item < count && seen.insert(match.item).second);
        Check(!match.isForTickers || !all.tickers.empty());
        CheckSpans(match, catalogue.Items()[match.item].text);
    }
    Check(few.matches.size() == std::min<std::size_t>(3, all.matches.size()));
    for (std::size_t at = 0; at < few.matches.size(); ++at)
        Check(few.matches[at].item == all.matches[at].item);
    Check(all.tickers.size() <= kMostFinderTickers);
    for (const std::string& ticker : all.tickers)
        Check(MayBeTicker(ticker) && ToUpper(ticker) == ticker);
    for (const std::string& ticker : all.unknown)
        Check(!catalogue.HasTicker(ticker));
    Check(catalogue.Find("").matches.size() == std::min<std::size_t>(50, count));
    return 0;
}
