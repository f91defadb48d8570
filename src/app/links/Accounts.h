#pragma once

#include <QString>

namespace tallowmere {

/// What the user told the setup dialog about services that know their users.
struct Accounts {
    bool clubMember = false; ///< "SAVersion"
    QString streamLogin;     ///< "MNL"
    QString streamPassword;  ///< "MNP"
};

} // namespace tallowmere
