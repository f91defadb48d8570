#pragma once

#include <string>
#include <string_view>

/// What the pages that the program writes or makes may do.
namespace tallowmere {

/// The policy, as the engine reads it, of a page that the program wrote into its folder: no script,
/// and frames or pictures only where pages of this name have them.
std::string PolicyOfGenerated(std::string_view name);

/// The policy of a page that the program makes as it is asked for: pictures, no frames, and of all
/// scripts the one of this hash (SHA-256 in Base64); none when it is empty.
std::string PolicyOfMade(std::string_view scriptHash);

/// The policy of a page that is nothing but text.
std::string PolicyOfText();

/// The page with more elements of a head in it, in front of everything that they could govern. The
/// text of the page itself stays as it is, and so does whether it is laid out by old rules.
std::string WithHead(std::string_view page, std::string_view elements);

/// The page with the policy in its head.
std::string WithPolicy(std::string_view page, std::string_view policy);

} // namespace tallowmere
