#include "links/address_match.h"

#include "links/address.h"
#include "links/catalogue.h"
#include "text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

/// The tree of all paths whatever the host. As the root of a tree it is nobody's child, so its
/// number also stands for no node.
constexpr std::uint32_t kAnyHost = 0;
constexpr std::uint32_t kNoNode = kAnyHost;

/// An address in the form in which rows and requests are compared.
struct Location {
    std::string host;
    std::string path;
};

std::string NormalPath(std::string_view path) {
    const std::string decoded = PercentDecode(path);
    const std::string_view trimmed = Trim(decoded);
    // A query right behind the host stands for one of the page "/".
    return trimmed.starts_with('/') ? std::string(trimmed) : "/" + std::string(trimmed);
}

Location Locate(std::string_view address) {
    const auto schemeEnd = address.find("://");
    if (schemeEnd != std::string_view::npos && schemeEnd < address.find_first_of("/?#"))
        address.remove_prefix(schemeEnd + 3);
    const auto hostEnd = std::min(address.find_first_of("/?#"), address.size());
    return {ToLower(address.substr(0, hostEnd)), NormalPath(address.substr(hostEnd))};
}

std::string_view FixedPrefix(std::string_view pathTemplate) {
    return pathTemplate.substr(0, pathTemplate.find('{'));
}

std::string_view FixedEnd(std::string_view pathTemplate) {
    const auto field = pathTemplate.rfind('}');
    return field == std::string_view::npos ? std::string_view() : pathTemplate.substr(field + 1);
}

/// Whether a value can stand for the field: a date for one of a date, the right form of the ticker
/// for one of the ticker. The first field that holds the whole ticker sets it.
bool Fits(std::string_view field, std::string_view value, std::string& ticker, std::string& first) {
    if (field == "year" || field == "month")
        return !value.empty() && value.find_first_not_of("0123456789-") == std::string_view::npos;
    if (field == "first") {
        first = ToLower(value);
        return true;
    }
    const std::string upper = ToUpper(value);
    if (ticker.empty())
        ticker = upper;
    return ticker == upper;
}

/// The ticker in a path that was filled into `pathTemplate`; none when it was not.
std::optional<std::string> ReadTicker(std::string_view path, std::string_view pathTemplate) {
    std::string ticker;
    std::string first;
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
        if (end == std::string_view::npos || !Fits(field, path.substr(0, end), ticker, first))
            return std::nullopt;
        path.remove_prefix(end);
    }
    if (path != rest.Rest() || (!first.empty() && first != FormsOf(ticker).first))
        return std::nullopt;
    return ticker;
}

} // namespace

AddressMatcher::AddressMatcher(const SiteTable& sites) {
    AddNode('\0');
    for (const auto& [site, host] : sites.Hosts()) {
        const std::string name = Locate(host).host;
        if (!name.empty() && !m_rootByHost.contains(name))
            m_rootByHost.emplace(name, AddNode('\0'));
    }
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row) || row.action == LinkAction::HomePage)
            continue;
        if (row.target != "/")
            AddEntry(kAnyHost, row.index, NormalPath(row.target));
        Location page = Locate(sites.Address(row.site, row.target));
        const auto root = m_rootByHost.find(page.host);
        if (root != m_rootByHost.end())
            AddEntry(root->second, row.index, std::move(page.path));
    }
    for (Node& node : m_nodes) {
        std::stable_sort(node.entries.begin(), node.entries.end(), [this](auto left, auto right) {
            return FixedEnd(m_entries[left].path).size() > FixedEnd(m_entries[right].path).size();
        });
    }
}

std::optional<AddressMatch> AddressMatcher::Match(std::string_view address) const {
    const Location page = Locate(address);
    const auto root = m_rootByHost.find(page.host);
    return root == m_rootByHost.end() ? std::nullopt : Walk(root->second, page.path);
}

std::optional<AddressMatch> AddressMatcher::MatchPath(std::string_view pathAndQuery) const {
    return Walk(kAnyHost, NormalPath(pathAndQuery));
}

bool AddressMatcher::KnowsHost(std::string_view host) const {
    return m_rootByHost.contains(ToLower(host));
}

AddressMatcher::NodeIndex AddressMatcher::AddNode(char byte) {
    m_nodes.push_back({byte, kNoNode, kNoNode, {}});
    return static_cast<NodeIndex>(m_nodes.size() - 1);
}

AddressMatcher::NodeIndex AddressMatcher::FindChild(NodeIndex node, char byte) const {
    NodeIndex child = m_nodes[node].firstChild;
    while (child != kNoNode && m_nodes[child].byte != byte)
        child = m_nodes[child].nextSibling;
    return child;
}

void AddressMatcher::AddEntry(NodeIndex root, int index, std::string path) {
    NodeIndex node = root;
    for (const char byte : FixedPrefix(path)) {
        NodeIndex child = FindChild(node, byte);
        if (child == kNoNode) {
            child = AddNode(byte);
            m_nodes[child].nextSibling = m_nodes[node].firstChild;
            m_nodes[node].firstChild = child;
        }
        node = child;
    }
    m_nodes[node].entries.push_back(m_entries.size());
    m_entries.push_back({index, std::move(path)});
}

std::optional<AddressMatch> AddressMatcher::Walk(NodeIndex root, std::string_view path) const {
    std::vector<NodeIndex> prefixes;
    NodeIndex node = root;
    for (const char byte : path) {
        node = FindChild(node, byte);
        if (node == kNoNode)
            break;
        if (!m_nodes[node].entries.empty())
            prefixes.push_back(node);
    }
    for (auto prefix = prefixes.rbegin(); prefix != prefixes.rend(); ++prefix) {
        for (const std::size_t entry : m_nodes[*prefix].entries) {
            auto ticker = ReadTicker(path, m_entries[entry].path);
            if (ticker)
                return AddressMatch{m_entries[entry].index, std::move(*ticker)};
        }
    }
    return std::nullopt;
}

} // namespace tallowmere
