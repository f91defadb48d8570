#include "core/pages/page_policy.h"

#include "core/text/bytes.h"

namespace tallowmere {

namespace {

constexpr std::string_view kBase =
    "default-src 'none'; base-uri 'none'; style-src 'unsafe-inline' portal:";
constexpr std::string_view kPictures = "; img-src http: https: portal: data:";
constexpr std::string_view kFrames = "; frame-src http: https: portal:";
constexpr std::string_view kNoForms = "; form-action 'none'";
constexpr std::string_view kReport = "report.html";
constexpr std::string_view kMultiLink = "multiweb.html";
constexpr std::string_view kMultiLinkSuffix = ".mlnk";
constexpr std::string_view kDoctype = "<!doctype";

} // namespace

std::string PolicyOfGenerated(std::string_view name) {
    std::string policy(kBase);
    if (name == kMultiLink || name.ends_with(kMultiLinkSuffix))
        policy += kFrames;
    else if (name != kReport)
        policy += kPictures;
    return policy.append(kNoForms);
}

std::string PolicyOfMade(std::string_view scriptHash) {
    std::string policy(kBase);
    policy += kPictures;
    if (!scriptHash.empty())
        policy.append("; script-src 'sha256-").append(scriptHash).append("'");
    return policy.append(kNoForms);
}

std::string PolicyOfText() {
    return std::string(kBase).append(kNoForms);
}

// Behind a document type, which counts only in front of all else.
std::string WithHead(std::string_view page, std::string_view elements) {
    std::size_t at = page.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    const std::size_t text = page.find_first_not_of(" \t\r\n", at);
    if (text != std::string_view::npos && ToLower(page.substr(text, kDoctype.size())) == kDoctype) {
        const std::size_t end = page.find('>', text);
        at = end == std::string_view::npos ? at : end + 1;
    }
    std::string result(page.substr(0, at));
    return result.append(elements).append(page.substr(at));
}

std::string WithPolicy(std::string_view page, std::string_view policy) {
    return WithHead(page, std::string("<meta http-equiv=\"Content-Security-Policy\" content=\"")
                              .append(policy)
                              .append("\">"));
}

} // namespace tallowmere
