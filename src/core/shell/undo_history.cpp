#include "core/shell/undo_history.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <charconv>

namespace tallowmere {

namespace {

constexpr std::string_view kHead = "Tallowmere undo 2\n";
constexpr std::string_view kOldHead = "Tallowmere undo 1\n"; // without the places of keys

std::uint64_t Hash(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return hash;
}

std::size_t BytesOf(const UndoStep& step) {
    std::size_t bytes = step.caption.size() + step.removed.size();
    for (const UndoChange& change : step.changes)
        bytes += change.key.size() + change.before.size() + change.after.size();
    return bytes;
}

// A number stands on a line of its own, a text behind the line with its size.

void Put(std::string& text, std::uint64_t number) {
    text += std::to_string(number) += '\n';
}

void Put(std::string& text, std::string_view piece) {
    Put(text, piece.size());
    text.append(piece) += '\n';
}

void Put(std::string& text, const TextPrint& print) {
    Put(text, print.isThere ? 1 : 0);
    Put(text, print.size);
    Put(text, print.hash);
}

/// Reads what Put wrote; once something is wrong, nothing is read any more.
class Reader {
public:
    explicit Reader(std::string_view text) : m_cursor(text) {}

    bool IsGood() const { return m_isGood; }
    bool IsAtEnd() const { return m_cursor.AtEnd(); }

    std::uint64_t Number() {
        std::string_view line;
        m_isGood = m_isGood && m_cursor.ReadUpTo("\n", line);
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
        m_isGood = m_isGood && error == std::errc() && end == line.data() + line.size();
        return m_isGood ? number : 0;
    }

    std::string Text() {
        const std::uint64_t size = Number();
        const std::string_view rest = m_cursor.Rest();
        m_isGood = m_isGood && size < rest.size() && rest[static_cast<std::size_t>(size)] == '\n';
        if (!m_isGood)
            return {};
        m_cursor.Skip(static_cast<std::size_t>(size) + 1);
        return std::string(rest.substr(0, static_cast<std::size_t>(size)));
    }

