#include "core/pages/mail_address.h"

#include "core/pages/plain_text_check.h"
#include "core/text/bytes.h"

#include <cstddef>
#include <set>
#include <string>

namespace {

using namespace tallowmere;

constexpr std::size_t kLongest = 32 * 1024;

/// Whether an address holds nothing but the named fields, once each, and in them nothing that a
/// mail program or a shell could take for more.
void CheckClean(std::string_view clean) {
    constexpr std::string_view scheme = "mailto:";
    Demand(clean.starts_with(scheme));
    clean.remove_prefix(scheme.size());
    for (const char c : clean)
        Demand(c > ' ' && c < '\x7F' &&
               std::string_view("\"'<>\\`|;$#()*!").find(c) == std::string_view::npos);
    const auto question = clean.find('?');
    if (question == clean.npos)
        return;
    std::set<std::string_view> seen;
    for (const std::string_view pair : Split(clean.substr(question + 1), '&')) {
        const std::string_view name = pair.substr(0, pair.find('='));
        Demand(name == "cc" || name == "bcc" || name == "subject" || name == "body");
        Demand(seen.insert(name).second);
        Demand(CountOccurrences(pair, "=") == 1 && !Contains(pair, "?"));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string address = "mailto:" + std::string(reinterpret_cast<const char*>(data), size);
    const auto draft = ReadMailAddress(address);
    Demand(draft.has_value() == (address.size() <= kLongest));
    if (!draft)
        return 0;
    Demand(IsPlain(draft->to) && IsPlain(draft->cc) && IsPlain(draft->bcc) &&
           IsPlain(draft->subject) && IsPlain(draft->body, true));
    const std::string clean = WriteMailAddress(*draft);
    CheckClean(clean);
    if (clean.size() <= kLongest)
        Demand(ReadMailAddress(clean) == draft);
    // All that is sent is seen before.
    const std::string shown = MailDraftText(*draft);
    for (const std::string* part :
         {&draft->to, &draft->cc, &draft->bcc, &draft->subject, &draft->body})
        Demand(Contains(shown, *part) || part->empty());
    // A wish for a file changes nothing, wherever and however it is written.
    for (const std::string_view wish : {"attach=/etc/passwd", "%41ttachment=~/x", "insert=x"}) {
        std::string wanting = address.substr(0, address.find('#'));
        wanting.append(Contains(wanting, "?") ? "&" : "?").append(wish);
        if (wanting.size() <= kLongest)
            Demand(ReadMailAddress(wanting) == draft);
    }
    return 0;
}
