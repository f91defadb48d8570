#include "core/portfolio/ticker_scan.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace tallowmere;

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

std::ptrdiff_t CharacterCount(std::string_view text) {
    return std::count_if(text.begin(), text.end(), [](char c) { return !IsContinuation(c); });
}

/// The scan by its rules, word for word: cutting, searching from the start and comparing with each
/// item of the list.
std::vector<std::string> ScanByTheRules(std::string page, std::string prefix, std::string endMark,
                                        bool& found) {
    std::vector<std::string> list;
    auto at = page.find(prefix);
    while (at == std::string::npos && !prefix.empty()) {
        do
            prefix.erase(0, 1);
        while (!prefix.empty() && IsContinuation(prefix[0]));
        at = prefix.empty() ? std::string::npos : page.find(prefix);
    }
    found = at != std::string::npos;
    for (; at != std::string::npos; at = page.find(prefix)) {
        const auto end = page.find(endMark, at);
        if (end == std::string::npos)
            break;
        const auto from = at + prefix.size();
        if (end >= from) {
            const std::string candidate = page.substr(from, end - from);
            const bool listed = std::find(list.begin(), list.end(), candidate) != list.end();
            const bool digit = std::any_of(candidate.begin(), candidate.end(),
                                           [](char c) { return c >= '0' && c <= '9'; });
            if (candidate.size() <= 28 && CharacterCount(candidate) <= 7 && !listed && !digit)
                list.push_back(ToUpper(candidate));
        }
        page.erase(0, from);
    }
    return list;
}

} // namespace

// The first two bytes say where the ticker of the sample link starts and ends, the third how long
// the link is; the page is the rest. The scan gives what the rules give, word for word.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3)
        return 0;
    const std::string_view text(reinterpret_cast<const char*>(data) + 3, size - 3);
    const std::string_view link = text.substr(0, data[2] % 32);
    const std::string page(text.substr(link.size()));
    const auto sample = SplitSample(link, data[0] % 32, data[1] % 32);
    if (!sample || sample->prefix.empty())
        return 0;

    TickerScan scan(page, *sample);
    while (scan.Step()) {
    }
    bool found = false;
    const auto expected = ScanByTheRules(page, sample->prefix, sample->endMark, found);
    if (scan.Found() != found || scan.Symbols() != expected)
        std::abort();

    const auto sent = TickersToSend(scan.Symbols(), {"IBM"});
    if (std::find(sent.begin(), sent.end(), "") != sent.end() ||
        std::find(sent.begin(), sent.end(), "IBM") != sent.end())
        std::abort();
    return 0;
}
