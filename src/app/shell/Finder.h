#pragma once

#include "app/base/FinderSource.h"
#include "core/finder/use_record.h"

#include <QObject>
#include <QStringList>

#include <filesystem>

namespace tallowmere {

class Clock;
class LinkDispatch;
class LinkPanel;
class PaneDeck;
class Portfolios;
class frmFinder;
class frmMain;

/// The box that finds everything: asks the subsystems what there is whenever it opens, searches
/// with every key, opens what is chosen, and remembers what was opened how often and how lately.
/// Nothing of it is made before it is first opened.
class Finder : public QObject {
    Q_OBJECT
public:
    /// `make` gives the sources. What is found equally well is shown by kind, then in their order.
    Finder(frmMain& form, const Clock& clock, const std::filesystem::path& programFolder,
           PaneDeck& panes, LinkPanel& panel, const LinkDispatch& dispatch, Portfolios& portfolios,
           std::function<FinderSources()> make);
    ~Finder() override;

    /// Opens the box, or selects what is typed in it.
    void Show();

private:
    /// Which of the rows offers the tickers of the line; none for -1.
    static constexpr int kNoRow = -1;

    void Make();
    void Collect();
    void Search(const QString& line);
    const FinderMatch& MatchOf(int row) const;
    QString DetailOf(int row) const;
    void Open(int row, PagePlace place);
    void Note(const FinderItem& item);
    bool CanAdd(int row) const;
    void Add();
    void ShowHint(int row);
    QString Tickers(const std::vector<std::string>& tickers) const;

    frmMain& m_form;
    const Clock& m_clock;
    std::filesystem::path m_file;
    PaneDeck& m_panes;
    LinkPanel& m_panel;
    const LinkDispatch& m_dispatch;
    Portfolios& m_portfolios;
    std::function<FinderSources()> m_make;
    FinderSources m_sources;
    std::vector<FinderSource*> m_sourceOf; ///< of each item
    std::unique_ptr<FinderCatalogue> m_catalogue;
    FinderResult m_result;
    int m_offerRow = kNoRow;
    UseRecord m_uses;
    bool m_isRecordRead = false; ///< else it is not written either
    frmFinder* m_box = nullptr;
};

} // namespace tallowmere
