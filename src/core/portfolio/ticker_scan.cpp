#include "core/portfolio/ticker_scan.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <functional>

namespace tallowmere {

namespace {

/// How much of the page one step reads: a few milliseconds of work.
constexpr std::size_t kStepSize = 256U * 1024;
constexpr std::size_t kLongestTicker = 7;

/// Whether the byte goes on with a character of UTF-8 that began before.
bool ContinuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

bool IsTooLong(std::string_view candidate) {
    return candidate.size() > 4 * kLongestTicker ||
           std::count_if(candidate.begin(), candidate.end(), [](char c) {
               return !ContinuesCharacter(c);
           }) > static_cast<std::ptrdiff_t>(kLongestTicker);
}

bool HoldsDigit(std::string_view candidate) {
    return candidate.find_first_of("0123456789") != std::string_view::npos;
}

} // namespace

std::optional<ScanSample> SplitSample(std::string_view link, std::size_t start,
                                      std::size_t length) {
    if (start == 0)
        return std::nullopt;
    start = std::min(start, link.size());
    const std::string_view after = link.substr(start + std::min(length, link.size() - start));
    ScanSample sample{std::string(link.substr(0, start)), "\""};
    if (!after.empty()) {
        std::size_t size = 1;
        while (size < after.size() && ContinuesCharacter(after[size]))
            ++size;
        sample.endMark = after.substr(0, size);
    }
    return sample;
}

Matcher::Matcher(std::string pattern) : m_pattern(std::move(pattern)), m_borders{0, 0} {
    for (std::size_t i = 1; i < m_pattern.size(); ++i)
        m_borders.push_back(Advance(m_borders.back(), m_pattern[i]));
}

std::size_t Matcher::Advance(std::size_t matched, char next) const {
    while (matched > 0 && (matched == m_pattern.size() || m_pattern[matched] != next))
        matched = m_borders[matched];
    return matched < m_pattern.size() && m_pattern[matched] == next ? matched + 1 : 0;
}

std::size_t SymbolList::FindSlot(std::string_view symbol) const {
    std::size_t slot = std::hash<std::string_view>{}(symbol) & (m_slots.size() - 1);
    while (m_slots[slot] != 0 && m_symbols[m_slots[slot] - 1] != symbol)
        slot = (slot + 1) & (m_slots.size() - 1);
    return slot;
}

void SymbolList::Add(std::string symbol) {
    m_symbols.push_back(std::move(symbol));
    m_slots[FindSlot(m_symbols.back())] = m_symbols.size();
    if (m_symbols.size() * 2 <= m_slots.size())
        return;
    m_slots.assign(m_slots.size() * 2, 0);
    for (std::size_t i = 0; i < m_symbols.size(); ++i)
        m_slots[FindSlot(m_symbols[i])] = i + 1;
}

TickerScan::TickerScan(std::string page, ScanSample sample)
    : m_page(std::move(page)), m_prefix(std::move(sample.prefix)),
      m_endMark(std::move(sample.endMark)), m_matcher(m_prefix) {
    if (m_prefix.empty() || m_endMark.empty())
        m_state = State::Ended;
}

bool TickerScan::Step() {
    if (m_state == State::Collecting)
        Collect();
    else if (m_state == State::Shortening)
        Shorten();
    return m_state != State::Ended;
}

void TickerScan::Collect() {
    const std::size_t end = m_position + std::min(kStepSize, m_page.size() - m_position);
    while (m_position < end) {
        if (m_matched == 0) {
            // Nearly all of a page is passed over here, at the speed of a search for one byte.
            m_position = std::min(
                std::string_view(m_page).substr(0, end).find(m_prefix[0], m_position), end);
            if (m_position == end)
                break;
        }
        m_matched = m_matcher.Advance(m_matched, m_page[m_position]);
        ++m_position;
        if (m_matched < m_prefix.size())
            continue;
        m_found = true;
        m_matched = 0;
        if (!Take(m_position)) {
            m_state = State::Ended;
            return;
        }
    }
    if (m_position < m_page.size())
        return;
    const bool shortens = !m_found && !m_shortened;
    m_state = shortens ? State::Shortening : State::Ended;
    if (shortens)
        m_matcher = Matcher(std::string(m_prefix.rbegin(), m_prefix.rend()));
    m_matched = 0;
}

/// Lists the candidate behind one occurrence of the prefix when it is a ticker. False when no end
/// mark follows any more, which ends the scan.
bool TickerScan::Take(std::size_t prefixEnd) {
    const std::size_t prefixStart = prefixEnd - m_prefix.size();
    // The same end mark serves all occurrences before it, so that a page with one mark at its very
    // end is not searched again for each of them.
    if (!m_endMarkAt || *m_endMarkAt < prefixStart)
        m_endMarkAt = m_page.find(m_endMark, prefixStart);
    if (*m_endMarkAt == std::string::npos)
        return false;
    if (*m_endMarkAt < prefixEnd)
        return true;
    const auto candidate = std::string_view(m_page).substr(prefixEnd, *m_endMarkAt - prefixEnd);
    if (IsTooLong(candidate) || HoldsDigit(candidate))
        return true;
    // Compared as it stands with what is listed in upper case: a symbol that the page writes in
    // lower case is listed each time.
    if (!m_symbols.Holds(candidate))
        m_symbols.Add(ToUpper(candidate));
    return true;
}

/// The longest end of the prefix that occurs is the longest start of the reversed prefix that
/// occurs in the reversed page, so one walk from the page's end finds it.
void TickerScan::Shorten() {
    const std::size_t end = m_position - std::min(kStepSize, m_position);
    while (m_position > end) {
        --m_position;
        m_matched = m_matcher.Advance(m_matched, m_page[m_position]);
        m_longest = std::max(m_longest, m_matched);
    }
    if (m_position == 0)
        EndShortening();
}

void TickerScan::EndShortening() {
    std::size_t start = m_prefix.size() - m_longest;
    while (start < m_prefix.size() && ContinuesCharacter(m_prefix[start]))
        ++start;
    m_prefix.erase(0, start);
    m_matcher = Matcher(m_prefix);
    m_matched = 0;
    m_shortened = true;
    m_state = m_prefix.empty() ? State::Ended : State::Collecting;
}

std::vector<std::string> TickersToSend(const std::vector<std::string>& collected,
                                       const std::vector<std::string>& portfolio) {
    SymbolList held;
    for (const std::string& ticker : portfolio)
        held.Add(ticker);
    // The comparison runs one item past the end of the portfolio, where it reads the empty text: an
    // empty ticker is thus always there already.
    held.Add("");
    std::vector<std::string> added;
    for (const std::string& ticker : collected) {
        if (held.Holds(ticker))
            continue;
        held.Add(ticker);
        added.push_back(ticker);
    }
    return added;
}

} // namespace tallowmere
