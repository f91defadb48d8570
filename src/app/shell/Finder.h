#pragma once

#include "app/base/FinderSource.h"
#include "core/finder/use_record.h"

#include <QObject>
#include <QStringList>

#include <filesystem>
#include <optional>
#include <vector>

class QAction;

namespace tallowmere {

class Clock;
struct FinderRow;
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
    /// Opens the box with the address of the page in front, for another one.
    void ShowAddress();

private:
    /// A row of the box.
    struct Row {
        enum class What { Match, Tickers, Typed, SmartNavigate } what;
        FinderMatch match; ///< of no account for the others
    };

    void Make();
    void OpenWith(const QString& line);
    void Collect();
    void Search(const QString& line);
    void ReadTyped(const QString& line);
    const Row& At(int row) const { return m_rows.at(static_cast<std::size_t>(row)); }
    FinderRow Shown(const Row& row) const;
    QAction* SmartNavigate() const;
    QString DetailOf(int at) const;
    void Open(int at, PagePlace place);
    void OpenFor(const Row& row, PagePlace place);
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
    bool m_wantsAddress = false;
    FinderResult m_result;
    std::optional<FinderItem> m_typed; ///< what the line itself is
    FinderSource* m_typedSource = nullptr;
    std::vector<Row> m_rows;
    UseRecord m_uses;
    bool m_isRecordRead = false; ///< else it is not written either
    frmFinder* m_box = nullptr;
};

} // namespace tallowmere
