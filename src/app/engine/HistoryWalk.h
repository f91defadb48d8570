#pragma once

#include <QObject>

#include <optional>

class QWebEngineLoadingInfo;
class QWebEnginePage;

namespace tallowmere {

/// The steps back and forward through what a page showed before. The engine loses count when a step
/// is wanted while the page of the step before arrives: what is wanted is remembered here, and
/// looked after when a page is there.
class HistoryWalk : public QObject {
    Q_OBJECT
public:
    /// It ends with the page.
    explicit HistoryWalk(QWebEnginePage& page);

    void GoBack();
    void GoForward();
    /// Goes to the page at `index` of the history, wherever the page is.
    void GoTo(int index);
    /// The page is wanted elsewhere: no step is owed any more.
    void Forget();
    /// The step under way is about to be stopped. A click that stops what is being loaded and then
    /// takes a step at once still counts from where that was to lead.
    void Interrupt();

private:
    void Step(int by);
    void LookAfter(const QWebEngineLoadingInfo& load);

    QWebEnginePage& m_page;
    std::optional<int> m_target;      ///< index in the history of a step that is under way
    std::optional<int> m_interrupted; ///< the same of one that has just been stopped
    int m_from = 0;                   ///< index at which that step began
    int m_triesLeft = 0;              ///< for a step that began while another one was under way
};

} // namespace tallowmere
