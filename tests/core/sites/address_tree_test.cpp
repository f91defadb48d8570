#include "core/sites/address_tree.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct Found {
    int id; ///< -1 for none
    std::string value;
};

void PrintTo(const Found& found, std::ostream* out) {
    *out << found.id << " '" << found.value << "'";
}

bool operator==(const Found& left, const Found& right) {
    return left.id == right.id && left.value == right.value;
}

AddressTree MakeTree() {
    AddressTree tree;
    tree.Add("www.a.example/", 0);
    tree.Add("www.a.example/q?s={lower}&d=2b", 1);
    tree.Add("www.a.example/q?s={lower}&d={any}", 2);
    tree.Add("www.a.example/q?s={lower}", 3);
    tree.Add("www.a.example/p/{first}/{lower}.html", 4);
    tree.Add("www.a.example/all?t={list}&v=1", 5);
    tree.Add("https://b.example:8080/x/{upper}/{upper}", 6);
    tree.Add("www.a.example/{any}", 7);
    return tree;
}

Found Find(const AddressTree& tree, std::string_view address) {
    const auto hit = tree.Find(address);
    return hit ? Found{static_cast<int>(hit->id), hit->value} : Found{-1, ""};
}

TEST(AddressTree, FindsTheTemplateThatAnAddressWasBuiltFrom) {
    const AddressTree tree = MakeTree();
    struct Case {
        std::string_view address;
        Found found;
    };
    for (const Case& c : {Case{"www.a.example", {0, ""}},
                          {"http://WWW.A.example/", {0, ""}},
                          {"www.a.example/q?s=msft&d=2b", {1, "MSFT"}},
                          {"https://www.a.example/q?s=MSFT&d=2b ", {1, "MSFT"}},
                          {"www.a.example/q?s=msft&d=1y", {2, "MSFT"}},
                          {"www.a.example/q?s=msft&d=", {2, "MSFT"}},
                          {"www.a.example/q?s=%5Espc", {3, "^SPC"}},
                          {"www.a.example/p/m/msft.html", {4, "MSFT"}},
                          {"www.a.example/all?t=a%20b&v=1", {5, "a b"}},
                          {"b.example:8080/x/A/a", {6, "A"}},
                          {"www.a.example/elsewhere", {7, ""}}})
        EXPECT_EQ(Find(tree, c.address), c.found) << c.address;
}

TEST(AddressTree, DoesNotFindWhatNoTemplateGives) {
    const AddressTree tree = MakeTree();
    for (const char* address : {"", "c.example/", "b.example/x/A/A", "b.example:8080/",
                                "b.example:8080/x/A/B", "b.example:8080/x/A", "://", "/q?s=msft"})
        EXPECT_EQ(Find(tree, address), (Found{-1, ""})) << address;
}

TEST(AddressTree, TakesNoFurtherPartOfTheQueryForATicker) {
    AddressTree tree;
    tree.Add("a.example/q?s={lower}&d=2b", 1);
    EXPECT_FALSE(tree.Find("a.example/q?s=x&y=1&d=2b"));
    EXPECT_EQ(tree.Find("a.example/q?s=x%26y&d=2b")->value, "X&Y");
    EXPECT_FALSE(tree.Find("a.example/q?s=a%20b&d=2b")) << "two tickers are not one";
}

TEST(AddressTree, WantsTheFirstLetterToBeThatOfTheTicker) {
    AddressTree tree;
    tree.Add("a.example/p/{first}/{lower}.html", 1);
    EXPECT_TRUE(tree.Find("a.example/p/m/msft.html"));
    EXPECT_FALSE(tree.Find("a.example/p/x/msft.html"));
}

TEST(AddressTree, PrefersTheLongestPrefixThenTheLongestEndThenTheFirst) {
    AddressTree tree;
    tree.Add("a.example/{any}", 1);
    tree.Add("a.example/q/{any}", 2);
    tree.Add("a.example/q/{any}.html", 3);
    tree.Add("a.example/q/{list}.html", 4);
    EXPECT_EQ(tree.Find("a.example/q/x.html")->id, 3u);
    EXPECT_EQ(tree.Find("a.example/q/x")->id, 2u);
    EXPECT_EQ(tree.Find("a.example/r")->id, 1u);
}

TEST(AddressTree, FindsPathsWithoutAHost) {
    AddressTree tree;
    tree.Add("/q?s={lower}", 1);
    EXPECT_EQ(tree.Find("/q?s=msft")->value, "MSFT");
    EXPECT_FALSE(tree.Find("a.example/q?s=msft"));
    EXPECT_TRUE(MakeTree().KnowsHost("B.example:8080"));
    EXPECT_FALSE(MakeTree().KnowsHost("b.example"));
}

} // namespace
} // namespace tallowmere
