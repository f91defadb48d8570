#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tallowmere {

/// The bar under a page in which the user searches its text.
class FindBar : public QWidget {
    Q_OBJECT
public:
    explicit FindBar(QWidget* parent);

    /// Shows the bar with its text selected, ready to be typed over.
    void Open();

    /// Says which of how many places is the one found last; 0 of 0 when there is none.
    void ShowMatch(int match, int matches);

Q_SIGNALS:
    /// The text to find, on or back from the place found last; empty when the search ends.
    void Wanted(const QString& text, bool isBackward);
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Close();

    QLineEdit* m_text;
    QLabel* m_matches;
};

} // namespace tallowmere
