#include "app/base/FinderSource.h"

#include "app/base/WebAccess.h"

#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class FinderSourceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheHostIsThatOfTheAddressAndTheOneThatItLeadsToToday_data() {
        QTest::addColumn<QString>("built");
        QTest::addColumn<QString>("live");
        QTest::addColumn<QString>("direct");
        QTest::newRow("elsewhere")
            << u"www.old.example/q?s=MSFT"_s << u"www.old.example \u2192 new.example"_s
            << u"www.old.example"_s;
        QTest::newRow("portal") << u"http://chart.example/c"_s
                                << u"chart.example \u2192 this program"_s << u"chart.example"_s;
        QTest::newRow("same host")
            << u"same.example/a b"_s << u"same.example"_s << u"same.example"_s;
        QTest::newRow("of the user")
            << u"https://own.example/x"_s << u"own.example"_s << u"own.example"_s;
        QTest::newRow("no page") << u"file:///etc/passwd"_s << QString() << QString();
        QTest::newRow("nothing") << QString() << QString() << QString();
    }

    void TheHostIsThatOfTheAddressAndTheOneThatItLeadsToToday() {
        QFETCH(QString, built);
        WebAccess live(WebMode::Live);
        live.SetResolver([](const std::string& address, AddressUse) -> std::string {
            if (address.find("old.example") != std::string::npos)
                return "https://new.example/quote/MSFT";
            if (address.find("chart.example") != std::string::npos)
                return "portal://chart.example/c";
            if (address.find("same.example") != std::string::npos)
                return "https://same.example/other";
            return address;
        });
        QTEST(HostOfBuilt(built, live), "live");
        QTEST(HostOfBuilt(built, WebAccess(WebMode::Direct)), "direct");
    }
};

QTEST_GUILESS_MAIN(FinderSourceTest)
#include "FinderSourceTest.moc"
