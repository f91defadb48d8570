#include "core/sites/address_tree.h"

#include "core/links/address.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

/// A root is nobody's child, so the number of the first stands for no node.
constexpr std::uint32_t kNoNode = 0;

/// The path decoded, but for the marks that would divide it anew.
std::string Decoded(std::string_view path) {
    if (!Contains(path, "%"))
        return std::string(path);
    std::string kept = ReplaceAll(path, "%26", "%2526");
    kept = ReplaceAll(kept, "%23", "%2523");
    kept = ReplaceAll(kept, "%3f", "%253F");
    return PercentDecode(ReplaceAll(kept, "%3F", "%253F"));
}

std::string NormalPath(std::string_view path) {
    const std::string decoded = Decoded(path);
    const std::string_view trimmed = Trim(decoded);
    // A query right behind the host stands for one of the page "/".
    return std::string(trimmed.starts_with('/') ? "" : "/").append(trimmed);
}

std::string_view FixedPrefix(std::string_view pathTemplate) {
    return pathTemplate.substr(0, pathTemplate.find('{'));
}

std::size_t FixedEndLength(std::string_view pathTemplate) {
    const auto field = pathTemplate.rfind('}');
    return field == std::string_view::npos ? 0 : pathTemplate.size() - field - 1;
}

/// What was read from the fields of a path so far.
struct Values {
    std::string ticker;
    std::string first;
    std::string list;
};

/// Whether a value can stand for the field: a date for one of a date, the right form of the ticker
/// for one of the ticker. The first field that holds the whole ticker sets it.
bool Fits(std::string_view field, std::string_view value, Values& values) {
    if (field == "any")
        return true;
    if (field == "year" || field == "month")
        return !value.empty() && value.find_first_not_of("0123456789-") == std::string_view::npos;
    // A further part of the query is never part of a symbol.
    if (value.find_first_of("&?#") != std::string_view::npos)
        return false;
    if (field == "list") {
        values.list = value;
        return true;
    }
    if (field == "first") {
        values.first = ToLower(value);
        return true;
    }
    if (value.find(' ') != std::string_view::npos)
        return false;
    const std::string upper = ToUpper(value);
    if (values.ticker.empty())
        values.ticker = upper;
    return values.ticker == upper;
}

/// The ticker or list in a path that was filled into `pathTemplate`; none when it was not.
std::optional<std::string> ReadValue(std::string_view path, std::string_view pathTemplate) {
    Values values;
    Cursor rest(pathTemplate);
    std::string_view fixed;
    while (rest.ReadUpTo("{", fixed)) {
        if (!path.starts_with(fixed))
            return std::nullopt;
        path.remove_prefix(fixed.size());
        std::string_view field;
        rest.ReadUpTo("}", field);
        const auto behind = rest.Rest().substr(0, rest.Rest().find('{'));
        const bool isLast = behind.size() == rest.Rest().size();
        if (isLast && (path.size() < behind.size() || !path.ends_with(behind)))
            return std::nullopt;
        const auto end = isLast ? path.size() - behind.size() : path.find(behind);
        if (end == std::string_view::npos || !Fits(field, path.substr(0, end), values))
            return std::nullopt;
        path.remove_prefix(end);
    }
    if (path != rest.Rest() ||
        (!values.first.empty() && values.first != FormsOf(values.ticker).first))
        return std::nullopt;
    return values.ticker.empty() ? values.list : values.ticker;
}

} // namespace

std::pair<std::string, std::string> SplitAddress(std::string_view address) {
    const auto schemeEnd = address.find("://");
    if (schemeEnd != std::string_view::npos && schemeEnd < address.find_first_of("/?#"))
        address.remove_prefix(schemeEnd + 3);
    const auto hostEnd = std::min(address.find_first_of("/?#"), address.size());
    return {ToLower(address.substr(0, hostEnd)), NormalPath(address.substr(hostEnd))};
}

void AddressTree::Add(std::string_view addressTemplate, std::size_t id) {
    auto [host, path] = SplitAddress(addressTemplate);
    const auto known = m_rootByHost.find(host);
    NodeIndex node = known == m_rootByHost.end() ? AddNode('\0') : known->second;
    m_rootByHost.emplace(std::move(host), node);
    for (const char byte : FixedPrefix(path)) {
        NodeIndex child = FindChild(node, byte);
        if (child == kNoNode) {
            child = AddNode(byte);
            m_nodes[child].nextSibling = m_nodes[node].firstChild;
            m_nodes[node].firstChild = child;
        }
        node = child;
    }
    const auto endLength = FixedEndLength(path);
    auto& entries = m_nodes[node].entries;
    const auto place = std::find_if(entries.begin(), entries.end(), [&](const Entry& entry) {
        return entry.endLength < endLength;
    });
    entries.insert(place, Entry{id, std::move(path), endLength});
}

std::optional<AddressHit> AddressTree::Find(std::string_view address) const {
    const auto [host, path] = SplitAddress(address);
    const auto root = m_rootByHost.find(host);
    if (root == m_rootByHost.end())
        return std::nullopt;
    std::vector<NodeIndex> prefixes;
    NodeIndex node = root->second;
    for (const char byte : path) {
        node = FindChild(node, byte);
        if (node == kNoNode)
            break;
        if (!m_nodes[node].entries.empty())
            prefixes.push_back(node);
    }
    for (auto prefix = prefixes.rbegin(); prefix != prefixes.rend(); ++prefix)
        for (const Entry& entry : m_nodes[*prefix].entries)
            if (auto value = ReadValue(path, entry.path))
                return AddressHit{entry.id, PercentDecode(*value)};
    return std::nullopt;
}

bool AddressTree::KnowsHost(std::string_view host) const {
    return m_rootByHost.contains(ToLower(host));
}

AddressTree::NodeIndex AddressTree::AddNode(char byte) {
    m_nodes.push_back({byte, kNoNode, kNoNode, {}});
    return static_cast<NodeIndex>(m_nodes.size() - 1);
}

AddressTree::NodeIndex AddressTree::FindChild(NodeIndex node, char byte) const {
    NodeIndex child = m_nodes[node].firstChild;
    while (child != kNoNode && m_nodes[child].byte != byte)
        child = m_nodes[child].nextSibling;
    return child;
}

} // namespace tallowmere
