#include "app/portfolio/TickerModel.h"

#include "core/shell/settings_store.h"
#include "core/shell/undo_recorder.h"

#include "app/base/QtText.h"

#include <QAbstractItemModelTester>
#include <QMimeData>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

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

    void OnlyRowsWithAnotherSignOrQuoteAreToldToHaveChanged() {
        List list({{1, "AAA|BBB|CCC|AAA|"}});
        list->Show(1);
        QString marked;
        list->SetMarker([&](const QString& ticker) {
            return ticker == marked ? ItemMark{u"?"_s, {}, {}} : ItemMark();
        });
        std::map<std::string, double> market{{"AAA", 1}, {"BBB", 2}};
        list->SetQuotes([&](const std::string& ticker) -> std::optional<QuoteCells> {
            if (!market.contains(ticker))
                return std::nullopt;
            ListedPrice price;
            price.last = market[ticker];
            return CellsOf(price);
        });
        for (int row = 0; row < list->rowCount(); ++row)
            for (const int role : {int(SignRole), int(QuoteRole)})
                list->data(list->index(row), role);
        QCOMPARE(list->index(1).data(QuoteRole).value<QuoteCells>().last, "2.00");
        QVERIFY(!list->index(2).data(QuoteRole).isValid());
        QSignalSpy changed(&*list, &QAbstractItemModel::dataChanged);
        const auto rows = [&changed] {
            QList<int> told;
            while (!changed.isEmpty()) {
                const QList<QVariant> signal = changed.takeFirst();
                for (int row = signal[0].toModelIndex().row();
                     row <= signal[1].toModelIndex().row(); ++row)
                    told << row;
            }
            return told;
        };
        list->RefreshMarks();
        list->RefreshQuotes();
        QCOMPARE(rows(), QList<int>());
        marked = u"BBB"_s;
        list->RefreshMarks();
        QCOMPARE(rows(), QList{1});
        market = {{"AAA", 3}, {"BBB", 4}, {"CCC", 5}};
        list->RefreshQuotes({"AAA"});
        QCOMPARE(rows(), (QList{0, 3}));
        list->RefreshQuotes();
        QCOMPARE(rows(), (QList{1, 2}));
        market.erase("BBB");
        list->RefreshQuotes();
        QCOMPARE(rows(), QList{1});
    }

    void ARowMovesBeforeAnotherOneInOneStep() {
        List list({{1, "AAA|BBB|CCC|DDD|"}});
        list->Show(1);
        const QPersistentModelIndex moved = list->index(0);
        QVERIFY(list->moveRow({}, 0, {}, 3));
        QCOMPARE(list.Shown(), u"BBB|CCC|AAA|DDD"_s);
        QCOMPARE(list.Stored(1), u"BBB|CCC|AAA|DDD|"_s);
        QCOMPARE(list.Step(), u"Move AAA in the List"_s);
        QCOMPARE(moved.row(), 2);
        list.Undo();
        QCOMPARE(list.Shown(), u"AAA|BBB|CCC|DDD"_s);
        QCOMPARE(list.Step(), QString());
    }

    void ARowThatStaysWhereItIsIsNoStep() {
        List list({{1, "AAA|BBB|"}});
        list->Show(1);
        for (const auto& [row, before] :
             {std::pair(0, 0), {0, 1}, {1, 1}, {1, 2}, {2, 0}, {0, 3}, {-1, 1}, {0, -1}})
            QVERIFY(!list->moveRow({}, row, {}, before));
        list->Arrange({0, 1}, "Sort");
        QCOMPARE(list.Shown(), u"AAA|BBB"_s);
        QCOMPARE(list.Step(), QString());
    }

    void WhatWasNotWrittenIsAStepOfItsOwnBeforeAMove() {
        List list({{1, "AAA|"}});
        list->Show(1);
        list->Append({"BBB"});
        list->Arrange({1, 0}, "Sort by Symbol");
        QCOMPARE(list.Stored(1), u"BBB|AAA|"_s);
        QCOMPARE(list.Step(), u"Sort by Symbol"_s);
        list.Undo();
        QCOMPARE(list.Stored(1), u"AAA|BBB|"_s);
        QCOMPARE(list.Step(), u"Add BBB"_s);
    }

    void ADraggedRowIsDroppedBetweenOthersOrAtTheEnd_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("shown");
        QTest::newRow("first") << 0 << u"BBB|AAA|CCC"_s;
        QTest::newRow("last") << 3 << u"AAA|CCC|BBB"_s;
        QTest::newRow("below the rows") << -1 << u"AAA|CCC|BBB"_s;
    }
    void ADraggedRowIsDroppedBetweenOthersOrAtTheEnd() {
        QFETCH(const int, row);
        QFETCH(const QString, shown);
        List list({{1, "AAA|BBB|CCC|"}});
        list->Show(1);
        const std::unique_ptr<QMimeData> mime(list->mimeData({list->index(1)}));
        QVERIFY(list->canDropMimeData(mime.get(), Qt::MoveAction, row, 0, {}));
        QVERIFY(list->dropMimeData(mime.get(), Qt::MoveAction, row, 0, {}));
        QCOMPARE(list.Shown(), shown);
    }

    void OnlyARowThatIsStillThereIsTaken() {
        List list({{1, "AAA|BBB|CCC|"}, {2, "XXX|"}});
        list->Show(1);
        const std::unique_ptr<QMimeData> mime(list->mimeData({list->index(1)}));
        QCOMPARE(list->DraggedRow(*mime), 1);
        QVERIFY(!list->canDropMimeData(mime.get(), Qt::MoveAction, 0, 0, list->index(0)));
        list->TakeOut(0);
        QCOMPARE(list->DraggedRow(*mime), -1);
        QVERIFY(!list->dropMimeData(mime.get(), Qt::MoveAction, 0, 0, {}));
        list->Show(2);
        QCOMPARE(list->DraggedRow(*mime), -1);
        QMimeData other;
        other.setText(u"0 XXX"_s);
        QCOMPARE(list->DraggedRow(other), -1);
    }
};

QTEST_GUILESS_MAIN(TickerModelTest)
#include "TickerModelTest.moc"
