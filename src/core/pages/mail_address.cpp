#include "core/pages/mail_address.h"

#include "core/text/bytes.h"
#include "core/text/plain_text.h"

#include <array>

namespace tallowmere {

namespace {

constexpr std::string_view kScheme = "mailto:";
constexpr std::size_t kLongest = 32 * 1024;

struct Field {
    std::string_view name;
    std::string_view caption;
    std::string MailDraft::*value;
};

// clang-format off
constexpr std::array<Field, 5> kFields = {{
    {"to",      "To: ",      &MailDraft::to},
    {"cc",      "Cc: ",      &MailDraft::cc},
    {"bcc",     "Bcc: ",     &MailDraft::bcc},
    {"subject", "Subject: ", &MailDraft::subject},
    {"body",    "\n",        &MailDraft::body},
}};
// clang-format on

bool IsRecipients(const Field& field) {
    return field.value == &MailDraft::to || field.value == &MailDraft::cc ||
           field.value == &MailDraft::bcc;
}

void Add(MailDraft& draft, const Field& field, std::string_view encoded) {
    const bool keepsLines = field.value == &MailDraft::body;
    const std::string text = WithoutHiddenCharacters(PercentDecode(encoded), '?', keepsLines);
    std::string& value = draft.*field.value;
    // Of two subjects or bodies the first is meant; recipients add up.
    if (value.empty())
        value = text;
    else if (IsRecipients(field) && !text.empty())
        value += "," + text;
}

std::string Encode(const Field& field, std::string_view text) {
    std::string encoded = PercentEncode(text);
    if (IsRecipients(field))
        return ReplaceAll(ReplaceAll(encoded, "%40", "@"), "%2C", ",");
    return ReplaceAll(encoded, "%0A", "%0D%0A");
}

} // namespace

std::optional<MailDraft> ReadMailAddress(std::string_view address) {
    if (address.size() > kLongest || ToLower(address.substr(0, kScheme.size())) != kScheme)
        return std::nullopt;
    address = address.substr(kScheme.size());
    address = address.substr(0, address.find('#'));
    const std::size_t question = address.find('?');
    MailDraft draft;
    Add(draft, kFields[0], address.substr(0, question));
    if (question == std::string_view::npos)
        return draft;
    for (const std::string_view pair : Split(address.substr(question + 1), '&')) {
        const std::size_t equals = pair.find('=');
        const std::string name = ToLower(PercentDecode(pair.substr(0, equals)));
        if (equals == std::string_view::npos)
            continue;
        for (const Field& field : kFields)
            if (field.name == name)
                Add(draft, field, pair.substr(equals + 1));
    }
    return draft;
}

std::string WriteMailAddress(const MailDraft& draft) {
    std::string address = std::string(kScheme) + Encode(kFields[0], draft.to);
    char separator = '?';
    for (const Field& field : kFields) {
        const std::string& value = draft.*field.value;
        if (field.value == &MailDraft::to || value.empty())
            continue;
        address += separator;
        address += std::string(field.name) + "=" + Encode(field, value);
        separator = '&';
    }
    return address;
}

std::string MailDraftText(const MailDraft& draft) {
    std::string text;
    for (const Field& field : kFields) {
        const std::string& value = draft.*field.value;
        if (!value.empty())
            text += std::string(field.caption) + value + "\n";
    }
    return text;
}

} // namespace tallowmere
