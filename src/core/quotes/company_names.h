#pragma once

#include "core/quotes/company_list.h"

#include <unordered_map>

/// Finding a ticker by the name of its company.
namespace tallowmere {

/// The names that are known, and what is found among them.
class CompanyNames {
public:
    /// Gives a ticker a name; it stands behind those that are there, or keeps its place when it is
    /// there itself.
    void Add(const NamedTicker& row);

    std::size_t Count() const { return m_rows.size(); }

    /// The name of a ticker in any spelling, empty when it is not known.
    const std::string& NameOf(std::string_view ticker) const;

    /// The best `most` rows for a text, whatever its case: the ticker itself, then tickers that
    /// begin with it, then names that do, then names in which each of its words begins a word;
    /// among equals as they stand here. None for less than two characters. Linear in the names.
    std::vector<NamedTicker> Find(std::string_view text, std::size_t most) const;

private:
    struct Row {
        NamedTicker named;
        std::string ticker, name; ///< folded
    };

    std::vector<Row> m_rows;
    std::unordered_map<std::string, std::size_t> m_byTicker;
};

/// What can be offered for an entry.
struct NameOffer {
    std::size_t start = 0; ///< where the part begins, in bytes, that the offered tickers stand for
    std::vector<NamedTicker> rows;
};

/// What to offer for the text of an entry up to the cursor: for the words behind its last comma, as
/// many of them as are found together.
NameOffer OfferNames(const CompanyNames& names, std::string_view entry, std::size_t most);

} // namespace tallowmere
