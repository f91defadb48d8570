#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Pages that the user saves and prints.
namespace tallowmere {

/// How a page is saved.
enum class SavedForm : std::uint8_t {
    Complete, ///< its text as HTML, and beside it a folder with its pictures
    OneFile,  ///< all of it in one archive
    Text,     ///< what is to be read
    Pdf       ///< as it is printed
};

/// The form that the ending of a file's name asks for, in any case: ".mhtml" or ".mht", ".txt",
/// ".pdf"; every other name is saved with all that belongs to it.
SavedForm SavedFormOf(std::string_view fileName);

/// A plain file name for a page of that title, or without a title for one of that address.
/// `ending` goes behind it: ".pdf".
std::string PageFileName(std::string_view title, std::string_view address, std::string_view ending);

/// What stands at the edges of every printed page.
struct PrintMarks {
    std::string title, time; ///< above, left and right
    std::string address;     ///< below, left
};

/// What stands below, right: "Page 2 of 5".
std::string PageNumberText(int page, int pages);

} // namespace tallowmere
