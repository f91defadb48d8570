#include "core/finder/finder_line.h"

#include "check.h"
#include "core/text/plain_text.h"

#include <cstddef>
#include <cstdint>

using namespace tallowmere;

// What is taken for an address is a part of the line without blanks, with nothing in it that is not
// seen, and is taken for the same address again; no scheme but that of the web leads anywhere.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view line(reinterpret_cast<const char*>(data), size);
    const std::string address = AddressIn(line);
    Check(line.find(address) != std::string_view::npos);
    Check(address.find_first_of(" \t\r\n") == std::string::npos);
    Check(WithoutHiddenCharacters(address, '\0') == address);
    Check(AddressIn(address) == address);
    Check(AddressIn(" " + address + "\n") == address);
    for (const char* scheme : {"javascript:", "file:", "data:", "JavaScript:", "mailto:"})
        Check(!address.starts_with(scheme));
    return 0;
}
