#include "core/quotes/company_names.h"

#include "check.h"
#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// The input is a published list and an entry, apart by a byte that UTF-8 never has. Whatever they
// are, names can be shown, a list that is kept comes back as it was, and what is offered for the
// entry is in the list.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\xFE'), input.size());
    const std::string_view list = input.substr(0, end);
    const std::string_view entry = input.substr(std::min(end + 1, input.size()));

    KeptCompanies kept{1, 1, ReadCompanyList(list)};
    for (NamedTicker& row : ReadShippedNames(list))
        kept.companies.push_back(std::move(row));
    CompanyNames names;
    for (const NamedTicker& row : kept.companies) {
        Check(!row.ticker.empty() && !row.name.empty() && row.name.size() <= 100);
        Check(WithoutHiddenCharacters(row.name, '\0') == row.name);
        names.Add(row);
        Check(names.NameOf(row.ticker) == row.name);
    }
    Check(ReadKeptCompanies(WriteKeptCompanies(kept)).companies == kept.companies);
    ReadKeptCompanies(list);

    const NameOffer offer = OfferNames(names, entry, 8);
    Check(offer.rows.size() <= 8 && offer.start <= entry.size());
    for (const NamedTicker& row : offer.rows)
        Check(names.NameOf(row.ticker) == row.name);
    return 0;
}
