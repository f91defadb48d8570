#include "core/pages/saved_page.h"

#include "core/pages/download_name.h"
#include "core/text/bytes.h"
#include "core/text/cut_characters.h"

namespace tallowmere {

namespace {

constexpr std::size_t kLongestName = 120; // in bytes: file systems bound the whole path

} // namespace

SavedForm SavedFormOf(std::string_view fileName) {
    const std::string name = ToLower(fileName);
    if (name.ends_with(".mhtml") || name.ends_with(".mht"))
        return SavedForm::OneFile;
    if (name.ends_with(".txt"))
        return SavedForm::Text;
    if (name.ends_with(".pdf"))
        return SavedForm::Pdf;
    return SavedForm::Complete;
}

std::string PageFileName(std::string_view title, std::string_view address,
                         std::string_view ending) {
    std::string_view name = Trim(title);
    if (name.empty()) {
        name = address;
        if (const auto scheme = name.find("://"); scheme != std::string_view::npos)
            name.remove_prefix(scheme + 3);
    }
    // Of a folder in the name only the last part would be left.
    std::string plain(CutCharacters(name, kLongestName));
    for (char& character : plain)
        if (character == '/' || character == '\\')
            character = '-';
    return PlainDownloadName(plain + std::string(ending));
}

std::string PageNumberText(int page, int pages) {
    return "Page " + std::to_string(page) + " of " + std::to_string(pages);
}

} // namespace tallowmere
