#include "app/shell/SingleInstance.h"

#include "app/base/QtText.h"
#include "core/text/runtime_error.h"
#include "support/Await.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class SingleInstanceTest : public QObject {
    Q_OBJECT
private:
    struct Profile {
        QTemporaryDir folder;
        std::filesystem::path Path() const { return ToPath(folder.path()); }
        std::filesystem::path Lock() const { return Path() / "running.lock"; }
        void Write(const std::string& text) const { std::ofstream(Lock()) << text; }
    };

    /// What a start on the profile finds out while this program goes on: first or not, none when it
    /// gives up.
    static std::optional<bool> Start(const Profile& profile) {
        std::optional<bool> isFirst;
        const std::unique_ptr<QThread> thread(QThread::create([&] {
            SingleInstance other(profile.Path());
            try {
                isFirst = other.IsFirst(5s);
            } catch (const RuntimeError&) {
                isFirst.reset();
            }
        }));
        thread->start();
        if (!Await([&] { return thread->isFinished(); }))
            qFatal("the other start did not come to an end");
        return isFirst;
    }

private Q_SLOTS:
    void TheFirstStartIsTheFirstAndTheSecondRaisesIt() {
        const Profile profile;
        SingleInstance first(profile.Path());
        QSignalSpy raised(&first, &SingleInstance::Raised);
        QVERIFY(first.IsFirst());
        QVERIFY(first.Problem().isEmpty());
        QCOMPARE(Start(profile), std::optional(false));
        QCOMPARE(raised.size(), 1);
        QCOMPARE(Start(profile), std::optional(false));
        QCOMPARE(raised.size(), 2);
    }

    void AfterTheFirstHasEndedTheNextIsFirst() {
        const Profile profile;
        {
            SingleInstance first(profile.Path());
            QVERIFY(first.IsFirst());
        }
        QCOMPARE(Start(profile), std::optional(true));
    }

    void ALockThatNobodyAnswersForIsTakenOver_data() {
        QTest::addColumn<QString>("content");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("garbage") << u"\x01\x02 no lock at all\n\n"_s;
        QTest::newRow("of a program that is gone") << u"999999\ntallowmere\nthis-host\n\n\n"_s;
        QTest::newRow("of another machine") << u"1\ntallowmere\nanother-host\n0000\n1111\n"_s;
    }
    void ALockThatNobodyAnswersForIsTakenOver() {
        QFETCH(QString, content);
        const Profile profile;
        profile.Write(FromQt(content));
        SingleInstance start(profile.Path());
        QVERIFY(start.IsFirst());
        QVERIFY(start.Problem().isEmpty());
        QCOMPARE(Start(profile), std::optional(false));
    }

    void WhatIsNoFileInThePlaceOfTheLockIsTold() {
        const Profile profile;
        std::filesystem::create_directory(profile.Lock());
        SingleInstance start(profile.Path());
        QVERIFY(start.IsFirst());
        QVERIFY2(start.Problem().contains(PathToQt(profile.Lock())), qPrintable(start.Problem()));
        // It is found all the same, by talking to it.
        QCOMPARE(Start(profile), std::optional(false));
    }

    void ALoopOfLinksInThePlaceOfTheLockIsTold() {
        const Profile profile;
        std::filesystem::create_symlink("running.lock", profile.Lock());
        SingleInstance start(profile.Path());
        QVERIFY(start.IsFirst());
        QVERIFY2(start.Problem().contains(PathToQt(profile.Lock())), qPrintable(start.Problem()));
    }

    void AHolderThatDoesNotAnswerIsToldInWords() {
        const Profile profile;
        const FileLock held(profile.Path() / "running");
        SingleInstance start(profile.Path());
        try {
            start.IsFirst(100ms);
            QFAIL("it began although another program holds the lock");
        } catch (const RuntimeError& error) {
            QVERIFY2(QByteArray(error.what()).contains("does not answer"), error.what());
        }
    }
};

QTEST_GUILESS_MAIN(SingleInstanceTest)
#include "SingleInstanceTest.moc"
