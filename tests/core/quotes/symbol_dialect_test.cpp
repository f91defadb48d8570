#include "core/quotes/symbol_dialect.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(SymbolDialect, BringsEverySpellingToTheProgramsOwn) {
    struct Case {
        std::string_view written, own;
    };
    for (const Case& c : {Case{"msft", "MSFT"},
                          {" aapl ", "AAPL"},
                          {"brk-b", "BRK.B"},
                          {"BRK/B", "BRK.B"},
                          {"BRK.B", "BRK.B"},
                          {"^gspc", "^SPC"},
                          {"^spc", "^SPC"},
                          {"^ixic", "^IXIC"},
                          {"VOD.L", "VOD.L"},
                          {"BF-V", "BF-V"},
                          {"RY.TO", "RY.TO"},
                          {"CL=F", "CL=F"},
                          {"", ""}})
        EXPECT_EQ(OwnSymbol(c.written), c.own) << c.written;
}

TEST(SymbolDialect, SpellsEachSymbolAsTheSourceDoesAndBack) {
    struct Case {
        std::string_view own;
        Dialect dialect;
        std::string_view written;
    };
    for (const Case& c :
         {Case{"BRK.B", Dialect::Yahoo, "BRK-B"}, {"BRK.B", Dialect::Cnbc, "BRK.B"},
          {"BRK.B", Dialect::Nasdaq, "BRK.B"},    {"BF-V", Dialect::Cnbc, "BF.V"},
          {"AAPL", Dialect::Cboe, "AAPL"},        {"^SPC", Dialect::Yahoo, "^GSPC"},
          {"^SPC", Dialect::Cnbc, ".SPX"},        {"^SPC", Dialect::Cboe, "_SPX"},
          {"^SPC", Dialect::Fred, "SP500"},       {"^NYA", Dialect::Yahoo, "^NYA"},
          {"^OEX", Dialect::Yahoo, "^OEX"},       {"^TYX", Dialect::Yahoo, "^TYX"},
          {"^TYX", Dialect::Cnbc, "US30Y"},       {"^TYX", Dialect::Fred, "DGS30"},
          {"^TYX", Dialect::Treasury, "30 Yr"},   {"^DJI", Dialect::Cnbc, ".DJI"},
          {"^DJI", Dialect::Fred, "DJIA"},        {"^IXIC", Dialect::Cnbc, ".IXIC"},
          {"^IXIC", Dialect::Nasdaq, "COMP"},     {"^FTSE", Dialect::Yahoo, "^FTSE"},
          {"VOD.L", Dialect::Yahoo, "VOD.L"}}) {
        EXPECT_EQ(ToDialect(c.own, c.dialect), c.written) << c.own;
        EXPECT_EQ(FromDialect(c.written, c.dialect), c.own) << c.written;
    }
}

TEST(SymbolDialect, HasNoSpellingWhereTheSourceHasNoSuchSymbol) {
    EXPECT_EQ(ToDialect("^SPC", Dialect::Nasdaq), std::nullopt);
    EXPECT_EQ(ToDialect("^DJI", Dialect::Cboe), std::nullopt);
    EXPECT_EQ(ToDialect("AAPL", Dialect::Fred), std::nullopt);
    EXPECT_EQ(ToDialect("AAPL", Dialect::Treasury), std::nullopt);
    EXPECT_EQ(ToDialect("RY.TO", Dialect::Cnbc), std::nullopt);
    EXPECT_EQ(ToDialect("CL=F", Dialect::Nasdaq), std::nullopt);
    EXPECT_EQ(ToDialect("^FTSE", Dialect::Cnbc), std::nullopt);
    EXPECT_EQ(ToDialect("", Dialect::Yahoo), std::nullopt);
}

TEST(SymbolDialect, NamesTheIndices) {
    EXPECT_EQ(IndexName("^SPC"), "S&P 500");
    EXPECT_EQ(IndexName("AAPL"), "");
    EXPECT_TRUE(IsIndexSymbol("^TYX"));
    EXPECT_FALSE(IsIndexSymbol("TYX"));
}

} // namespace
} // namespace tallowmere
