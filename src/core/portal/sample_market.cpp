#include "core/portal/sample_market.h"

#include "core/text/bytes.h"
#include "core/text/runtime_error.h"

#include <charconv>
#include <cmath>

namespace tallowmere {

namespace {

constexpr std::size_t kFewestCloses = 2; // a change needs two

[[noreturn]] void Fail(std::size_t line, std::string_view what) {
    throw RuntimeError("sample market, line " + std::to_string(line) + ": " + std::string(what));
}

double ReadNumber(std::string_view text, std::size_t line) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc{} || rest != end || !std::isfinite(value) || value < 0)
        Fail(line, "\"" + std::string(text) + "\" is no number");
    return value;
}

SampleQuote ReadQuote(std::string_view text, std::size_t line) {
    const auto fields = Split(text, '|');
    if (fields.size() != 4)
        Fail(line, "symbol, name, shares and closes are expected");
    if (fields[0].empty())
        Fail(line, "the symbol is empty");
    SampleQuote quote{ToUpper(fields[0]), std::string(fields[1]), {}, ReadNumber(fields[2], line)};
    for (const std::string_view close : Split(fields[3], ' '))
        quote.closes.push_back(ReadNumber(close, line));
    if (quote.closes.size() < kFewestCloses)
        Fail(line, "two closes or more are expected");
    return quote;
}

} // namespace

SampleMarket SampleMarket::Parse(std::string_view text) {
    SampleMarket market;
    std::size_t number = 0;
    for (const std::string_view line : Split(text, '\n')) {
        ++number;
        if (line.empty() || line.front() == '#')
            continue;
        SampleQuote quote = ReadQuote(line, number);
        if (!market.m_bySymbol.emplace(quote.symbol, market.m_quotes.size()).second)
            Fail(number, quote.symbol + " occurs twice");
        market.m_quotes.push_back(std::move(quote));
    }
    return market;
}

const SampleQuote* SampleMarket::Find(std::string_view symbol) const {
    const auto found = m_bySymbol.find(ToUpper(symbol));
    return found == m_bySymbol.end() ? nullptr : &m_quotes[found->second];
}

} // namespace tallowmere
