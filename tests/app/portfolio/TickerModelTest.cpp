#include "app/portfolio/TickerModel.h"

#include "core/shell/settings_store.h"
#include "core/shell/undo_recorder.h"

#include "app/base/QtText.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A list over a store of its own, without a window.
class List {
public:
    explicit List(const std::map<int, std::string>& stored = {})
        : m_settings(ToPath(m_folder.path()) / "settings.ini"),
          m_undo(m_settings, ToPath(m_folder.path()), {}, {}), m_model(m_settings, m_undo),
          m_tester(&m_model, QAbstractItemModelTester::FailureReportingMode::QtTest) {
        for (const auto& [number, tickers] : stored)
            m_model.Store(number, tickers);
    }

    TickerModel* operator->() { return &m_model; }
    TickerModel& operator*() { return m_model; }
    QString Stored(int number) const { return ToQt(m_model.Stored(number)); }
    QString Shown() const { return m_model.Items().join(u'|'); }
    /// The caption of the step that would be undone; empty for none.
    QString Step() const {
        const UndoStep* step = m_undo.Next(UndoDirection::Back);
        return step ? ToQt(step->caption) : QString();
    }
    void Undo() {
        QVERIFY(m_undo.Go(UndoDirection::Back).refusal.empty());
        m_model.Reload();
    }

private:
    QTemporaryDir m_folder;
    SettingsStore m_settings;
    UndoRecorder m_undo;
    TickerModel m_model;
    QAbstractItemModelTester m_tester;
};

} // namespace

class TickerModelTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ShowsTheStoredTickersOfAPortfolioInTheirOrder() {
        List list({{1, "IBM|AOL|"}, {2, "MSFT|"}});
        QCOMPARE(list->Number(), 0);
        QCOMPARE(list->rowCount(), 0);
        list->Show(1);
        QCOMPARE(list->Number(), 1);
        QCOMPARE(list.Shown(), u"IBM|AOL"_s);
        QCOMPARE(list->index(1).data().toString(), u"AOL"_s);
        QCOMPARE(list->index(1).data(Qt::AccessibleTextRole), QVariant());
        QCOMPARE(list->index(2).data(), QVariant());
        list->Show(2);
        QCOMPARE(list.Shown(), u"MSFT"_s);
    }

    void LeavingAPortfolioWritesItUnlessItIsEmpty() {
        List list({{1, "AAA|BBB"}, {2, ""}});
        list->Show(1);
        list->Show(2);
        QCOMPARE(list.Stored(1), u"AAA|BBB|"_s);
        list->Show(1);
        list->Clear();
        list->Show(2);
        QCOMPARE(list.Stored(1), u"AAA|BBB|"_s);
        QCOMPARE(list.Step(), QString());
    }

    void AddingIsOneStepAndKeepsTheRowsThatWereThere() {
        List list({{1, "AAA|"}});
        list->Show(1);
        QSignalSpy inserted(&*list, &QAbstractItemModel::rowsInserted);
        QSignalSpy reset(&*list, &QAbstractItemModel::modelReset);
        list->Add({"BBB", "CCC"});
        QCOMPARE(list.Shown(), u"AAA|BBB|CCC"_s);
        QCOMPARE(list.Stored(1), u"AAA|BBB|CCC|"_s);
        QCOMPARE(list.Step(), u"Add 2 Tickers"_s);
        QCOMPARE(inserted.size(), 1);
        QCOMPARE(inserted[0][1].toInt(), 1);
        QCOMPARE(inserted[0][2].toInt(), 2);
        QVERIFY(reset.isEmpty());
        list.Undo();
        QCOMPARE(list.Shown(), u"AAA"_s);
    }

    void WhatWasOnlyAppendedIsWrittenAsAStepOfItsOwn() {
        List list({{1, "AAA|"}});
        list->Show(1);
        list->Append({"BBB"});
        QCOMPARE(list.Stored(1), u"AAA|"_s);
        list->WriteUnwritten();
        QCOMPARE(list.Stored(1), u"AAA|BBB|"_s);
        QCOMPARE(list.Step(), u"Add BBB"_s);
        list.Undo();
        list->WriteUnwritten();
        QCOMPARE(list.Step(), QString());
    }

    void TakingOutAndClearingChangeTheRowsAlone() {
        List list({{1, "AAA|BBB|CCC|"}});
        list->Show(1);
        list->TakeOut(1);
        QCOMPARE(list.Shown(), u"AAA|CCC"_s);
        list->Clear();
        QCOMPARE(list->rowCount(), 0);
        QCOMPARE(list.Stored(1), u"AAA|BBB|CCC|"_s);
        list->Write();
        QCOMPARE(list.Stored(1), QString());
    }

    void AMoveToAnotherPortfolioLosesNoTicker() {
        List list({{1, "AAA|BBB|"}, {2, "XXX|"}});
        list->Show(1);
        list->StoreMove(2, "BBB|", "AAA|");
        QCOMPARE(list.Stored(1), u"BBB|"_s);
        QCOMPARE(list.Stored(2), u"XXX|AAA|"_s);
        list->StoreMove(1, "BBB|", "AAA|");
        QCOMPARE(list.Stored(1), u"BBB|AAA|"_s);
    }

    void ReloadingTellsWhetherSomethingElseIsStored() {
        List list({{1, "AAA|"}});
        list->Show(1);
        QVERIFY(!list->Reload());
        list->Store(1, "AAA|BBB|");
        QVERIFY(list->Reload());
        QCOMPARE(list.Shown(), u"AAA|BBB"_s);
    }

    void AMarkStandsBesideTheTextAndNeverInIt() {
        List list({{1, "AAA|BBB|"}});
        list->Show(1);
        list->SetMarker([](const QString& ticker) {
            return ticker == u"BBB" ? ItemMark{u"?"_s, u"hint"_s, u"meaning"_s} : ItemMark();
        });
        const QModelIndex marked = list->index(1);
        QCOMPARE(marked.data().toString(), u"BBB"_s);
        QCOMPARE(marked.data(SignRole).toString(), u"?"_s);
        QCOMPARE(marked.data(Qt::ToolTipRole).toString(), u"hint"_s);
        QCOMPARE(marked.data(Qt::AccessibleDescriptionRole).toString(), u"meaning"_s);
        QCOMPARE(list->index(0).data(SignRole).toString(), QString());
    }
};

QTEST_GUILESS_MAIN(TickerModelTest)
#include "TickerModelTest.moc"
