#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace tallowmere {

class Chip;

/// The editor of one of the user's own links: its controls under their names.
class frmCustom : public QDialog {
    Q_OBJECT
public:
    explicit frmCustom(QWidget* parent);

    QLineEdit* txtTitle;
    QLineEdit* txtURL;
    Chip* lblExamp;        ///< the link as it will look
    QPushButton* Command1; ///< Reset
    QPushButton* Command2; ///< Save
    QPushButton* Command3; ///< Cancel
    QPushButton* Command4; ///< Current Page
    QPushButton* Command5; ///< Text Color
    QPushButton* Command6; ///< Background Color
    QPushButton* cmdMulti;
    QPushButton* cmdPlaceholder; ///< puts the placeholder where a ticker was found in the address

    /// Shows what the address becomes for the selected ticker; an empty text shows nothing.
    void ShowExpanded(const QString& text);
    /// Offers to put a placeholder for a ticker; an empty ticker takes the offer away.
    void OfferPlaceholder(const QString& ticker);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildControls();
    void LayOut();
    void EditTitle(const QString& text);
    QLineEdit* Box(const QString& name, const QString& accessibleName);

    QLabel* m_expanded;
    QString m_lastTitle; ///< as it was before what the user types
};

} // namespace tallowmere
