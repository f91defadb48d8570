#include "core/pages/source_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

/// What stands in the element that shows the source.
std::string Body(std::string_view page) {
    const std::string_view begin = "<pre>\n", end = "</pre>";
    const std::size_t from = page.find(begin) + begin.size();
    return std::string(page.substr(from, page.rfind(end) - from));
}

TEST(SourcePage, ShowsTheSourceAsItIs) {
    struct Case {
        std::string_view source, shown;
    };
    for (const Case& c :
         {Case{"", ""},
          {"<p>a & b</p>", "&lt;p&gt;a &amp; b&lt;/p&gt;"},
          {"<script>alert('1')</script>", "&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt;"},
          {"</pre><img src=x onerror=\"a()\">",
           "&lt;/pre&gt;&lt;img src=x onerror=&quot;a()&quot;&gt;"},
          {"<!-- unfinished <b", "&lt;!-- unfinished &lt;b"},
          {"&lt;", "&amp;lt;"},
          {"\n\na\n", "\n\na\n"},
          {"\xC3\xA9", "\xC3\xA9"},
          {std::string_view("a\0b", 3), "a\xEF\xBF\xBD"
                                        "b"}})
        EXPECT_EQ(Body(SourcePage("a.b", c.source)), c.shown) << c.source;
}

TEST(SourcePage, NamesThePage) {
    const std::string page = SourcePage("http://a.b/?x=<i>&y='", "z");
    EXPECT_THAT(page, HasSubstr("<title>Source of http://a.b/?x=&lt;i&gt;&amp;y=&#39;</title>"));
    EXPECT_THAT(page, HasSubstr("<b>http://a.b/?x=&lt;i&gt;&amp;y=&#39;</b>"));
    EXPECT_THAT(page, Not(HasSubstr("<i>")));
    EXPECT_THAT(page, Not(HasSubstr("Cut after")));
    EXPECT_LT(SourcePage(std::string(1'000'000, 'a'), "z").size(), 10'000U);
}

TEST(SourcePage, SaysWhereALongSourceWasCut) {
    const std::string whole(kLongestSource, 'a');
    EXPECT_EQ(Body(SourcePage("a.b", whole)), whole);
    EXPECT_THAT(SourcePage("a.b", whole), Not(HasSubstr("Cut after")));
    const std::string longer = SourcePage("a.b", std::string(50'000'000, 'a'));
    EXPECT_EQ(Body(longer).size(), kLongestSource);
    EXPECT_THAT(longer.substr(0, 2000), HasSubstr("Cut after 5000000 of 50000000 bytes."));
    EXPECT_THAT(longer.substr(longer.size() - 200), HasSubstr("Cut after 5000000 of"));
    // No character is torn.
    const std::string torn = SourcePage("a.b", std::string(kLongestSource - 1, 'a') + "\xC3\xA9");
    EXPECT_EQ(Body(torn).size(), kLongestSource - 1);
    EXPECT_THAT(torn, HasSubstr("Cut after 4999999 of 5000001 bytes."));
    // It is the source that is bounded, not what it becomes.
    EXPECT_EQ(Body(SourcePage("a.b", std::string(kLongestSource + 1, '<'))).size(),
              kLongestSource * 4);
}

} // namespace
} // namespace tallowmere
