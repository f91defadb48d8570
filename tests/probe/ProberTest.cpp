#include "probe/Prober.h"

#include "support/LoopbackServer.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Ending = CannedPage::Ending;

namespace {

constexpr auto kPause = 50ms;

/// Asks and gives the answers by the rows that asked.
QHash<QString, ProbeAnswer> Ask(const std::vector<Probe>& probes) {
    Prober prober(kPause);
    QHash<QString, ProbeAnswer> answers;
    QObject::connect(&prober, &Prober::Answered, &prober,
                     [&](const Probe& probe, const ProbeAnswer& answer) {
                         answers.insert(QString::fromStdString(probe.rows), answer);
                     });
    QSignalSpy finished(&prober, &Prober::Finished);
    prober.Start(probes);
    if (!finished.wait(20000))
        qWarning("the prober did not finish");
    return answers;
}

Probe ProbeOf(const char* rows, const QString& address, int timeout = 10) {
    return {rows, "http://" + address.toStdString(), "Tester/1.0 (me)", timeout};
}

} // namespace

class ProberTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AnswersComeWithStatusTypeAndFinalAddress() {
        LoopbackServer server;
        server.Serve(u"/page"_s, "<html>page</html>");
        server.Redirect(u"/moved"_s, u"http://"_s + server.Address(u"/page"_s));
        server.Serve(u"/data"_s, CannedPage{"{}", Ending::Length, 200, "application/json"});
        const auto answers = Ask({ProbeOf("page", server.Address(u"/page"_s)),
                                  ProbeOf("moved", server.Address(u"/moved"_s)),
                                  ProbeOf("data", server.Address(u"/data"_s)),
                                  ProbeOf("missing", server.Address(u"/missing"_s))});
        QCOMPARE(answers.size(), 4);
        const std::string page = "http://" + server.Address(u"/page"_s).toStdString();
        QCOMPARE(answers[u"page"_s].response.status, 200);
        QCOMPARE(answers[u"page"_s].response.body, std::string("<html>page</html>"));
        QCOMPARE(answers[u"page"_s].finalAddress, page);
        QCOMPARE(answers[u"moved"_s].response.status, 200);
        QCOMPARE(answers[u"moved"_s].finalAddress, page);
        QCOMPARE(answers[u"data"_s].response.contentType, std::string("application/json"));
        QCOMPARE(answers[u"missing"_s].response.status, 404);
        QCOMPARE(server.LastHeader("User-Agent"), "Tester/1.0 (me)");
    }

    void AHostIsAskedOneAtATimeWithAPause() {
        LoopbackServer server;
        server.Serve(u"/"_s, "<html></html>");
        std::vector<Probe> probes;
        for (const char* row : {"1", "2", "3", "4"})
            probes.push_back(ProbeOf(row, server.Address(u"/?"_s + QString::fromLatin1(row))));
        QList<qint64> moments;
        QElapsedTimer clock;
        clock.start();
        connect(&server, &LoopbackServer::Requested, this, [&] { moments << clock.elapsed(); });
        QCOMPARE(Ask(probes).size(), 4);
        QCOMPARE(moments.size(), 4);
        for (qsizetype n = 1; n < moments.size(); ++n)
            QVERIFY(moments[n] - moments[n - 1] >= kPause.count() - 5);
        QCOMPARE(server.Requests(),
                 (QStringList{u"GET /?1"_s, u"GET /?2"_s, u"GET /?3"_s, u"GET /?4"_s}));
    }

    void WhatFailsIsToldAndKeepsNothingFromGoingOn() {
        LoopbackServer server, closed;
        server.Serve(u"/silent"_s, CannedPage{"", Ending::Silent});
        server.Serve(u"/endless"_s, CannedPage{QByteArray(65536, 'x'), Ending::Endless});
        server.Serve(u"/page"_s, "<html></html>");
        server.Redirect(u"/round"_s, u"http://"_s + server.Address(u"/round"_s));
        const QString gone = closed.Address(u"/"_s);
        closed.close();
        const auto answers =
            Ask({ProbeOf("silent", server.Address(u"/silent"_s), 1),
                 ProbeOf("endless", server.Address(u"/endless"_s)),
                 ProbeOf("round", server.Address(u"/round"_s)), ProbeOf("gone", gone),
                 ProbeOf("page", server.Address(u"/page"_s))});
        QCOMPARE(answers.size(), 5);
        QCOMPARE(answers[u"silent"_s].response.status, 0);
        QCOMPARE(answers[u"silent"_s].error, std::string("not within 1 seconds"));
        QCOMPARE(answers[u"endless"_s].response.status, 200);
        QVERIFY(answers[u"endless"_s].response.body.size() < 1024 * 1024);
        QVERIFY(answers[u"round"_s].response.status == 0 ||
                answers[u"round"_s].response.status >= 300);
        QCOMPARE(answers[u"gone"_s].response.status, 0);
        QVERIFY(!answers[u"gone"_s].error.empty());
        QCOMPARE(answers[u"page"_s].response.status, 200);
    }

    void NothingToAskIsFinishedAtOnce() { QCOMPARE(Ask({}).size(), 0); }
};

QTEST_GUILESS_MAIN(ProberTest)
#include "ProberTest.moc"
