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

/// The page with the policy in it, in front of everything that it could govern. The text of the
/// page itself stays as it is, and so does how it is laid out.
std::string WithPolicy(std::string_view page, std::string_view policy);

} // namespace tallowmere
