#include "app/shell/CommandLine.h"

#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class CommandLineTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void WithoutArgumentsItRunsInLiveMode() {
        const CommandLine line = CommandLine::Parse({u"tallowmere"_s});
        QCOMPARE(line.outcome, CommandLine::Outcome::Run);
        QCOMPARE(line.web, WebMode::Live);
        QVERIFY(line.profile.isEmpty());
    }

    void EveryOptionIsRead() {
        const CommandLine line =
            CommandLine::Parse({u"tallowmere"_s, u"--web"_s, u"sample"_s, u"--profile=/p"_s,
                                u"--sites"_s, u"/s.toml"_s});
        QCOMPARE(line.outcome, CommandLine::Outcome::Run);
        QCOMPARE(line.web, WebMode::Sample);
        QCOMPARE(line.profile, u"/p"_s);
        QCOMPARE(line.sites, u"/s.toml"_s);
    }

    void TheOptionsOfTheHelpAreThoseOfThePageOfSettings() {
        QFile file(QStringLiteral(TALLOWMERE_SOURCE_DIR "/docs/settings.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString page = QString::fromUtf8(file.readAll());
        const auto options = [](const QString& text) {
            static const QRegularExpression option(u"--[a-z]+"_s);
            QSet<QString> found;
            for (const auto& match : option.globalMatch(text))
                found << match.captured();
            return found;
        };
        const QString help = CommandLine::Parse({u"tallowmere"_s, u"--help"_s}).text;
        const QString table = page.section(u"## Options of the command line"_s, 1);
        QVERIFY(!options(help).isEmpty());
        QCOMPARE(options(table), options(help));
        for (const QString& mode : {u"live"_s, u"sample"_s, u"direct"_s}) {
            QVERIFY(table.contains(u"`--web "_s + mode + u'`'));
            QCOMPARE(CommandLine::Parse({u"tallowmere"_s, u"--web"_s, mode}).outcome,
                     CommandLine::Outcome::Run);
        }
    }

    void WrongArgumentsSayWhatIsWrong_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("named");
        QTest::newRow("unknown mode") << QStringList{u"--web"_s, u"x"_s} << u"'x'"_s;
        QTest::newRow("unknown option") << QStringList{u"--wep"_s} << u"wep"_s;
        QTest::newRow("missing value") << QStringList{u"--sites"_s} << u"sites"_s;
        QTest::newRow("empty value") << QStringList{u"--profile="_s} << u"--profile"_s;
        QTest::newRow("positional") << QStringList{u"msft"_s} << u"msft"_s;
    }

    void WrongArgumentsSayWhatIsWrong() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, named);
        const CommandLine line = CommandLine::Parse(QStringList{u"tallowmere"_s} + arguments);
        QCOMPARE(line.outcome, CommandLine::Outcome::Wrong);
        QVERIFY2(line.text.contains(named), qPrintable(line.text));
    }

    void HelpAndVersionArePrinted() {
        const CommandLine help = CommandLine::Parse({u"tallowmere"_s, u"--help"_s});
        QCOMPARE(help.outcome, CommandLine::Outcome::Print);
        for (const QString& option : {u"--web"_s, u"--profile"_s, u"--sites"_s, u"--version"_s})
            QVERIFY(help.text.contains(option));
        const CommandLine version = CommandLine::Parse({u"tallowmere"_s, u"--version"_s});
        QCOMPARE(version.outcome, CommandLine::Outcome::Print);
        QVERIFY(version.text.startsWith(u"tallowmere 1."_s));
    }
};

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
