#include "core/links/server_lists.h"

#include "core/links/web_address.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Entries are numbered without a gap; no address holds its closing mark, no caption the end of the
// anchor or a control character, and what counts as a web address begins like one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    int index = kFirstNewSite;
    for (const ServerEntry& entry : ReadNewSites({reinterpret_cast<const char*>(data), size})) {
        if (entry.index != index++ || entry.target.find("\">") != std::string::npos ||
            entry.caption.find("</a>") != std::string::npos ||
            entry.caption.find_first_of("\r\n\t") != std::string::npos)
            std::abort();
        if (IsWebAddress(entry.target) && (entry.target[0] | 0x20) != 'h')
            std::abort();
    }
    return 0;
}
