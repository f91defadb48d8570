#include "core/custom/multi_link.h"

#include "core/links/before_navigate.h"
#include "core/text/bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(MultiLink, APageOfThreeLinksHoldsThreeFrameLinesBetweenHeadAndTail) {
    std::string page(kMultiLinkHead);
    for (const std::string_view address : {"a.test/q?s=LCASETICK", "b.test/", "c.test/x y%02"})
        page += MultiLinkFrame(address);
    page += kMultiLinkTail;
    EXPECT_EQ(page,
              "<html><head><title></title></head><body topmargin=\"0\" leftmargin=\"0\">"
              "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes "
              "SRC=\"a.test/q?s=LCASETICK\"></IFRAME>\r\n"
              "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes SRC=\"b.test/\"></IFRAME>\r\n"
              "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes "
              "SRC=\"c.test/x y%02\"></IFRAME>\r\n"
              "</body></html>");
    EXPECT_THAT(RecordedAddresses(page),
                ElementsAre("a.test/q?s=LCASETICK", "b.test/", "c.test/x y%02"));
}

TEST(MultiLink, ReadsTheAddressesOfDamagedPagesAsFarAsTheyGo) {
    const std::string frame = MultiLinkFrame("a.test/");
    EXPECT_THAT(RecordedAddresses(""), IsEmpty());
    EXPECT_THAT(RecordedAddresses(kMultiLinkHead), IsEmpty());
    EXPECT_THAT(RecordedAddresses(frame + frame.substr(0, frame.size() - 5)),
                ElementsAre("a.test/"));
    EXPECT_THAT(RecordedAddresses(frame.substr(5) + frame), ElementsAre("a.test/"));
    EXPECT_THAT(RecordedAddresses(MultiLinkFrame("") + frame), ElementsAre("", "a.test/"));
    EXPECT_THAT(RecordedAddresses(ToLower(frame)), IsEmpty());
}

TEST(MultiLink, FillsInTheThreeFormsOfTheTicker) {
    struct Case {
        std::string_view page, expanded;
    };
    for (const Case& c : {Case{"", ""},
                          {"x?s=LCASETICK&t=UCASETICK&f=LEFTONE.", "x?s=msft&t=MSFT&f=m."},
                          {"LCASETICKUCASETICKLEFTONE", "msftMSFTm"},
                          {"LCASETICLCASETICK", "LCASETICmsft"},
                          {"UUCASETICK TCASETICK LEFTONLEFTONE", "UMSFT TCASETICK LEFTONm"},
                          {"lcasetick LCASETIC", "lcasetick LCASETIC"},
                          {"T", "T"},
                          {"LEFT", "LEFT"},
                          {"TICK CASETICK ASETICK", "TICK CASETICK ASETICK"}})
        EXPECT_EQ(ExpandMultiLink(c.page, FormsOf("MSFT")), c.expanded) << c.page;
}

TEST(MultiLink, AWordThatATickerBringsIsNotFilledInAgain) {
    EXPECT_EQ(ExpandMultiLink("UCASETICK+LCASETICK", FormsOf("LeftOne")), "LEFTONE+leftone");
    EXPECT_EQ(ExpandMultiLink("LEFTOUCASETICK", FormsOf("NE")), "LEFTONE");
}

TEST(MultiLink, FillsInAnEmptyTicker) {
    EXPECT_EQ(ExpandMultiLink("a=LCASETICK&b=LEFTONE", FormsOf("")), "a=&b=");
}

TEST(MultiLink, TakesThePageFileFromTheAddressOfALink) {
    EXPECT_EQ(StoredPageName("MULTILINK:Boards.mlnk"), "Boards.mlnk");
    EXPECT_EQ(StoredPageName("MULTILINK:My boards.mlnk"), "My boards.mlnk");
    EXPECT_EQ(StoredPageName("http://x.test/"), std::nullopt);
    EXPECT_EQ(StoredPageName(""), std::nullopt);
    // The name begins with the eleventh character wherever the word stands.
    EXPECT_EQ(StoredPageName("0123456789aMULTILINK:b.mlnk"), "aMULTILINK:b.mlnk");
    EXPECT_TRUE(IsMultiLink("xMULTILINK:"));
    EXPECT_FALSE(IsMultiLink("multilink:a.mlnk"));
}

TEST(MultiLink, AStoredNameNeverLeadsToAnotherFile) {
    using namespace std::string_view_literals;
    for (const std::string_view name :
         {"", "../x.mlnk", "..\\x.mlnk", "/etc/x.mlnk", "\\x.mlnk", "a/b.mlnk", "C:x.mlnk",
          "C:\\x.mlnk", "..", ".", "TickNotes.txt", "remind.txt", ".mlnk", "..mlnk", "...mlnk",
          "nul.mlnk", "NUL", "x.MLNK"})
        EXPECT_EQ(StoredPageName("MULTILINK:" + std::string(name)), std::nullopt) << name;
    EXPECT_EQ(StoredPageName("MULTILINK:a\0b.mlnk"sv), std::nullopt);
}

TEST(MultiLink, RefusesTitlesThatCanBeNoFileOfTheFolder) {
    using namespace std::string_view_literals;
    for (const std::string_view title :
         {""sv,     "."sv,           ".."sv,     "../x"sv,     "a/b"sv,  "/"sv,      "\\"sv,
          "a\\b"sv, "C:"sv,          "c:x"sv,    "a\0b"sv,     "CON"sv,  "con"sv,    "Con.x"sv,
          "PRN"sv,  "AUX.a"sv,       "NUL"sv,    "nul .txt"sv, "COM1"sv, "com9.x"sv, "LPT0"sv,
          "lpt5"sv, "COM\xC2\xB2"sv, "CONIN$"sv, "conout$"sv})
        EXPECT_EQ(MultiLinkPageName(title), std::nullopt) << title;
}

