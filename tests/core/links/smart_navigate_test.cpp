#include "core/links/smart_navigate.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct EntryCase {
    std::string_view entry;
    std::string_view address;
};

class NavigateEntry : public testing::TestWithParam<EntryCase> {};

TEST_P(NavigateEntry, IsCompletedIntoAnAddress) {
    EXPECT_EQ(CompleteEntry(GetParam().entry), GetParam().address) << GetParam().entry;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, NavigateEntry, testing::Values(
    EntryCase{"quotes",                 "www.quotes.com"},
    EntryCase{"  Quotes ",              "www.Quotes.com"},
    EntryCase{"two words",              "www.two words.com"},
    EntryCase{"localhost:8080/x",       "www.localhost:8080/x.com"},
    EntryCase{"www.quotes.test",        "www.quotes.test"},
    EntryCase{"http://quotes.test/a b", "http://quotes.test/a b"},
    EntryCase{"127.0.0.1",              "127.0.0.1"},
    EntryCase{" quotes.test ",          "quotes.test"},
    EntryCase{".",                      "."},
    EntryCase{"",                       ""},
    EntryCase{"   ",                    ""}));
// clang-format on

} // namespace
} // namespace tallowmere
