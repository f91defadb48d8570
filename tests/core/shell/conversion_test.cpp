#include "core/shell/conversion.h"

#include "core/text/runtime_error.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallowmere {
namespace {

template <typename Convert>
std::string ErrorOf(Convert convert, std::string_view text) {
    try {
        convert(text);
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "";
}

TEST(Conversion, ReadsIntegersRoundingHalvesToEven) {
    struct Case {
        std::string_view text;
        int value;
    };
    for (const Case& c : {Case{"1", 1},
                          {" 10 ", 10},
                          {"-7", -7},
                          {"+7", 7},
                          {"1.5", 2},
                          {"2.5", 2},
                          {"-0.5", 0},
                          {"-1.5", -2},
                          {"-2.5", -2},
                          {"2.4999", 2},
                          {"2.5001", 3},
                          {".5", 0},
                          {"3.", 3},
                          {"1e3", 1000},
                          {"32767", 32767},
                          {"32767.4", 32767},
                          {"-32768", -32768},
                          {"-32768.5", -32768}}) {
        EXPECT_EQ(ToInteger(c.text), c.value) << c.text;
        EXPECT_EQ(ToLong(c.text), c.value) << c.text;
    }
    EXPECT_EQ(ToLong("2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(ToLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(Conversion, RefusesTextThatIsNoNumber) {
    for (const std::string_view text : {"", " ", "abc", "12a", "1 2", "--1", "+-1", "-+1", "+", "-",
                                        ".", "inf", "nan", "0x10", "1e", "\t1", "1,000"}) {
        EXPECT_EQ(ErrorOf(ToInteger, text), "Type mismatch") << text;
        EXPECT_EQ(ErrorOf(ToLong, text), "Type mismatch") << text;
        EXPECT_EQ(ErrorOf(ToBoolean, text), "Type mismatch") << text;
        EXPECT_EQ(ErrorOf(ToSingle, text), "Type mismatch") << text;
        EXPECT_EQ(ErrorOf(ToColor, text), "Type mismatch") << text;
    }
}

TEST(Conversion, RefusesNumbersOutOfRange) {
    for (const std::string_view text : {"32768", "32767.5", "-32769", "1e999"})
        EXPECT_EQ(ErrorOf(ToInteger, text), "Overflow") << text;
    for (const std::string_view text : {"2147483648", "-2147483649", "1e10"})
        EXPECT_EQ(ErrorOf(ToLong, text), "Overflow") << text;
    for (const std::string_view text : {"4294967296", "-2147483649"})
        EXPECT_EQ(ErrorOf(ToColor, text), "Overflow") << text;
    EXPECT_EQ(ErrorOf(ToSingle, "1e39"), "Overflow");
}

TEST(Conversion, ReadsBooleansFromWordsAndNumbers) {
    for (const std::string_view text : {"True", "true", " TRUE ", "1", "-1", "0.5"})
        EXPECT_TRUE(ToBoolean(text)) << text;
    for (const std::string_view text : {"False", "FALSE", "0", "-0", "0.0"})
        EXPECT_FALSE(ToBoolean(text)) << text;
    EXPECT_EQ(ErrorOf(ToBoolean, "yes"), "Type mismatch");
    EXPECT_EQ(FromBoolean(true), "True");
    EXPECT_EQ(FromBoolean(false), "False");
}

TEST(Conversion, ReadsColorsSignedAndUnsigned) {
    EXPECT_EQ(ToColor("-2147483640"), 0x80000008U);
    EXPECT_EQ(ToColor("2147483656"), 0x80000008U);
    EXPECT_EQ(ToColor("16777215"), 0xFFFFFFU);
    EXPECT_EQ(ToColor("4294967295"), 0xFFFFFFFFU);
    EXPECT_EQ(FromColor(0x80000008U), "-2147483640");
    EXPECT_EQ(FromColor(0xFFFFFFU), "16777215");
    EXPECT_EQ(FromColor(0), "0");
}

TEST(Conversion, WritesSinglesSoThatTheyReadBackTheSame) {
    struct Case {
        float value;
        std::string_view text;
    };
    for (const Case& c : {Case{50.0F, "50"},
                          {8500.0F, "8500"},
                          {100000.0F, "100000"},
                          {-12.5F, "-12.5"},
                          {0.1F, "0.1"},
                          {0.0F, "0"}})
        EXPECT_EQ(FromSingle(c.value), c.text);
    for (const float value : {1.0F / 3.0F, 16777217.0F, 1.17549435e-38F, 3.4028235e38F, -1e-45F})
        EXPECT_EQ(ToSingle(FromSingle(value)), value) << value;
}

} // namespace
} // namespace tallowmere
