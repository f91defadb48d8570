#pragma once

#include "app/base/WebMode.h"

#include <QString>
#include <QStringList>

namespace tallowmere {

/// What the command line asks for.
struct CommandLine {
    enum class Outcome { Run, Print, Wrong };

    Outcome outcome = Outcome::Run;
    QString text; ///< what is printed: version, help, or what is wrong
    WebMode web = WebMode::Live;
    QString profile; ///< folder for settings and files, empty for the user's own folders
    QString sites;   ///< site file, empty for the one that ships with the program

    /// Reads the arguments, the first of which is the program's name.
    static CommandLine Parse(const QStringList& arguments);
};

} // namespace tallowmere
