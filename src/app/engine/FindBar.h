#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace tallowmere {

class FindText;

/// The bar under a page in which the user searches its text. Its controls are made when it is first
/// used.
class FindBar : public QWidget {
    Q_OBJECT
public:
    /// `finding` is the text to search for, which all bars share.
    FindBar(FindText& finding, QWidget* parent);

    /// Shows the bar with its text selected, ready to be typed over.
    void Open();
    /// Finds the text further down or up, with the bar or without; without a text opens the bar.
    void FindOn(bool isBackward);

    /// Says which of how many places is the one found last; 0 of 0 when there is none,
    /// which is never said without the bar.
    void ShowMatch(int match, int matches);

Q_SIGNALS:
    /// The text to find, on or back from the place found last; empty when the search ends.
    void Wanted(const QString& text, bool isBackward);
    void Closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Build();
    void Close();
    void Want(const QString& text, bool isBackward);

    FindText& m_finding;
    bool m_isSearching = false; ///< somebody may still say what was found
    QLineEdit* m_text = nullptr;
    QLabel* m_matches = nullptr;
};

} // namespace tallowmere
