#include "app/quotes/CompanyDirectory.h"

#include "app/base/Clock.h"
#include "app/quotes/LiveQuotes.h"
#include "core/quotes/quote_rules.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <cstdio>

namespace tallowmere {

namespace {

constexpr std::size_t kMostOffered = 8;
constexpr std::uint64_t kLargestFile = 16 * kMegabyte;

/// Without the names there is less to offer, and nothing else is lost.
std::string ReadNames(const std::filesystem::path& file) {
    try {
        return ReadExistingFile(file, kLargestFile);
    } catch (const RuntimeError& unreadable) {
        std::fprintf(stderr, "tallowmere: %s\n", unreadable.what());
        return {};
    }
}

} // namespace

CompanyDirectory::CompanyDirectory(std::filesystem::path shipped, std::filesystem::path kept,
                                   const Clock& clock, QObject* parent)
    : QObject(parent), m_shippedFile(std::move(shipped)), m_keptFile(std::move(kept)),
      m_clock(clock) {}

void CompanyDirectory::Serve(LiveQuotes& quotes, const SourceTable& sources) {
    m_quotes = &quotes;
    m_source = sources.companies;
    m_agent = sources.companies.Agent(sources.userAgent);
    connect(&quotes, &LiveQuotes::Learned, this, [this](const std::vector<std::string>& symbols) {
        if (!m_isLoaded)
            return;
        bool isNew = false;
        for (const std::string& symbol : symbols) {
            const NamedTicker row = ShownName(symbol, m_quotes->NameOf(symbol));
            if (row.ticker.empty() || m_names.NameOf(row.ticker) == row.name)
                continue;
            m_names.Add(row);
            isNew = true;
        }
        if (isNew)
            Q_EMIT Changed();
    });
}

std::string CompanyDirectory::NameOf(const std::string& ticker) {
    Load();
    return m_names.NameOf(ticker);
}

NameOffer CompanyDirectory::Offer(const std::string& entry) {
    Load();
    AskWhenDue();
    return OfferNames(m_names, entry, kMostOffered);
}

void CompanyDirectory::Load() {
    if (m_isLoaded)
        return;
    m_isLoaded = true;
    m_kept = ReadKeptCompanies(ReadNames(m_keptFile));
    Fill();
}

// The fetched list comes first: it has the largest companies in front.
void CompanyDirectory::Fill() {
    m_names = {};
    for (const NamedTicker& row : m_kept.companies)
        m_names.Add(row);
    for (const NamedTicker& row : ReadShippedNames(ReadNames(m_shippedFile)))
        if (m_names.NameOf(row.ticker).empty())
            m_names.Add(row);
    if (!m_quotes)
        return;
    for (const NamedTicker& named : m_quotes->Names())
        if (const NamedTicker row = ShownName(named.ticker, named.name); !row.ticker.empty())
            m_names.Add(row);
}

void CompanyDirectory::AskWhenDue() {
    const std::int64_t now = m_clock.Now().toSecsSinceEpoch();
    if (m_isAsking || !m_source || !IsCompanyListDue(*m_source, m_kept, now))
        return;
    m_isAsking = true;
    m_kept.askedAt = now;
    m_calls.Ask({m_source->request, m_agent, m_source->timeout},
                [this](const SourceResponse& response) { Receive(response); });
}

void CompanyDirectory::Receive(const SourceResponse& response) {
    m_isAsking = false;
    if (response.status == 200 && !Refusal(response)) {
        std::vector<NamedTicker> companies = ReadCompanyList(response.body);
        if (!companies.empty()) {
            m_kept.companies = std::move(companies);
            m_kept.receivedAt = m_kept.askedAt;
            Fill();
            Q_EMIT Changed();
        }
    }
    Keep();
}

// When it was asked for is kept too: a start shall not be a reason to ask again.
void CompanyDirectory::Keep() const {
    try {
        WriteWholeFile(m_keptFile, WriteKeptCompanies(m_kept));
    } catch (const RuntimeError& unwritten) {
        std::fprintf(stderr, "tallowmere: %s\n", unwritten.what());
    }
}

} // namespace tallowmere
