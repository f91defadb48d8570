#include "core/portfolio/portfolio_csv.h"

#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Portfolios = std::vector<StoredPortfolio>;

Portfolios Ten(const std::string& first = "", const std::string& second = "") {
    Portfolios portfolios;
    for (int n = 1; n <= 10; ++n)
        portfolios.push_back({n, "Portfolio #" + std::to_string(n), ""});
    portfolios[0].tickers = first;
    portfolios[1].tickers = second;
    return portfolios;
}

/// The import in lines, which say all of it.
std::vector<std::string> Lines(const std::string& csv, const Portfolios& portfolios = Ten(),
                               const std::string& notes = "", int target = 1) {
    return ImportLines(PlanCsvImport(ReadCsv(csv).rows, portfolios, notes, target), portfolios);
}

TEST(PortfolioCsv, EachTickerHasARowWithItsPortfolioAndNote) {
    Portfolios portfolios = Ten("A|B|", "A|");
    portfolios[0].name = "Tech";
    portfolios[2].name = "Empty";
    EXPECT_EQ(PortfolioRows(portfolios, "||A||one\r\ntwo|||||\r\n||Z||alone|||||\r\n"),
              (CsvRows{{"Portfolio", "Portfolio Name", "Ticker", "Note"},
                       {"1", "Tech", "A", "one\ntwo"},
                       {"1", "Tech", "B", ""},
                       {"2", "Portfolio #2", "A", "one\ntwo"},
                       {"3", "Empty", "", ""},
                       {"", "", "Z", "alone"}}));
}

TEST(PortfolioCsv, WhatGoesOutComesInWhole) {
    Portfolios portfolios = Ten("AOL|^GSPC|-X|", "=F|");
    portfolios[1].name = "=1+1, \"best\"";
    portfolios[4].name = "Empty";
    const std::string notes =
        NoteRecord("AOL", "+one\r\n \r\ntwo; three") + NoteRecord("ZZ", "'=alone");
    const CsvRows rows = ReadCsv(WriteCsv(PortfolioRows(portfolios, notes))).rows;
    const CsvImport import = PlanCsvImport(rows, Ten(), "", 3);
    Portfolios restored = Ten();
    for (const auto& [number, added, name] : import.portfolios) {
        StoredPortfolio& portfolio = restored[static_cast<std::size_t>(number - 1)];
        portfolio.tickers = JoinTickerList(added);
        portfolio.name = name.value_or(portfolio.name);
    }
    std::string restoredNotes;
    for (const auto& [ticker, note, isReplaced] : import.notes)
        restoredNotes += NoteRecord(ticker, StorableNote(StoredLines(note)));
    EXPECT_EQ(restoredNotes, notes);
    for (std::size_t n = 0; n < 10; ++n) {
        EXPECT_EQ(restored[n].name, portfolios[n].name);
        EXPECT_EQ(restored[n].tickers, portfolios[n].tickers);
    }
    EXPECT_EQ(import.skipped, 0u);
    EXPECT_FALSE(PlanCsvImport(rows, portfolios, notes, 1).IsAny());
}

TEST(PortfolioCsv, ColumnsAreFoundByTheirHeadings) {
    struct Case {
        std::string head;
        CsvColumns columns;
    };
    const Case cases[] = {
        {"Portfolio,Portfolio Name,Ticker,Note\n", {0, 1, 2, 3, true}},
        {"ISIN,WKN,Ticker Symbol,Security Name,Currency,Note\n", {{}, {}, 2, 5, true}},
        {"ISIN;WKN;Ticker-Symbol;Wertpapiername;W\xC3\xA4hrung;Notiz\n", {{}, {}, 2, 5, true}},
        {"\"Name\",\"Symbol\",\"Quote\",\"Note\"\n", {{}, {}, 1, 3, true}},
        {"SYMBOL\tComments\tsymbol\n", {{}, {}, 0, 1, true}},
        {"AOL\nMSFT\n", {{}, {}, 0, {}, false}},
        {"BRK-B,12\n^GSPC,13\n", {{}, {}, 0, {}, false}},
        {"aol\nmsft\n", {{}, {}, 0, {}, false}},
        {"Date,Value\n1,2\n", {}},
        {"A long sentence of words\nMSFT\n", {}},
        {"", {}},
    };
    for (const auto& [head, columns] : cases)
        EXPECT_EQ(FindColumns(ReadCsv(head).rows), columns) << head;
}

