#pragma once

#include "core/sites/probe.h"

#include <QElapsedTimer>
#include <QHash>
#include <QNetworkAccessManager>
#include <QObject>
#include <QQueue>

#include <chrono>

class QNetworkReply;

namespace tallowmere {

/// Asks for addresses politely: of one host one at a time with a pause between two, of a few hosts
/// at once, each within its time, and no more of a page than its beginning.
class Prober : public QObject {
    Q_OBJECT
public:
    /// `pause` lies between two questions to one host.
    explicit Prober(std::chrono::milliseconds pause, QObject* parent = nullptr);

    /// Begins to ask.
    void Start(const std::vector<Probe>& probes);

Q_SIGNALS:
    void Answered(const tallowmere::Probe& probe, const tallowmere::ProbeAnswer& answer);
    /// All were asked and have answered or failed.
    void Finished();

private:
    void AskHosts();
    void AskNext(const QString& host);
    void Take(QNetworkReply& reply, const Probe& probe, bool isTooLate);

    std::chrono::milliseconds m_pause;
    QNetworkAccessManager m_network;
    QHash<QString, QQueue<Probe>> m_waiting; ///< by host
    QQueue<QString> m_hosts;                 ///< that were not begun yet
    int m_open = 0;                          ///< hosts that are being asked
};

} // namespace tallowmere
