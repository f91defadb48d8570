#pragma once

#include <QFrame>

class QPushButton;

namespace tallowmere {

class ElidedLabel;

/// The bar of a watch window that says that its page changed.
class ChangeBar : public QFrame {
    Q_OBJECT
public:
    explicit ChangeBar(QWidget* parent);

    /// Shows the words, and offers to show more when there is more.
    void Tell(const QString& words, bool hasMore);
    QString Words() const;

Q_SIGNALS:
    void ShowWanted();

private:
    ElidedLabel* m_words;
    QPushButton* m_show;
};

} // namespace tallowmere
