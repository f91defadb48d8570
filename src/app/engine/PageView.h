#pragma once

#include <QWebEngineView>

namespace tallowmere {

class FindBar;
class PanePage;
class UserInput;

/// Where the engine draws a page, with the menu of the right button and the search of its text.
class PageView : public QWebEngineView {
    Q_OBJECT
public:
    /// `findBar` searches `page` from now on.
    PageView(PanePage& page, FindBar& findBar, QWidget* parent);

    /// What the user does to the page.
    UserInput& Input() { return *m_input; }

Q_SIGNALS:
    /// The user wants to see what the site of this host keeps.
    void SiteDataWanted(const QString& host);

private:
    void Find(FindBar& bar, const QString& text, bool isBackward);
    void ShowMenu(QPoint position);

    UserInput* m_input;
    int m_searches = 0;
};

} // namespace tallowmere
