#pragma once

#include <QToolBar>

class QLabel;
class QMenu;
class QToolButton;

namespace tallowmere {

/// The bar over the lower edge of the panes while a multi-link is recorded: how many pages there
/// are and what to do, the pages themselves in a menu, and buttons that discard the last one and
/// end the recording.
class RecorderBar : public QToolBar {
    Q_OBJECT
public:
    explicit RecorderBar(QWidget* parent);

    /// Shows the line and the addresses of the pages so far.
    void Tell(const QString& line, const QStringList& pages);

    QString Line() const;

Q_SIGNALS:
    void DiscardWanted();
    void EndWanted();

private:
    QToolButton* Button(const QString& name, const QString& caption);

    QLabel* m_line;
    QMenu* m_list;
    QToolButton* m_pages;
    QToolButton* m_discard;
};

} // namespace tallowmere
