#include "core/pages/mail_address.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct MailCase {
    std::string_view address;
    MailDraft draft;
    std::string_view clean; ///< the address that is handed on
};

// clang-format off
const MailCase kMailCases[] = {
    {"mailto:", {}, "mailto:"},
    {"mailto:me@a.test", {"me@a.test", {}, {}, {}, {}}, "mailto:me@a.test"},
    {"MailTo:me@a.test", {"me@a.test", {}, {}, {}, {}}, "mailto:me@a.test"},
    {"mailto:a@x.test,b@y.test?subject=Hello%20there&body=1%0D%0A2",
     {"a@x.test,b@y.test", {}, {}, "Hello there", "1\n2"},
     "mailto:a@x.test,b@y.test?subject=Hello%20there&body=1%0D%0A2"},
    {"mailto:?to=a@x.test&TO=b@y.test&cc=c@z.test&bcc=d@z.test",
     {"a@x.test,b@y.test", "c@z.test", "d@z.test", {}, {}},
     "mailto:a@x.test,b@y.test?cc=c@z.test&bcc=d@z.test"},
    // Files of the user, and whatever else, are not asked for.
    {"mailto:a@x.test?attach=/etc/passwd&subject=s", {"a@x.test", {}, {}, "s", {}}, "mailto:a@x.test?subject=s"},
    {"mailto:a@x.test?Attachment=~/.ssh/id_rsa",     {"a@x.test", {}, {}, {}, {}},  "mailto:a@x.test"},
    {"mailto:a@x.test?%61ttach=/etc/passwd",         {"a@x.test", {}, {}, {}, {}},  "mailto:a@x.test"},
    {"mailto:a@x.test?insert=/etc/passwd&from=b",    {"a@x.test", {}, {}, {}, {}},  "mailto:a@x.test"},
    {"mailto:a@x.test?subject=x%26attach%3D/etc/passwd",
     {"a@x.test", {}, {}, "x&attach=/etc/passwd", {}}, "mailto:a@x.test?subject=x%26attach%3D%2Fetc%2Fpasswd"},
    // No header is smuggled in by a line end, no text by a mark of direction.
    {"mailto:a@x.test%0D%0ABcc:b@y.test", {"a@x.testBcc:b@y.test", {}, {}, {}, {}}, "mailto:a@x.testBcc%3Ab@y.test"},
    {"mailto:a@x.test?subject=a%0Ab",     {"a@x.test", {}, {}, "ab", {}},           "mailto:a@x.test?subject=ab"},
    {"mailto:a%E2%80%AE@x.test",          {"a@x.test", {}, {}, {}, {}},             "mailto:a@x.test"},
    {"mailto:%22 -attach x%22@x.test",    {"\" -attach x\"@x.test", {}, {}, {}, {}}, "mailto:%22%20-attach%20x%22@x.test"},
    // The first of two subjects is meant; a field without a value is none.
    {"mailto:a@x.test?subject=1&subject=2&body", {"a@x.test", {}, {}, "1", {}}, "mailto:a@x.test?subject=1"},
    {"mailto:a@x.test?subject=1#part",           {"a@x.test", {}, {}, "1", {}}, "mailto:a@x.test?subject=1"},
    {"mailto:a@x.test?body=caf%C3%A9+%E9",       {"a@x.test", {}, {}, {}, "caf\xC3\xA9+?"}, "mailto:a@x.test?body=caf%C3%A9%2B%3F"},
};
// clang-format on

TEST(AMailAddress, IsReadAsADraftAndWrittenClean) {
    for (const MailCase& row : kMailCases) {
        const auto draft = ReadMailAddress(row.address);
        ASSERT_TRUE(draft) << row.address;
        EXPECT_EQ(*draft, row.draft) << row.address << "\n" << MailDraftText(*draft);
        EXPECT_EQ(WriteMailAddress(*draft), row.clean) << row.address;
        EXPECT_EQ(ReadMailAddress(row.clean), draft) << row.address;
    }
}

TEST(AMailAddress, IsNothingElse) {
    EXPECT_FALSE(ReadMailAddress(""));
    EXPECT_FALSE(ReadMailAddress("http://a.test/?x=mailto:me"));
    EXPECT_FALSE(ReadMailAddress(" mailto:me@a.test"));
    EXPECT_FALSE(ReadMailAddress("mailto:me@a.test?body=" + std::string(40'000, 'x')));
}

TEST(AMailAddress, IsShownWithAllThatIsSent) {
    EXPECT_EQ(MailDraftText({"a@x.test", "c@x.test", "b@x.test", "Hello", "one\ntwo"}),
              "To: a@x.test\nCc: c@x.test\nBcc: b@x.test\nSubject: Hello\n\none\ntwo\n");
    EXPECT_EQ(MailDraftText({"a@x.test", {}, {}, {}, {}}), "To: a@x.test\n");
}

} // namespace
} // namespace tallowmere
