#include "core/links/server_lists.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Books are numbered without a gap; no code holds the hyphen that ends it, no title the mark that
// ends it or a control character.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    int index = kFirstBook;
    for (const ServerEntry& book : ReadBookList({reinterpret_cast<const char*>(data), size})) {
        if (book.index != index++ || book.target.find('-') != std::string::npos ||
            book.caption.find_first_of("<\r\n\t") != std::string::npos)
            std::abort();
    }
    return 0;
}