TEST(MultiLink, TakesEveryOtherTitle) {
    for (const std::string_view title : {"Boards", "My boards", "a.b", "...", ".x", "COM", "COM10",
                                         "CONS", "LPTX", "Null", "K\xC3\xA4ufe", "IBM: new?"})
        EXPECT_EQ(MultiLinkPageName(title), std::string(title) + ".mlnk") << title;
}

TEST(MultiLink, RecordsWhatATickerDrives) {
    struct Case {
        int index;
        Area tag;
        std::string_view address;
        bool recordable;
    };
    // clang-format off
    for (const Case& c : {
        Case{1,  Area::MB,   "", true},
        {3,      Area::CQ,   "", true},
        {15,     Area::NR,   "", true},
        {43,     Area::RN,   "", false},
        {58,     Area::NT,   "", false},
        {61,     Area::WSR,  "", false},
        {45,     Area::None, "", false},
        {92,     Area::None, "", false},
        {200,    Area::BRK,  "", false},
        {201,    Area::TLB,  "", false},
        {202,    Area::RTS,  "", false},
        // Left out whatever their tag.
        {0,      Area::CQ,   "", false},
        {19,     Area::CQ,   "", false},
        {20,     Area::MB,   "", false},
        {27,     Area::NR,   "", false},
        {28,     Area::NR,   "", false},
        // Taken whatever their tag.
        {30,     Area::RTS,  "", true},
        {190,    Area::RTS,  "", true},
        {211,    Area::WSR,  "", true},
        // The user's own, when their address needs a ticker.
        {101,    Area::None, "http://x.test/?s=LCASETICK", true},
        {170,    Area::None, "UCASETICK", true},
        {135,    Area::None, "xCASETICK", true},
        {135,    Area::None, "http://x.test/LEFTONE", false},
        {135,    Area::None, "MULTILINK:Boards.mlnk", false},
        {135,    Area::None, "", false},
        {100,    Area::None, "LCASETICK", false},
        {171,    Area::None, "LCASETICK", false}})
        EXPECT_EQ(IsRecordable(c.index, c.tag, c.address, true), c.recordable) << c.index;
    // clang-format on
}

TEST(MultiLink, LeavesALinkDisabledUnlessItIsNamed) {
    EXPECT_FALSE(IsRecordable(3, Area::CQ, "", false));
    EXPECT_TRUE(IsRecordable(30, Area::RTS, "", false));
    EXPECT_TRUE(IsRecordable(101, Area::None, "LCASETICK", false));
}

TEST(MultiLink, RecordsNoToolOfTheCatalogue) {
    int recordable = 0;
    for (const LinkRow& row : Catalogue()) {
        if (!IsRecordable(row.index, row.area, "", true))
            continue;
        ++recordable;
        const bool named = row.index == 30 || row.index == 190 || row.index == 211;
        EXPECT_TRUE(named || row.area == Area::MB || row.area == Area::CQ || row.area == Area::NR)
            << row.index;
        EXPECT_FALSE(IsCustomSlot(row.index)) << row.index;
    }
    EXPECT_GT(recordable, 50);
}

TEST(MultiLink, NamesTheTitleThatExists) {
    EXPECT_EQ(MultiLinkExists("Boards"), "A custom Multi-Link with the title 'Boards ' already "
                                         "exists, please enter another title.");
}

TEST(LiveCells, AreThoseInViewAndThoseThatWereAsLongAsThereIsRoom) {
    using Cells = std::set<std::size_t>;
    EXPECT_EQ(LiveCells({}, 0, 0, 3), (Cells{0}));
    EXPECT_EQ(LiveCells({0, 1}, 1, 2, 3), (Cells{0, 1, 2}));
    EXPECT_EQ(LiveCells({0, 1, 2}, 2, 3, 3), (Cells{1, 2, 3}));
    EXPECT_EQ(LiveCells({7, 8, 9}, 5, 6, 3), (Cells{5, 6, 7}));
    EXPECT_EQ(LiveCells({0, 1, 9}, 4, 5, 4), (Cells{1, 4, 5, 9}));
}

TEST(LiveCells, ACellInViewStaysWhateverTheLimit) {
    EXPECT_EQ(LiveCells({0}, 4, 6, 2), (std::set<std::size_t>{4, 5, 6}));
}

TEST(MultiLink, TheLastFrameIsTakenBackAndThenTheOneBefore) {
    const std::string head(kMultiLinkHead);
    const std::string one = head + MultiLinkFrame("http://a.example/q?s=UCASETICK");
    const std::string two = one + MultiLinkFrame("b.example/x y");
    EXPECT_EQ(WithoutLastFrame(two), one);
    EXPECT_EQ(WithoutLastFrame(one), head);
    EXPECT_EQ(WithoutLastFrame(head), head);
    EXPECT_EQ(WithoutLastFrame(""), "");
}

TEST(MultiLink, TheRecorderSaysHowManyPagesThereAreAndWhatToDo) {
    EXPECT_EQ(RecordingLine(0),
              "Recording: no page yet. Links that are about a ticker are recorded; ML ends.");
    EXPECT_EQ(RecordingLine(1), "Recording: 1 page. ML ends, Esc discards the last.");
    EXPECT_EQ(RecordingLine(3), "Recording: 3 pages. ML ends, Esc discards the last.");
}

} // namespace
} // namespace tallowmere
