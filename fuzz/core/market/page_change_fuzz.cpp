#include "core/market/page_change.h"

#include "check.h"
#include "core/text/plain_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace tallowmere;

namespace {

std::vector<std::string> Lines(std::string_view text) {
    const std::vector<std::string> lines = ComparedLines(text);
    for (const std::string& line : lines)
        Check(!line.empty() && line.front() != ' ' && line.back() != ' ' &&
              line.find("  ") == std::string::npos && WithoutHiddenCharacters(line, '\0') == line);
    return lines;
}

} // namespace

// The input is the text of a page before and now, apart by a byte that UTF-8 never has. What went
// is taken from the one and what came put into it: the other comes out.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.find('\xFE'), input.size());
    const auto before = Lines(input.substr(0, end));
    const auto now = Lines(input.substr(std::min(end + 1, input.size())));
    const auto changes = ChangedLines(before, now);
    Check(changes.empty() == (before == now));

    std::vector<std::string> gone, came;
    for (const ChangedLine& line : changes)
        (line.isNew ? came : gone).push_back(line.text);
    Check(before.size() - gone.size() == now.size() - came.size());
    // Both are parts of their texts, in order.
    const auto isPart = [](const std::vector<std::string>& part,
                           const std::vector<std::string>& whole) {
        auto at = whole.begin();
        for (const std::string& line : part) {
            at = std::find(at, whole.end(), line);
            if (at == whole.end())
                return false;
            ++at;
        }
        return true;
    };
    Check(isPart(gone, before) && isPart(came, now));
    return 0;
}
