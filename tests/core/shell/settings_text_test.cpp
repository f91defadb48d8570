#include "core/shell/settings_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tallowmere {
namespace {

using namespace std::string_literals;

std::string Value(std::string_view text, std::string_view section, std::string_view key) {
    const SettingsValues values(text);
    const std::string* value = values.Find(section, key);
    return value ? *value : "(absent)";
}

TEST(SettingsText, ReadsWhatPeopleWrite) {
    struct Case {
        std::string text, value;
    };
    const Case cases[] = {
        {"[Settings]\nTips=True\n", "True"},
        {"[Settings]\r\nTips=True\r\n", "True"},
        {"[Settings]\nTips=True", "True"},
        {"\xEF\xBB\xBF[Settings]\nTips=True\n", "True"},
        {"  [ SETTINGS ]  \n\ttips =  True \t\n", "True"},
        {"[Colors]\nTips=1\n[settings]\nTips=True\n", "True"},
        {"[Settings]\nTips=False\nTIPS=True\n", "True"},
        {"[Settings]\nTips=False\n[Colors]\n[Settings]\nTips=True\n", "True"},
        {"[Settings]\n;Tips=False\n#Tips=False\nTips=True\n; Tips=False\n", "True"},
        {"[Settings]\nTips=a=b;c#d\n", "a=b;c#d"},
        {"[Settings]\nTips=\n", ""},
        {"[Settings]\nTips=\" a\\n\\r\\t\\\\\\\"\\x00\\xff \"\n", " a\n\r\t\\\"\0\xff "s},
        {"[Settings]\nTips=\"open\n", "\"open"},
        {"[Settings]\nTips=\"a\"b\n", "\"a\"b"},
        {"[Settings]\nTips=\"\\q\"\n", "\"\\q\""},
        {"[Settings]\nTips=C:\\x\n", "C:\\x"},
        {"[\"Set\\x74ings\"]\n\"Tips\" = True\n", "True"},
        {"Tips=True\n[Colors]\nTips=False\n", "True"},
        {"[Settings\nTips=True\n", "True"},
        {"[Colors]\nTips=True\n", "(absent)"},
        {"[Settings]\nTips\n", "(absent)"},
        {"", "(absent)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Value(c.text, "Settings", "Tips"), c.value) << c.text;
}

TEST(SettingsText, AQuoteThatDoesNotEndIsAPlainCharacter) {
    EXPECT_EQ(Value("[\"Set]\\\nTips=True\n", "\"Set", "Tips"), "True");
    EXPECT_EQ(Value("[Settings]\n\"Tips\\=True\n", "Settings", "\"Tips\\"), "True");
    EXPECT_EQ(Value("[Settings]\nTips=\"True\\\n", "Settings", "Tips"), "\"True\\");
}

TEST(SettingsText, ReadsWhatDamageHasLeft) {
    const std::string zeros(4096, '\0');
    EXPECT_EQ(Value(zeros, "Settings", "Tips"), "(absent)");
    EXPECT_EQ(Value(zeros + "ips=False\nFirst=OK\n", "Settings", "First"), "OK");
    EXPECT_EQ(Value(zeros + "[Colors]\nfTE=5\n", "Colors", "fTE"), "5");
    EXPECT_EQ(Value("[Settings]\nFirst=OK\nTips=Fa" + zeros + "\nMNL=me\n", "Settings", "Tips"),
              "(absent)");
    EXPECT_EQ(Value("[Settings]\nFirst=OK\nTips=Fa" + zeros + "\nMNL=me\n", "Settings", "MNL"),
              "me");
    EXPECT_TRUE(IsDamagedSettingsText(zeros));
    EXPECT_TRUE(IsDamagedSettingsText("[Settings]\nA=\x01\n"));
    EXPECT_FALSE(IsDamagedSettingsText("[Settings]\r\n\tA=\xff\xfe\r\n"));
}

TEST(SettingsText, ChangesOneValueAndNothingElse) {
    struct Case {
        std::string before, section, key, value, after;
    };
    const Case cases[] = {
        {"", "Settings", "Tips", "True", "[Settings]\nTips=True\n"},
        {"[Settings]\nTips=True\n", "Settings", "Tips", "False", "[Settings]\nTips=False\n"},
        {"; mine\n[SETTINGS]\n tips = True \nodd line\n\n[Colors]\nfTE=1\n", "Settings", "Tips",
         "False", "; mine\n[SETTINGS]\n tips = False\nodd line\n\n[Colors]\nfTE=1\n"},
        {"[Settings]\nTips=True\n\n[Colors]\nfTE=1\n", "Settings", "MNL", "me",
         "[Settings]\nTips=True\nMNL=me\n\n[Colors]\nfTE=1\n"},
        {"[Settings]\nTips=True", "Settings", "MNL", "me", "[Settings]\nTips=True\nMNL=me"},
        {"[Settings]\r\nTips=True\r\n", "Settings", "MNL", "me",
         "[Settings]\r\nTips=True\r\nMNL=me\r\n"},
        {"[Settings]\nTips=True\n", "Colors", "fTE", "5",
         "[Settings]\nTips=True\n\n[Colors]\nfTE=5\n"},
        {"[Settings]\nTips=1\nTips=2\n", "Settings", "Tips", "3", "[Settings]\nTips=1\nTips=3\n"},
        {"[Settings]\nA=1\nB=\0\nC=3\n"s, "Settings", "C", "4", "[Settings]\nA=1\nC=4\n"},
        {"\0\0[Settings]\nA=1\n"s, "Settings", "A", "2", "[Settings]\nA=2\n"},
        {"A=1\n[Colors]\n", "Settings", "B", "2", "A=1\nB=2\n[Colors]\n"},
        {"[S]\nA=1\r", "S", "B", "2", "[S]\nA=1\r\nB=2"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ChangeSettingsText(c.before, c.section, c.key, c.value), c.after) << c.before;
}

TEST(SettingsText, AnyBytesSurviveAsSectionKeyAndValue) {
    const std::string samples[] = {"AOL|YHOO|MSFT|",
                                   "",
                                   " ",
                                   " a ",
                                   "\ta",
                                   "\"",
                                   "\"quoted\"",
                                   "a\"b",
                                   "a\r\nb",
                                   "\n",
                                   "\r",
                                   "a;b",
                                   ";a",
                                   "#a",
                                   "a=b",
                                   "=",
                                   "[a]",
                                   "]",
                                   "[",
                                   "a]b",
                                   "\\",
                                   "\\n",
                                   "a\\",
                                   "\0"s,
                                   "a\0b"s,
                                   "\xff\xfe",
                                   "\xEF\xBB\xBF",
                                   "\xEF\xBB\xBFx",
                                   "\xC3\xA4",
                                   "\x7F",
                                   "\x1B[0m"};
    for (const std::string& section : samples)
        for (const std::string& key : samples) {
            std::string text = "[Settings]\nStocks1=AOL|\n";
            for (const std::string& value : samples) {
                text = ChangeSettingsText(text, section, key, value);
                ASSERT_EQ(Value(text, section, key), value) << text;
                ASSERT_FALSE(IsDamagedSettingsText(text)) << text;
            }
            ASSERT_EQ(Value(text, "Settings", "Stocks1"), "AOL|") << text;
        }
}

TEST(SettingsText, PlainValuesStandUnquoted) {
    EXPECT_EQ(ChangeSettingsText("", "S", "K", "http://x/?a=b;c \"d\" \xC3\xA4"),
              "[S]\nK=http://x/?a=b;c \"d\" \xC3\xA4\n");
    EXPECT_EQ(ChangeSettingsText("", "S", "K", "a\r\n\x01"), "[S]\nK=\"a\\r\\n\\x01\"\n");
}

TEST(SettingsText, EveryByteSurvivesInALongRandomValue) {
    std::mt19937 random(5);
    std::string value(100'000, ' ');
    std::generate(value.begin(), value.end(), [&] { return static_cast<char>(random()); });
    EXPECT_EQ(
        Value(ChangeSettingsText("", "Settings", "Custom101", value), "Settings", "Custom101"),
        value);
}

TEST(SettingsText, AKeyIsTakenOut) {
    struct Case {
        std::string text, result;
    };
    const Case cases[] = {
        {"[Settings]\nA=1\nTips=2\nB=3\n", "[Settings]\nA=1\nB=3\n"},
        {"[Settings]\r\n tips = 2\r\nB=3\r\n", "[Settings]\r\nB=3\r\n"},
        {"[Settings]\nTips=1\nB=3\nTIPS=2\n", "[Settings]\nB=3\n"},
        {"Tips=1\n[Colors]\nTips=2\n", "[Colors]\nTips=2\n"},
        {"[Colors]\nA=1\n\n[Settings]\nTips=1\n", "[Colors]\nA=1\n"},
        {"[Settings]\nTips=1\n", ""},
        {"[Settings]\nTips=1\n\n[Colors]\nA=1\n", "[Settings]\n\n[Colors]\nA=1\n"},
        {"[Settings]\n; mine\nTips=1\n", "[Settings]\n; mine\n"},
        {"[Settings]\nTips=1", ""},
        {"[Settings]\nA=1\nTips=2", "[Settings]\nA=1\n"},
        {"[Settings]\n;Tips=1\n", "[Settings]\n;Tips=1\n"},
        {"[Settings]\n", "[Settings]\n"},
        {"", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(RemoveSettingText(c.text, "Settings", "Tips"), c.result) << c.text;
}

TEST(SettingsText, TakingOutWhatWasJustPutInGivesTheTextThatWasThere) {
    for (const std::string text :
         {"", "[Settings]\nA=1\n", "[Settings]\nA=1\n\n[Colors]\nB=2\n", "[Colors]\r\nB=2\r\n"})
        for (const std::string_view section : {"Settings", "Colors", "frmWiz"})
            EXPECT_EQ(RemoveSettingText(ChangeSettingsText(text, section, "Tips", " x "), section,
                                        "Tips"),
                      text)
                << text << section;
}

TEST(SettingsText, AKeyGoesBehindAnother) {
    struct Case {
        std::string_view text;
        std::optional<std::string> behind;
        std::string_view result;
    };
    for (const Case& c : {
             Case{"[S]\nA=1\nB=2\n", "A", "[S]\nA=1\nK=x\nB=2\n"},
             Case{"[S]\nA=1\nB=2\n", "a", "[S]\nA=1\nK=x\nB=2\n"},
             Case{"[S]\nA=1\nB=2\n", "", "[S]\nK=x\nA=1\nB=2\n"},
             Case{"[S]\nA=1\nB=2\n", std::nullopt, "[S]\nA=1\nB=2\nK=x\n"},
             Case{"[S]\nA=1\nB=2\n", "gone", "[S]\nA=1\nB=2\nK=x\n"},
             Case{"[S]\nA=1\nk=2\n", "A", "[S]\nA=1\nk=x\n"}, // it is there: it keeps its place
             Case{"[T]\nA=1\n\n[S]\nA=1\nB=2\n", "A", "[T]\nA=1\n\n[S]\nA=1\nK=x\nB=2\n"},
             Case{"[S]\r\nA=1\r\nB=2\r\n", "A", "[S]\r\nA=1\r\nK=x\r\nB=2\r\n"},
             Case{"[S]\nA=1", "A", "[S]\nA=1\nK=x"},
             Case{"[S]", "", "[S]\nK=x"},
             Case{"", "A", "[S]\nK=x\n"},
         })
        EXPECT_EQ(ChangeSettingsText(c.text, "S", "K", "x", c.behind), c.result) << c.text;
}

TEST(SettingsText, SaysBehindWhichKeyAKeyStands) {
    struct Case {
        std::string_view text;
        std::optional<std::string> before;
    };
    for (const Case& c :
         {Case{"[S]\nA=1\nK=2\nB=3\n", "A"}, Case{"[S]\nk=2\nB=3\n", ""},
          Case{"[T]\nA=1\n[S]\nK=2\n", ""}, Case{"[S]\nA=1\n; a line\n\nK=2\n", "A"},
          Case{"[S]\nA=1\nK=2\nB=3\nK=4\n", "B"}, // the last one counts
          Case{"[T]\nK=1\n", std::nullopt}, Case{"", std::nullopt}})
        EXPECT_EQ(KeyBefore(c.text, "S", "K"), c.before) << c.text;
}

} // namespace
} // namespace tallowmere
