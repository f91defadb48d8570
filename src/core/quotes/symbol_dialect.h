#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// One share, many spellings: how each source writes the symbols that the program writes its own
/// way (upper case, class shares with a dot, indices with a caret as in the strip).
namespace tallowmere {

enum class Dialect : std::uint8_t { Yahoo, Cnbc, Nasdaq, Cboe, Fred, Treasury };

/// The program's form of a symbol in any spelling that people or sources use without ambiguity:
/// "brk-b" and "BRK/B" give "BRK.B", "^GSPC" gives "^SPC".
std::string OwnSymbol(std::string_view symbol);

/// How `dialect` writes a symbol given in the program's form; none where it has no such symbol.
std::optional<std::string> ToDialect(std::string_view ownSymbol, Dialect dialect);

/// The program's form of a symbol that a source wrote in `dialect`.
std::string FromDialect(std::string_view symbol, Dialect dialect);

/// Whether a symbol in the program's form is an index or a yield.
inline bool IsIndexSymbol(std::string_view ownSymbol) {
    return ownSymbol.starts_with('^');
}

/// The name of an index that the program knows, empty for anything else.
std::string_view IndexName(std::string_view ownSymbol);

} // namespace tallowmere
