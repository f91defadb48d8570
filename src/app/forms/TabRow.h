#pragma once

#include <QList>
#include <QTabBar>

namespace tallowmere {

/// A row of tabs, one for each page. It shows what it is told, and tells what the user wants.
class TabRow : public QTabBar {
    Q_OBJECT
public:
    struct Tab {
        QString caption; ///< may be of strangers; shown as plain text
        bool isClosable = false;
        QString hint = {}; ///< what is told on hover; the caption when it is empty
    };

    explicit TabRow(QWidget* parent);

    /// Shows these tabs, `current` being in front.
    void Show(const QList<Tab>& tabs, int current);

Q_SIGNALS:
    void Chosen(int index);
    void CloseRequested(int index);

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    QSize tabSizeHint(int index) const override;

private:
    void Rebuild(const QList<Tab>& tabs);

    QList<bool> m_closable;
};

} // namespace tallowmere
