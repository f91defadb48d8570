#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace tallowmere {

struct Date;

/// How often and how lately things were opened. A use counts for half as much every two weeks
/// later; of many things only those that count most are kept.
class UseRecord {
public:
    static constexpr std::size_t kMostThings = 200;

    /// Reads what Text gave; what cannot be read of it is left out. Any bytes will do.
    explicit UseRecord(std::string_view text = {});

    /// A line for each thing: the day (since 1 January 1970), what its uses counted for on it, in
    /// thousandths, and its name, percent-encoded.
    std::string Text() const;

    /// A thing was opened on a day.
    void Note(std::string_view name, Date today);

    /// What the uses of a thing count for on a day; 0 for one that was never opened.
    double Of(std::string_view name, Date today) const;

private:
    struct Use {
        std::int64_t day, thousandths;
    };

    static double Worth(const Use& use, std::int64_t day);

    std::map<std::string, Use, std::less<>> m_uses;
};

} // namespace tallowmere
