#include "core/quotes/source_table.h"

#include "core/links/web_address.h"
#include "core/text/tolerant_toml.h"

#include <algorithm>
#include <optional>

namespace tallowmere {

namespace {

template <typename Value>
struct Named {
    std::string_view name;
    Value value;
};

// clang-format off
constexpr Named<SourceFormat> kFormats[] = {
    {"yahoo-chart",  SourceFormat::YahooChart},
    {"yahoo-spark",  SourceFormat::YahooSpark},
    {"cnbc",         SourceFormat::Cnbc},
    {"nasdaq",       SourceFormat::Nasdaq},
    {"cboe",         SourceFormat::Cboe},
    {"fred-csv",     SourceFormat::FredCsv},
    {"treasury-csv", SourceFormat::TreasuryCsv},
};

constexpr Named<PriceSpan> kSpans[] = {
    {"quote",     PriceSpan::Quote},
    {"year",      PriceSpan::Year},
    {"five-days", PriceSpan::FiveDays},
    {"day",       PriceSpan::Day},
};

constexpr Named<std::string SourceRow::*> kTexts[] = {
    {"name",       &SourceRow::name},
    {"request",    &SourceRow::request},
    {"item",       &SourceRow::item},
    {"index_item", &SourceRow::indexItem},
    {"separator",  &SourceRow::separator},
    {"user_agent", &SourceRow::userAgent},
};

template <typename Row>
struct Count {
    std::string_view name;
    int Row::*value;
    int least;
    int most;
};

constexpr Count<SourceRow> kCounts[] = {
    {"batch",        &SourceRow::batch,        1,  1000},
    {"min_interval", &SourceRow::minInterval, 15, 86400},
    {"daily_cap",    &SourceRow::dailyCap,     0, 1000000},
    {"timeout",      &SourceRow::timeout,      1,   120},
};

constexpr Named<std::string CompanySource::*> kCompanyTexts[] = {
    {"name",       &CompanySource::name},
    {"request",    &CompanySource::request},
    {"user_agent", &CompanySource::userAgent},
    {"contact",    &CompanySource::contact},
};

constexpr Count<CompanySource> kCompanyCounts[] = {
    {"min_interval", &CompanySource::minInterval, 7 * 86400, 365 * 86400},
    {"timeout",      &CompanySource::timeout,             1,         120},
};
// clang-format on

template <typename Value, std::size_t N>
std::optional<Value> FindNamed(const Named<Value> (&rows)[N], std::string_view name) {
    for (const auto& row : rows)
        if (row.name == name)
            return row.value;
    return std::nullopt;
}

/// Whether a text can be part of an address or of a header: no blanks at the ends, nothing that
/// could start a header of its own.
bool HoldsControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte >= 0x7F;
    });
}

/// Whether a text is a web address whose host is fixed.
bool IsRequest(const std::string& request) {
    SourceRow row;
    row.request = request;
    return IsWebAddress(request) && row.Host().find('{') == std::string::npos;
}

template <typename Row>
void ReadText(TolerantToml& file, std::string_view key, const toml::node& value, Row& row,
              std::string Row::*member) {
    const auto text = value.value<std::string>();
    if (!text || HoldsControl(*text))
        file.Complain(value, std::string(key) + " is not a plain text in quotes");
    else if (key == "request" && !IsRequest(*text))
        file.Complain(value, "request is no http or https address");
    else
        row.*member = *text;
}

void ReadSpans(TolerantToml& file, const toml::node& value, SourceRow& row) {
    std::vector<PriceSpan> spans;
    if (const toml::array* list = value.as_array())
        for (const auto& element : *list)
            if (const auto span = FindNamed(kSpans, element.value_or(std::string_view())))
                spans.push_back(*span);
    if (spans.empty() || spans.size() != value.as_array()->size())
        file.Complain(value,
                      R"(gives is a list of "quote", "year", "five-days" and "day", one at least)");
    else
        row.gives = std::move(spans);
}

template <typename Row>
void ReadCount(TolerantToml& file, const Count<Row>& count, const toml::node& value, Row& row) {
    const auto number = value.as_integer() ? value.value<std::int64_t>() : std::nullopt;
    if (!number || *number < count.least || *number > count.most)
        file.Complain(value, std::string(count.name) + " is not a number from " +
                                 std::to_string(count.least) + " to " + std::to_string(count.most));
    else
        row.*count.value = static_cast<int>(*number);
}

/// Reads what rows of any kind hold; whether the value is of that sort.
template <typename Row, std::size_t Texts, std::size_t Counts>
bool ReadCommon(TolerantToml& file, std::string_view key, const toml::node& value, Row& row,
                const Named<std::string Row::*> (&texts)[Texts],
                const Count<Row> (&counts)[Counts]) {
    if (const auto member = FindNamed(texts, key)) {
        ReadText(file, key, value, row, *member);
        return true;
    }
    for (const Count<Row>& count : counts)
        if (count.name == key) {
            ReadCount(file, count, value, row);
            return true;
        }
    if (key != "enabled")
        return false;
    if (value.is_boolean())
        row.enabled = value.value_or(true);
    else
        file.Complain(value, "enabled is neither true nor false");
    return true;
}

