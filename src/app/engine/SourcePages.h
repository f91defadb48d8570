#pragma once

#include <QByteArray>
#include <QMap>
#include <QUrl>

namespace tallowmere {

/// The pages that show the source of others. They lie in memory and go with the program: what a
/// site shows to whom is signed in is nothing to be left on disk.
class SourcePages {
public:
    /// Keeps a page and gives its address. Beyond the most that are kept the oldest goes.
    QUrl Keep(QByteArray page);
    /// The page at an address; null when it is kept no more.
    QByteArray At(const QUrl& address) const;

    static constexpr int kMost = 10;

private:
    QMap<int, QByteArray> m_pages; ///< by the number in their address
    int m_kept = 0;                ///< so many so far
};

} // namespace tallowmere
