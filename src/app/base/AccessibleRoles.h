#pragma once

namespace tallowmere {

/// Lets screen readers and other tools see widgets that only hold others as groups, by their names
/// where they have one, not as fillers without a meaning. Takes effect for the whole process.
void ShowContainersAsGroups();

} // namespace tallowmere