TEST(PortfolioCsv, AWatchListOfAnotherProgramGoesToTheChosenPortfolio) {
    const std::string csv = "ISIN;WKN;Ticker-Symbol;Wertpapiername;Notiz\n"
                            "US5949181045;870747;MSFT;Microsoft;Wolke\n"
                            "DE0007164600;716460;SAP.DE;SAP;\n"
                            "DE000BASF111;BASF11;;BASF;ohne\n";
    const CsvImport import = PlanCsvImport(ReadCsv(csv).rows, Ten(), "", 2);
    EXPECT_EQ(import.skipped, 1u);
    EXPECT_THAT(Lines(csv, Ten(), "", 2), ElementsAre("Portfolio 2 (Portfolio #2): MSFT added",
                                                      "Portfolio 2 (Portfolio #2): SAP.DE added",
                                                      "Note on MSFT added: Wolke"));
}

TEST(PortfolioCsv, TickersAreTakenAsIfTheyWereTyped) {
    const Portfolios now = Ten("AOL|ibm x|");
    EXPECT_THAT(Lines("Ticker\naol\n\"msft, intc\"\nA|B\nibm x\n", now),
                ElementsAre("Portfolio 1 (Portfolio #1): MSFT added",
                            "Portfolio 1 (Portfolio #1): INTC added",
                            "Portfolio 1 (Portfolio #1): A added",
                            "Portfolio 1 (Portfolio #1): B added"));
    EXPECT_EQ(PlanCsvImport(ReadCsv("Ticker\naol\nAOL\nibm x\n").rows, now, "", 1).known, 3u);
}

TEST(PortfolioCsv, APortfolioIsFoundByNumberOrNameAndElseTakesAFreeOne) {
    Portfolios now = Ten("AOL|");
    now[2].name = "Tech";
    EXPECT_THAT(Lines("Portfolio,Ticker\n2,A\ntech,B\nEnergy,C\nenergy,D\n11,E\n0,F\n", now),
                ElementsAre("Portfolio 2 (Portfolio #2): A added", "Portfolio 3 (Tech): B added",
                            "Portfolio 4 (Portfolio #4): is called \"Energy\"",
                            "Portfolio 4 (Portfolio #4): C added",
                            "Portfolio 4 (Portfolio #4): D added"));
    EXPECT_EQ(PlanCsvImport(ReadCsv("Portfolio,Ticker\n11,E\n0,F\n").rows, now, "", 1).skipped, 2u);
    for (StoredPortfolio& portfolio : now)
        portfolio.tickers = "X|";
    EXPECT_EQ(PlanCsvImport(ReadCsv("Portfolio,Ticker\nNew,E\n").rows, now, "", 1).skipped, 1u);
}

TEST(PortfolioCsv, ANameIsTakenWithTheNumberOfItsPortfolio) {
    EXPECT_THAT(Lines("Portfolio,Portfolio Name,Ticker\n2,Tech,\n2,Tech,A\n"),
                ElementsAre("Portfolio 2 (Portfolio #2): is called \"Tech\"",
                            "Portfolio 2 (Portfolio #2): A added"));
    EXPECT_THAT(Lines("Portfolio,Portfolio Name,Ticker\n2,Two\r lines,\n"),
                testing::SizeIs(testing::Ge(1u)));
}

TEST(PortfolioCsv, ANoteIsNewReplacedOrTheSame) {
    const std::string notes = "||A||old|||||\r\n||B||same|||||\r\n";
    EXPECT_THAT(Lines("Ticker,Note\nA,young\nB,same\nC,fresh\nD,\n", Ten("A|B|C|D|"), notes),
                ElementsAre("Note on A replaced: young", "Note on C added: fresh"));
}

TEST(PortfolioCsv, ANoteCannotEndItsRecordEarly) {
    const CsvImport import =
        PlanCsvImport(ReadCsv("Ticker,Note\nA,\"x|||||y\"\n").rows, Ten(), "", 1);
    ASSERT_EQ(import.notes.size(), 1u);
    EXPECT_EQ(import.notes[0].note.find("|||||"), std::string::npos);
}

TEST(PortfolioCsv, ATableWithoutTickersChangesNothing) {
    EXPECT_FALSE(PlanCsvImport(ReadCsv("Date,Value\n1,2\n").rows, Ten(), "", 1).IsAny());
}

} // namespace
} // namespace tallowmere
