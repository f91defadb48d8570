#include "core/custom/multi_link.h"
#include "core/links/before_navigate.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace tallowmere;

constexpr std::size_t kLongest = 128; // the slow expansion goes byte by byte

// A byte of the input stands for the piece of its number, any other byte for itself.
constexpr std::string_view kPieces[] = {
    "LCASETICK", "UCASETICK",    "LEFTONE",
    "CASETICK",  "LCASE",        "TICK",
    "LEFT",      "ONE",          "MULTILINK:",
    ".mlnk",     "\"></IFRAME>", "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes SRC=\"",
    "../",       "CON"};

/// The same, byte by byte.
std::string ExpandSlowly(std::string_view page, const TickerForms& forms) {
    std::string expanded;
    while (!page.empty()) {
        std::size_t length = 1;
        if (page.starts_with("LCASETICK")) {
            expanded += forms.lower;
            length = 9;
        } else if (page.starts_with("UCASETICK")) {
            expanded += forms.upper;
            length = 9;
        } else if (page.starts_with("LEFTONE")) {
            expanded += forms.first;
            length = 7;
        } else {
            expanded += page.front();
        }
        page.remove_prefix(length);
    }
    return expanded;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text;
    for (std::size_t i = 0; i < std::min(size, kLongest); ++i) {
        if (data[i] < std::size(kPieces))
            text += kPieces[data[i]];
        else
            text += static_cast<char>(data[i]);
    }
    for (const std::string_view ticker : {"MSFT", "LeftOne", ""}) {
        if (ExpandMultiLink(text, FormsOf(ticker)) != ExpandSlowly(text, FormsOf(ticker)))
            std::abort();
    }

    // What is recorded is read back, whatever it holds but the quote mark that ends an address.
    std::string page(kMultiLinkHead);
    std::vector<std::string> addresses;
    for (const std::string_view address : Split(text, '\n')) {
        page += MultiLinkFrame(address);
        addresses.push_back(ReplaceAll(address, "\"", "%22"));
    }
    page += kMultiLinkTail;
    if (RecordedAddresses(page) != addresses)
        std::abort();
    RecordedAddresses(text);

    // A name that is accepted is that of a file in the folder.
    const std::filesystem::path folder = "folder";
    for (const auto& name : {StoredPageName(text), StoredPageName("MULTILINK:" + text + ".mlnk"),
                             MultiLinkPageName(text)}) {
        if (name && ((folder / *name).lexically_normal().parent_path() != folder ||
                     !name->ends_with(".mlnk") || Contains(*name, "\\")))
            std::abort();
    }
    return 0;
}