    TextPrint Print() {
        TextPrint print;
        print.isThere = Number() == 1;
        print.size = Number();
        print.hash = Number();
        return print;
    }

private:
    Cursor m_cursor;
    bool m_isGood = true;
};

} // namespace

TextPrint PrintOf(const std::optional<std::string>& text) {
    const std::string_view bytes = text ? std::string_view(*text) : std::string_view();
    return {text.has_value(), bytes.size(), Hash(bytes)};
}

std::optional<UndoChange> MakeUndoChange(std::string_view section, std::string_view key,
                                         const std::optional<std::string>& before,
                                         const std::optional<std::string>& after) {
    if (before == after)
        return std::nullopt;
    const std::string_view old = before ? std::string_view(*before) : std::string_view();
    const std::string_view changed = after ? std::string_view(*after) : std::string_view();
    const auto front = std::mismatch(old.begin(), old.end(), changed.begin(), changed.end());
    const auto at = static_cast<std::size_t>(front.first - old.begin());
    const std::string_view oldRest = old.substr(at);
    const std::string_view newRest = changed.substr(at);
    const auto back =
        std::mismatch(oldRest.rbegin(), oldRest.rend(), newRest.rbegin(), newRest.rend());
    const auto same = static_cast<std::size_t>(back.first - oldRest.rbegin());
    return UndoChange{std::string(section),
                      std::string(key),
                      at,
                      std::string(oldRest.substr(0, oldRest.size() - same)),
                      std::string(newRest.substr(0, newRest.size() - same)),
                      PrintOf(before),
                      PrintOf(after)};
}

bool Fits(const UndoChange& change, UndoDirection direction,
          const std::optional<std::string>& now) {
    const bool isBack = direction == UndoDirection::Back;
    TextPrint wanted = isBack ? change.afterPrint : change.beforePrint;
    TextPrint found = PrintOf(now);
    if (change.section.empty())
        wanted.isThere = found.isThere = true;
    // What was read from a file may say anything.
    const std::string& bytes = isBack ? change.after : change.before;
    const std::string_view text = now ? std::string_view(*now) : std::string_view();
    return wanted == found && change.at <= text.size() &&
           text.substr(static_cast<std::size_t>(change.at)).starts_with(bytes);
}

std::optional<std::string> Changed(const UndoChange& change, UndoDirection direction,
                                   const std::optional<std::string>& now) {
    const bool isBack = direction == UndoDirection::Back;
    if (!(isBack ? change.beforePrint : change.afterPrint).isThere)
        return std::nullopt;
    const std::string& gone = isBack ? change.after : change.before;
    const std::string& come = isBack ? change.before : change.after;
    std::string text = now.value_or("");
    return text.replace(static_cast<std::size_t>(change.at), gone.size(), come);
}

std::string UndoSubject(const UndoChange& change) {
    struct Subject {
        std::string_view prefix, words;
    };
    // clang-format off
    constexpr Subject kSubjects[] = {
        {"Stocks",   "portfolio "},
        {"PortName", "the name of portfolio "},
        {"CustomT",  "custom link "},
        {"CustomF",  "custom link "},
        {"CustomB",  "custom link "},
        {"Custom",   "custom link "},
    };
    // clang-format on
    if (change.section == "Colors")
        return "the colours";
    if (change.section.empty())
        return change.key == "TickNotes.txt" ? "the notes"
               : change.key == "remind.txt"  ? "the reminders"
               : change.key == "alerts.txt"  ? "the alerts"
                                             : change.key;
    for (const auto& [prefix, words] : kSubjects)
        if (change.key.starts_with(prefix))
            return std::string(words).append(change.key, prefix.size());
    return change.key;
}

void UndoHistory::Record(UndoStep step) {
    m_steps.resize(m_done);
    m_steps.push_back(std::move(step));
    m_done = m_steps.size();
    Cap();
}

void UndoHistory::Cap() {
    std::size_t bytes = 0;
    for (const UndoStep& step : m_steps)
        bytes += BytesOf(step);
    while (m_steps.size() > m_mostSteps || (bytes > kMostBytes && !m_steps.empty())) {
        bytes -= BytesOf(m_steps.front());
        m_steps.pop_front();
        m_done -= m_done > 0 ? 1 : 0;
    }
}

const UndoStep* UndoHistory::Next(UndoDirection direction) const {
    if (direction == UndoDirection::Back)
        return m_done > 0 ? &m_steps[m_done - 1] : nullptr;
    return m_done < m_steps.size() ? &m_steps[m_done] : nullptr;
}

void UndoHistory::Pass(UndoDirection direction) {
    if (Next(direction) != nullptr)
        direction == UndoDirection::Back ? --m_done : ++m_done;
}

void UndoHistory::Drop(UndoDirection direction) {
    if (Next(direction) == nullptr)
        return;
    if (direction == UndoDirection::Back)
        --m_done;
    m_steps.erase(m_steps.begin() + static_cast<std::ptrdiff_t>(m_done));
}

std::string UndoHistory::Text() const {
    std::string text(kHead);
    Put(text, m_done);
    Put(text, m_steps.size());
    for (const UndoStep& step : m_steps) {
        Put(text, step.caption);
        Put(text, step.removed);
        Put(text, step.changes.size());
        for (const UndoChange& change : step.changes) {
            Put(text, change.section);
            Put(text, change.key);
            Put(text, change.at);
            Put(text, change.before);
            Put(text, change.after);
            Put(text, change.beforePrint);
            Put(text, change.afterPrint);
            Put(text, change.behind ? 1 : 0);
            Put(text, change.behind.value_or(""));
        }
    }
    return text;
}

std::optional<UndoHistory> ReadUndoHistory(std::string_view text, std::size_t mostSteps) {
    UndoHistory history(mostSteps);
    if (text.empty())
        return history;
    const bool isOld = text.starts_with(kOldHead);
    if (!isOld && !text.starts_with(kHead))
        return std::nullopt;
    Reader reader(text.substr(kHead.size()));
    const std::uint64_t done = reader.Number();
    const std::uint64_t steps = reader.Number();
    for (std::uint64_t n = 0; n < steps && reader.IsGood(); ++n) {
        UndoStep& step = history.m_steps.emplace_back();
        step.caption = reader.Text();
        step.removed = reader.Text();
        const std::uint64_t changes = reader.Number();
        for (std::uint64_t m = 0; m < changes && reader.IsGood(); ++m) {
            UndoChange& change = step.changes.emplace_back();
            change.section = reader.Text();
            change.key = reader.Text();
            change.at = reader.Number();
            change.before = reader.Text();
            change.after = reader.Text();
            change.beforePrint = reader.Print();
            change.afterPrint = reader.Print();
            if (isOld)
                continue;
            const bool hasPlace = reader.Number() == 1;
            if (std::string place = reader.Text(); hasPlace)
                change.behind = std::move(place);
        }
    }
    if (!reader.IsGood() || !reader.IsAtEnd() || done > steps)
        return std::nullopt;
    history.m_done = static_cast<std::size_t>(done);
    history.Cap();
    return history;
}

} // namespace tallowmere
