#include "core/quotes/source_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tallowmere {
namespace {

TEST(SourceText, ReadsNumbersAsPeopleWriteThem) {
    struct Case {
        std::string_view text;
        std::optional<double> value;
    };
    for (const Case& c : {Case{"1,234.50", 1234.5},
                          {"$227.55", 227.55},
                          {"-1.49", -1.49},
                          {"+0.7%", 0.7},
                          {" 4.512% ", 4.512},
                          {"UNCH", 0.0},
                          {".5", 0.5},
                          {"N/A", std::nullopt},
                          {"--", std::nullopt},
                          {"-", std::nullopt},
                          {"", std::nullopt},
                          {"inf", std::nullopt},
                          {"nan", std::nullopt},
                          {"-inf", std::nullopt},
                          {"1e999", std::nullopt},
                          {"3.4M", std::nullopt},
                          {"0x10", std::nullopt},
                          {"1 2", std::nullopt}})
        EXPECT_EQ(ReadNumber(c.text), c.value) << c.text;
}

TEST(SourceText, RefusesANumberOfAbsurdLength) {
    EXPECT_EQ(ReadNumber(std::string(1000, '1')), std::nullopt);
}

TEST(SourceText, SplitsALineOfCsv) {
    EXPECT_EQ(ReadCsvLine("Date,\"1 Mo\",\"a,b\",\"say \"\"x\"\"\"\r"),
              (std::vector<std::string>{"Date", "1 Mo", "a,b", "say \"x\""}));
    EXPECT_EQ(ReadCsvLine(""), (std::vector<std::string>{""}));
    EXPECT_EQ(ReadCsvLine(",\"open"), (std::vector<std::string>{"", "open"}));
}

TEST(SourceText, ReadsJsonUpToADepth) {
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '[') + std::string(depth, ']');
    };
    EXPECT_TRUE(ReadJson(nested(32)));
    EXPECT_FALSE(ReadJson(nested(33)));
    EXPECT_FALSE(ReadJson(std::string(1000000, '[')));
    EXPECT_TRUE(ReadJson("\"" + std::string(100, '[') + "\\\"[\"")) << "brackets in a text";
}

TEST(SourceText, RefusesWhatIsNoJson) {
    for (const char* text : {"", "{", "{\"a\":1,}", "<html>", "{\"a\":1e999}", "[1] 2", "\"\xff\""})
        EXPECT_FALSE(ReadJson(text)) << text;
    EXPECT_FALSE(ReadJson(std::string(kMaximumAnswer + 1, ' ')));
}

TEST(SourceText, FindsMembersOfTheirKind) {
    const auto value = *ReadJson(R"({"n":1.5,"t":"1,000","s":"x","i":7,"z":null,"l":[1]})");
    EXPECT_EQ(NumberAt(value, "n"), 1.5);
    EXPECT_EQ(NumberAt(value, "t"), 1000.0);
    EXPECT_EQ(NumberAt(value, "z"), std::nullopt);
    EXPECT_EQ(NumberAt(value, "l"), std::nullopt);
    EXPECT_EQ(NumberAt(value, "absent"), std::nullopt);
    EXPECT_EQ(TextAt(value, "s"), "x");
    EXPECT_EQ(TextAt(value, "n"), "");
    EXPECT_EQ(SecondsAt(value, "i"), 7);
    EXPECT_EQ(SecondsAt(value, "n"), 0);
    EXPECT_EQ(Member(value["l"], "n"), nullptr);
}

} // namespace
} // namespace tallowmere
