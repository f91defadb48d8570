#include "core/market/watch_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(WatchPage, HoldsCaptionAddressTimeAndText) {
    const std::string document =
        WatchDocument({"IBM - Watch Wizard", "h.test/q?s=ibm", "2026-11-21 10:00:00", "a\nb"});
    EXPECT_THAT(document, HasSubstr("<title>IBM - Watch Wizard</title>"));
    EXPECT_THAT(document, HasSubstr("h.test/q?s=ibm<br>\n2026-11-21 10:00:00"));
    EXPECT_THAT(document, HasSubstr(">\na\nb</pre>"));
}

TEST(WatchPage, MarkupInItIsShownAndDoesNothing) {
    const std::string document =
        WatchDocument({"<b>", "h.test/?a=1&b=\"2\"", "<t>", "</pre><script>x</script>"});
    EXPECT_THAT(document, Not(HasSubstr("<b>")));
    EXPECT_THAT(document, Not(HasSubstr("<t>")));
    EXPECT_THAT(document, Not(HasSubstr("<script>")));
    EXPECT_THAT(document, HasSubstr("h.test/?a=1&amp;b="));
}

} // namespace
} // namespace tallowmere
