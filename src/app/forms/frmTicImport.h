#pragma once

#include <QDialog>
#include <QLineEdit>

class QPushButton;

namespace tallowmere {

class TextListBox;

/// A line of text that keeps its selection while the focus is elsewhere.
class SampleBox : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void KeepSelection(const std::function<void()>& change);
};

/// The dialog of the ticker scan: its controls under their names.
class frmTicImport : public QDialog {
    Q_OBJECT
public:
    explicit frmTicImport(QWidget* parent);

    SampleBox* txtFind;
    TextListBox* List1;
    QPushButton* Command1; ///< Scan
    QPushButton* Command2; ///< Send Tickers
    QPushButton* Command3; ///< Close

private:
    void Arrange();
};

} // namespace tallowmere
