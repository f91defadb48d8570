#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The addresses of mails that a page offers to write.
namespace tallowmere {

/// What a mail address asks for, decoded, in UTF-8 without hidden characters. Only the body has
/// lines. What else an address may ask for, files of the user to be sent along above all, is
/// dropped.
struct MailDraft {
    std::string to; ///< recipients, separated by commas
    std::string cc;
    std::string bcc;
    std::string subject;
    std::string body;
    friend bool operator==(const MailDraft&, const MailDraft&) = default;
};

/// Reads a "mailto:" address. None when it is no such address, or longer than any mail program
/// takes.
std::optional<MailDraft> ReadMailAddress(std::string_view address);

/// The address that asks for this draft and no more.
std::string WriteMailAddress(const MailDraft& draft);

/// The draft as it is shown to the user, a line for each thing that it holds.
std::string MailDraftText(const MailDraft& draft);

} // namespace tallowmere
