#pragma once

#include "support/TestSession.h"

#include <QFile>

namespace tallowmere {

/// The user's own browser for a test: a script beside the stores that writes down what it is to
/// open.
class OutsideBrowser {
public:
    /// Makes it the browser of a session that has not started yet.
    explicit OutsideBrowser(TestSession& session) : m_folder(PathToQt(session.Folder())) {
        const QString script = m_folder + QStringLiteral("/browser.sh");
        QFile file(script);
        if (file.open(QIODevice::WriteOnly))
            file.write("#!/bin/sh\necho \"$1\" >> \"$(dirname \"$0\")/opened.txt\"\n");
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        session.programs = "[programs]\nbrowser = \"" + FromQt(script) + "\"\n";
    }

    /// What it was to open so far, a line each.
    QByteArray Opened() const {
        QFile file(m_folder + QStringLiteral("/opened.txt"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QString m_folder;
};

} // namespace tallowmere
