#include "app/shell/ClosingNote.h"

#include "app/base/QtText.h"

#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;

class ClosingNoteTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ANoteIsReadOnceByTheNextStart() {
        const QTemporaryDir folder;
        const auto path = ToPath(folder.path());
        QCOMPARE(TakeClosingNote(path), std::string());
        LeaveClosingNote(path, "Cannot write x: full");
        const std::string note = TakeClosingNote(path);
        QVERIFY2(note.ends_with("Cannot write x: full"), note.c_str());
        QVERIFY(note.size() > std::string("Cannot write x: full").size());
        QCOMPARE(TakeClosingNote(path), std::string());
    }

    void AFolderThatCannotBeWrittenIsNoError() {
        const QTemporaryDir folder;
        const auto path = ToPath(folder.path()) / "file";
        QVERIFY(QFile(PathToQt(path)).open(QIODevice::WriteOnly));
        LeaveClosingNote(path / "inside", "lost");
        QCOMPARE(TakeClosingNote(path / "inside"), std::string());
    }

    void AFolderInItsPlaceIsNoNote() {
        const QTemporaryDir folder;
        const auto path = ToPath(folder.path());
        std::filesystem::create_directory(path / "closing.txt");
        LeaveClosingNote(path, "lost");
        QCOMPARE(TakeClosingNote(path), std::string());
    }
};

QTEST_GUILESS_MAIN(ClosingNoteTest)
#include "ClosingNoteTest.moc"