void ReadValue(TolerantToml& file, std::string_view key, const toml::node& value, SourceRow& row) {
    if (ReadCommon(file, key, value, row, kTexts, kCounts))
        return;
    if (key == "format") {
        if (const auto format = FindNamed(kFormats, value.value_or(std::string_view())))
            row.format = *format;
        else
            file.Complain(value, "unknown format");
    } else if (key == "gives") {
        ReadSpans(file, value, row);
    } else {
        file.Complain(value, "unknown entry \"" + std::string(key) + "\"");
    }
}

void ReadRow(TolerantToml& file, std::string_view key, const toml::node& node, SourceTable& table) {
    const toml::table* values = node.as_table();
    if (!values)
        return file.Complain(node, "\"" + std::string(key) + "\" is not a table");
    const auto known = std::find_if(table.rows.begin(), table.rows.end(),
                                    [&](const SourceRow& row) { return row.key == key; });
    SourceRow row = known == table.rows.end() ? SourceRow() : *known;
    row.key = key;
    for (const auto& [name, value] : *values)
        ReadValue(file, name.str(), value, row);
    if (row.name.empty())
        row.name = row.key;
    if (known != table.rows.end())
        *known = std::move(row);
    else if (!row.request.empty() && values->contains("format"))
        table.rows.push_back(std::move(row));
    else
        file.Complain(node, "a new source needs a format and a request");
}

void ReadCompanySource(TolerantToml& file, const toml::table& values, CompanySource& source) {
    for (const auto& [name, value] : values)
        if (!ReadCommon(file, name.str(), value, source, kCompanyTexts, kCompanyCounts))
            file.Complain(value, "unknown entry \"" + std::string(name.str()) + "\"");
}

void PutInOrder(TolerantToml& file, const toml::node& node, SourceTable& table) {
    const toml::array* order = node.as_array();
    if (!order)
        return file.Complain(node, "order is not a list of sources");
    auto next = table.rows.begin();
    for (const auto& element : *order) {
        const auto key = element.value_or(std::string_view());
        const auto found = std::find_if(next, table.rows.end(),
                                        [&](const SourceRow& row) { return row.key == key; });
        if (found == table.rows.end())
            file.Complain(element, "order names an unknown source, or one twice");
        else
            std::rotate(next++, found, found + 1);
    }
}

} // namespace

Dialect SourceRow::SpelledIn() const {
    switch (format) {
    case SourceFormat::YahooChart:
    case SourceFormat::YahooSpark:
        return Dialect::Yahoo;
    case SourceFormat::Cnbc:
        return Dialect::Cnbc;
    case SourceFormat::Nasdaq:
        return Dialect::Nasdaq;
    case SourceFormat::Cboe:
        return Dialect::Cboe;
    case SourceFormat::FredCsv:
        return Dialect::Fred;
    case SourceFormat::TreasuryCsv:
        break;
    }
    return Dialect::Treasury;
}

bool SourceRow::Gives(PriceSpan span) const {
    return std::find(gives.begin(), gives.end(), span) != gives.end();
}

std::string SourceRow::Host() const {
    const auto start = request.find("//");
    if (start == std::string::npos)
        return {};
    return request.substr(start + 2, request.find_first_of("/?#", start + 2) - start - 2);
}

SourceTable ReadSourceTable(std::string_view text, std::string_view fileName, SourceTable base) {
    TolerantToml file = ReadTolerantly(text, fileName);
    SourceTable table = std::move(base);
    const toml::table root = std::move(file.root); // a copy would forget the lines
    for (const auto& [key, value] : root) {
        if (key.str() == "version" && value.is_integer())
            table.version = static_cast<int>(
                std::clamp<std::int64_t>(value.value_or(std::int64_t{0}), 0, 1000000));
        else if (key.str() == "user_agent" && value.is_string() &&
                 !HoldsControl(value.value_or(std::string_view())))
            table.userAgent = value.value_or(std::string());
        else if (key.str() == "sources" && value.is_table())
            for (const auto& [source, row] : *value.as_table())
                ReadRow(file, source.str(), row, table);
        else if (key.str() == "companies" && value.is_table())
            ReadCompanySource(file, *value.as_table(), table.companies);
        else if (key.str() != "order")
            file.Complain(value, "unknown or wrong entry \"" + std::string(key.str()) + "\"");
    }
    if (const toml::node* order = root.get("order"))
        PutInOrder(file, *order, table);
    table.problems.insert(table.problems.end(), file.problems.begin(), file.problems.end());
    return table;
}

} // namespace tallowmere
