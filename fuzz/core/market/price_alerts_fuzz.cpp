#include "core/market/alert_book.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace tallowmere;

namespace {

void Need(bool isSo) {
    if (!isSo)
        std::abort();
}

} // namespace

// What is read is written back and read again as the same; no line is lost, no number stands twice,
// an alert fires once, and never without a price that could.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const AlertList list = ReadAlerts(text);
    const AlertList again = ReadAlerts(WriteAlerts(list));
    Need(again.alerts == list.alerts && again.unread == list.unread);
    Need(UnreadWords(list).empty() == list.unread.empty());

    const std::vector<FiredAlert> log = ReadAlertLog(text);
    Need(ReadAlertLog(WriteAlertLog(log, list.alerts)).size() <= log.size());

    const auto typed = ReadTypedNumber(text.substr(0, 80));
    AlertBook book(list, log);
    const auto read = [&](const std::string&) {
        ListedPrice price;
        price.last = typed.value_or(static_cast<double>(size));
        price.percent = price.last / 10;
        price.time = static_cast<std::int64_t>(size);
        return std::optional(price);
    };
    const std::vector<std::string> armed = book.ArmedTickers();
    for (const FiredAlert& fired : book.Check(armed, read, 1)) {
        Need(fired.price > 0 && book.FiredBy(fired.alert.id));
        Need(!FiredWords(fired).empty());
    }
    Need(book.Check(armed, read, 2).empty());
    Need(book.NewId(0) > 0 && !book.Find(book.NewId(0)));
    for (const std::string& ticker : armed)
        Need(!StandingWords(book.StandingOf(ticker)).empty());
    return 0;
}
