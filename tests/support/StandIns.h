#pragma once

#include "core/quotes/source_table.h"
#include "support/LoopbackServer.h"

namespace tallowmere {

/// Loopback servers in place of the sources that ship with the program, one for each host. Every
/// server answers in the shape of its source about the six indices, MSFT, AOL and YHOO, with one
/// price for all of them.
class StandIns {
public:
    static constexpr int kHosts = 6;
    enum Host { Cnbc, Yahoo, Nasdaq, Cboe, Treasury, Fred };

    StandIns();

    LoopbackServer& operator[](Host host) { return m_servers.at(static_cast<std::size_t>(host)); }

    /// The price that a host says at first; the day before it was one less.
    static double PriceOf(Host host) { return 1111.25 * (1 + host); }
    /// An answer of CNBC's service about symbols in its spelling.
    static CannedPage CnbcAnswer(const QByteArrayList& symbols, double price);
    /// Lets CNBC's service say another price.
    void SetCnbcPrice(double price);

    /// Answers every address of a host with `page` from now on.
    void Answer(Host host, const CannedPage& page);
    /// Hangs up on everybody who connects to a host.
    void TakeDown(Host host) { (*this)[host].close(); }
    /// Lets a host that was taken down answer again.
    void BringBack(Host host);

    /// What a user's table says to be led here. `timeout` is in seconds.
    QByteArray Text(int timeout = 10) const;
    /// The shipped table with that text over it.
    SourceTable Table(int timeout = 10) const;

    /// How many requests the hosts had so far.
    qsizetype RequestCount() const;

private:
    std::array<LoopbackServer, kHosts> m_servers;
    std::array<quint16, kHosts> m_ports{};
};

} // namespace tallowmere
