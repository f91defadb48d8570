#include "core/pages/page_scheme.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(PageScheme, StandsInFrontOfThePageWhichStaysAsItIs) {
    const std::string page = "<!DOCTYPE html>\n<html><body>x</body></html>";
    for (const auto scheme : {PageScheme::Desktop, PageScheme::Light, PageScheme::Dark}) {
        const std::string shown = WithScheme(page, scheme);
        EXPECT_TRUE(shown.starts_with("<!DOCTYPE html><style media=\"screen\">")) << shown;
        EXPECT_TRUE(shown.ends_with("</style>" + page.substr(15))) << shown;
        EXPECT_EQ(shown.find("</style>"), shown.rfind("</style>"));
    }
}

TEST(PageScheme, ADarkPageHasItsColoursWhateverItsOwnStyleSays) {
    const std::string shown = WithScheme("<html>", PageScheme::Dark);
    EXPECT_THAT(shown, HasSubstr("color-scheme: dark !important"));
    EXPECT_THAT(shown, HasSubstr("--page: #14181d !important;"));
    EXPECT_THAT(shown, HasSubstr("--note: #43330f !important;"));
    EXPECT_THAT(shown, HasSubstr("font[color=\"#008000\"]"));
}

TEST(PageScheme, ALightPageIsLightOnADarkDesktopToo) {
    const std::string shown = WithScheme("<html>", PageScheme::Light);
    EXPECT_THAT(shown, HasSubstr("color-scheme: light !important"));
    EXPECT_THAT(shown, HasSubstr("--page: #ffffff !important;"));
    EXPECT_THAT(shown, Not(HasSubstr("font[")));
}

TEST(PageScheme, TheDesktopDecidesOtherwise) {
    const std::string shown = WithScheme("<html>", PageScheme::Desktop);
    EXPECT_THAT(shown, HasSubstr("color-scheme: light dark !important"));
    EXPECT_THAT(shown, HasSubstr("@media (prefers-color-scheme: dark) { font["));
    EXPECT_THAT(shown, Not(HasSubstr("--page")));
}

} // namespace
} // namespace tallowmere
