#include "app/base/QtText.h"
#include "app/sites/Tables.h"
#include "core/text/files.h"

#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace tallowmere;

namespace {

/// A user's folder beside the data that ships.
struct Place {
    QTemporaryDir folder;
    Folders folders;

    Place() {
        folders.data = TALLOWMERE_SOURCE_DIR "/data";
        folders.tables = ToPath(folder.path());
    }
    std::filesystem::path Own() const { return folders.tables / "sources.toml"; }
    SourceTable Read(const char* text) const {
        WriteWholeFile(Own(), text);
        return ReadSources(folders);
    }
};

const SourceRow& Row(const SourceTable& table, std::string_view key) {
    return *std::ranges::find(table.rows, key, &SourceRow::key);
}

} // namespace

class SourcesFileTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheTableThatShipsIsEnough() {
        const Place place;
        const SourceTable table = ReadSources(place.folders);
        QCOMPARE(table.rows.size(), 7u);
        QVERIFY(table.problems.empty());
        QVERIFY(Row(table, "cnbc").enabled);
    }

    void TheUsersTableGoesOverIt() {
        const Place place;
        const SourceTable table =
            place.Read("[sources.cnbc]\nenabled = false\n"
                       "[sources.cboe]\nrequest = \"http://my.test/{symbols}\"\n");
        QVERIFY(table.problems.empty());
        QVERIFY(!Row(table, "cnbc").enabled);
        QCOMPARE(Row(table, "cboe").request, std::string("http://my.test/{symbols}"));
        QVERIFY(Row(table, "cboe").enabled);
        QVERIFY(Row(table, "nasdaq").request.starts_with("https://"));
    }

    void AWrongValueIsToldAndLeftOut() {
        const Place place;
        const SourceTable table =
            place.Read("[sources.cnbc]\nbatch = 0\n\n[sources.cboe]\nenabled = false\n");
        QCOMPARE(table.problems.size(), 1u);
        QVERIFY(table.problems[0].starts_with(place.Own().string() + ":2: "));
        QCOMPARE(Row(table, "cnbc").batch, 40);
        QVERIFY(!Row(table, "cboe").enabled);
    }

    void ATableThatCannotBeReadIsToldAndTheOtherCounts() {
        const Place place;
        SourceTable table = place.Read("[sources.cnbc\nenabled = false\n");
        QVERIFY(table.problems.at(0).starts_with(place.Own().string() + ":1: "));
        QCOMPARE(table.rows.size(), 7u);
        QVERIFY(Row(table, "cnbc").enabled);
        std::filesystem::remove(place.Own());
        std::filesystem::create_directory(place.Own());
        table = ReadSources(place.folders);
        QCOMPARE(table.problems.size(), 1u);
        QVERIFY(table.problems[0].starts_with(place.Own().string()));
        QCOMPARE(table.rows.size(), 7u);
    }
};

QTEST_GUILESS_MAIN(SourcesFileTest)
#include "SourcesFileTest.moc"
