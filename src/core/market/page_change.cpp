#include "core/market/page_change.h"

#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace tallowmere {

namespace {

using Lines = std::span<const std::string>;

std::string WithSingleBlanks(std::string_view line) {
    std::string text;
    for (const char c : line) {
        if (c != ' ')
            text += c;
        else if (!text.empty() && text.back() != ' ')
            text += ' ';
    }
    if (text.ends_with(' '))
        text.pop_back();
    return text;
}

/// How many lines two texts have in common from each of their lines on, as a table with a row more
/// and a column more than they have lines.
class CommonLines {
public:
    CommonLines(Lines before, Lines now)
        : m_columns(now.size() + 1), m_cells((before.size() + 1) * m_columns) {
        for (std::size_t row = before.size(); row-- > 0;)
            for (std::size_t column = now.size(); column-- > 0;)
                Cell(row, column) = before[row] == now[column]
                                        ? Cell(row + 1, column + 1) + 1
                                        : std::max(Cell(row + 1, column), Cell(row, column + 1));
    }
    std::uint32_t& Cell(std::size_t row, std::size_t column) {
        return m_cells[row * m_columns + column];
    }

private:
    std::size_t m_columns;
    std::vector<std::uint32_t> m_cells;
};

void AddAll(Lines lines, bool areNew, std::vector<ChangedLine>& changed) {
    for (const std::string& line : lines)
        changed.push_back({areNew, line});
}

void Compare(Lines before, Lines now, std::vector<ChangedLine>& changed) {
    CommonLines common(before, now);
    std::size_t row = 0;
    std::size_t column = 0;
    while (row < before.size() && column < now.size()) {
        if (before[row] == now[column]) {
            ++row;
            ++column;
        } else if (common.Cell(row + 1, column) >= common.Cell(row, column + 1)) {
            changed.push_back({false, before[row++]});
        } else {
            changed.push_back({true, now[column++]});
        }
    }
    AddAll(before.subspan(row), false, changed);
    AddAll(now.subspan(column), true, changed);
}

std::string Amount(std::size_t count, std::string_view what) {
    return std::to_string(count) + (count == 1 ? " line is " : " lines are ") + std::string(what);
}

} // namespace

std::vector<std::string> ComparedLines(std::string_view text) {
    // Tabs and blanks that keep words together look like any other.
    std::string plain = ReplaceAll(std::string(FrontOf(text, kMostComparedText)), "\t", " ");
    plain = ReplaceAll(std::move(plain), "\u00A0", " ");
    plain = WithoutHiddenCharacters(plain, '?', true);
    std::vector<std::string> lines;
    for (const std::string_view line : Split(plain, '\n'))
        if (std::string single = WithSingleBlanks(line); !single.empty())
            lines.push_back(std::move(single));
    return lines;
}

std::vector<ChangedLine> ChangedLines(const std::vector<std::string>& before,
                                      const std::vector<std::string>& now) {
    Lines left(before);
    Lines right(now);
    const auto [endLeft, endRight] = std::ranges::mismatch(left, right);
    left = left.subspan(static_cast<std::size_t>(endLeft - left.begin()));
    right = right.subspan(static_cast<std::size_t>(endRight - right.begin()));
    while (!left.empty() && !right.empty() && left.back() == right.back()) {
        left = left.first(left.size() - 1);
        right = right.first(right.size() - 1);
    }
    std::vector<ChangedLine> changed;
    if ((left.size() + 1) * (right.size() + 1) <= kMostComparedCells) {
        Compare(left, right, changed);
    } else {
        AddAll(left, false, changed);
        AddAll(right, true, changed);
    }
    return changed;
}

std::string ChangeWords(const std::vector<ChangedLine>& lines) {
    const auto came =
        static_cast<std::size_t>(std::ranges::count(lines, true, &ChangedLine::isNew));
    const std::size_t went = lines.size() - came;
    if (came == 0 || went == 0)
        return came == 0 ? Amount(went, "gone") : Amount(came, "new");
    return Amount(came, "new") + ", " + std::to_string(went) + (went == 1 ? " is" : " are") +
           " gone";
}

} // namespace tallowmere
