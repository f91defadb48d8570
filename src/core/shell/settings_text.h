#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// The settings file as text: an INI file that people may edit by hand. Sections and keys are
/// matched whatever their case; of two equal keys the last one counts; lines before the first
/// section belong to "Settings", where a file that lost its head has them. A value stands as it is
/// unless that would change it; then it stands in double quotes, with the escapes of C.
namespace tallowmere {

/// The values of a settings text.
class SettingsValues {
public:
    explicit SettingsValues(std::string_view text);

    /// The value of a key, nothing when it is absent. Valid as long as this object.
    const std::string* Find(std::string_view section, std::string_view key) const;

private:
    std::map<std::pair<std::string, std::string>, std::string> m_values;
};

/// The text with one value set. A known key keeps its place and spelling, a new one goes behind the
/// key `behind` of its section, to its front where that is empty, and to its end without such a
/// key; every other line stays as it is, except the damaged ones, which go.
std::string ChangeSettingsText(std::string_view text, std::string_view section,
                               std::string_view key, std::string_view value,
                               const std::optional<std::string>& behind = std::nullopt);

/// The key of the section behind which a key stands, empty when it is the first; none when it is
/// not there.
std::optional<std::string> KeyBefore(std::string_view text, std::string_view section,
                                     std::string_view key);

/// The text without a key, in whatever case and however often it stands there. A section at the end
/// of the text that holds nothing any more goes too, with the empty line before it.
std::string RemoveSettingText(std::string_view text, std::string_view section,
                              std::string_view key);

/// Whether some line holds control characters, which no one writes: such a line is not read.
bool IsDamagedSettingsText(std::string_view text);

} // namespace tallowmere
