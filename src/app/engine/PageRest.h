#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

class QWebEngineView;

namespace tallowmere {

class PanePage;

/// Lets a page rest that nobody has seen for ten minutes: its scripts and its timers stand still,
/// while what it shows, what was typed into it and where it was scrolled to stay as they are. One
/// that plays sound, that loads or that is looked into goes on. It wakes when it is seen or loaded.
class PageRest : public QObject {
    Q_OBJECT
public:
    /// `view` shows `page` and nothing else.
    PageRest(QWebEngineView& view, PanePage& page);

    /// How long a page goes on unseen, from now on.
    void SetPatience(std::chrono::milliseconds patience);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Await();
    void Rest();

    QWebEngineView& m_view;
    PanePage& m_page;
    QTimer m_due;
};

} // namespace tallowmere
