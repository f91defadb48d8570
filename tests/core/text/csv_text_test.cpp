#include "core/text/csv_text.h"

#include "core/text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct Case {
    const char* what;
    std::string bytes;
    CsvRows rows;
    char delimiter = ',';
    const char* encoding = "UTF-8";
};

TEST(CsvText, IsReadWhateverWroteIt) {
    const Case cases[] = {
        {"nothing", "", {}},
        {"one cell", "a", {{"a"}}},
        {"commas", "a,b\nc,d\n", {{"a", "b"}, {"c", "d"}}},
        {"semicolons", "a;b,x\r\nc;d\r\n", {{"a", "b,x"}, {"c", "d"}}, ';'},
        {"tabs", "a\tb\n\td\n", {{"a", "b"}, {"", "d"}}, '\t'},
        {"bars", "a|b\nc|d\n", {{"a", "b"}, {"c", "d"}}, '|'},
        {"commas in numbers of a table with semicolons",
         "Name;Quote\nA;1,5\nB;2,5\nC;3,5\n",
         {{"Name", "Quote"}, {"A", "1,5"}, {"B", "2,5"}, {"C", "3,5"}},
         ';'},
        {"a told delimiter", "sep=;\r\na;b\r\n", {{"a", "b"}}, ';'},
        {"what only looks like one", "sep=;x\n", {{"sep=", "x"}}, ';'},
        {"quotes", "\"a,1\",\"b\"\"c\"\n\"d\ne\",f\n", {{"a,1", "b\"c"}, {"d\ne", "f"}}},
        {"other quotes", "'a,1','b''c'\n'd',e\n", {{"a,1", "b'c"}, {"d", "e"}}},
        {"an apostrophe that is none", "it's,'one\nb,c\n", {{"it's", "'one"}, {"b", "c"}}},
        {"empty lines", "\n\na,b\n\n\nc,d\n\n", {{"a", "b"}, {"c", "d"}}},
        {"blanks around", " a , b \n\" c \",d\n", {{"a", "b"}, {" c ", "d"}}},
        {"old line ends", "a,b\rc,d\r", {{"a", "b"}, {"c", "d"}}},
        {"a mark in front",
         "\xEF\xBB\xBF"
         "a,b\n",
         {{"a", "b"}}},
        {"UTF-8", "\xC3\xA9,b\n", {{"\xC3\xA9", "b"}}},
        {"Windows-1252", "\xE9,\x80\n", {{"\xC3\xA9", "\xE2\x82\xAC"}}, ',', "Windows-1252"},
        {"UTF-16, the low byte first",
         std::string("\xFF\xFE"
                     "a\0\t\0\xAC\x20\n\0",
                     10),
         {{"a", "\xE2\x82\xAC"}},
         '\t',
         "UTF-16"},
        {"UTF-16, the high byte first, with a pair",
         std::string("\xFE\xFF\0a\0,\xD8\x3D\xDE\0\0\n", 12),
         {{"a", "\xF0\x9F\x98\x80"}},
         ',',
         "UTF-16"},
        {"UTF-16 with half a pair",
         std::string("\xFE\xFF\0a\0,\xD8\x3D\0b", 10),
         {{"a", "\xEF\xBF\xBD"
                "b"}},
         ',',
         "UTF-16"},
    };
    for (const Case& row : cases) {
        const CsvTable table = ReadCsv(row.bytes);
        EXPECT_EQ(table.rows, row.rows) << row.what;
        EXPECT_EQ(table.delimiter, row.delimiter) << row.what;
        EXPECT_EQ(table.encoding, row.encoding) << row.what;
    }
}

TEST(CsvText, AQuoteThatIsNotClosedIsToldAndNotGuessed) {
    EXPECT_THROW(ReadCsv("a,b\n\"c,d\n"), RuntimeError);
}

TEST(CsvText, IsWrittenForSpreadsheets) {
    EXPECT_EQ(WriteCsv({{"a", "b \"c\"", ""}, {"d\ne"}}),
              "\xEF\xBB\xBF\"a\",\"b \"\"c\"\"\",\"\"\r\n\"d\ne\"\r\n");
}

TEST(CsvText, WhatASpreadsheetWouldRunIsGuarded) {
    struct Guard {
        std::string cell, written;
    };
    const Guard cases[] = {
        {"=1+1", "'=1+1"},  {"+1", "'+1"},     {"-1", "'-1"},  {"@SUM(A1)", "'@SUM(A1)"},
        {"\t=1", "'\t=1"},  {"\r=1", "'\r=1"}, {"a=1", "a=1"}, {"", ""},
        {"'=1", "''=1"},    {"'a", "'a"},      {"'", "'"},     {"''-", "'''-"},
        {"^GSPC", "^GSPC"},
    };
    for (const auto& [cell, written] : cases) {
        EXPECT_EQ(GuardedCell(cell), written);
        EXPECT_EQ(UnguardedCell(written), cell);
    }
}

TEST(CsvText, WhatIsWrittenIsReadBackWhole) {
    const CsvRows rows{{"=1", "'=1", "a;b", "x\ty"},
                       {" blanks ", "\"", "'", "l1\nl2"},
                       {"-", "@", "+", "\xC3\xA9"},
                       {"sep=;", "", "|", "',"}};
    const CsvTable table = ReadCsv(WriteCsv(rows));
    EXPECT_EQ(table.rows, rows);
    EXPECT_EQ(table.delimiter, ',');
    EXPECT_EQ(table.quote, '"');
}

} // namespace
} // namespace tallowmere
