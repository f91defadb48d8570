#pragma once

#include <QBuffer>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QtPdf/QPdfDocument>

class QPdfView;

namespace tallowmere {

/// "Print Preview": the pages as they will be on paper.
class frmPreview : public QDialog {
    Q_OBJECT
public:
    explicit frmPreview(QWidget* parent);
    ~frmPreview() override;

    QCheckBox* chkLandscape;
    QLabel* lblPages; ///< how many there are
    QPushButton* cmdLarger;
    QPushButton* cmdSmaller;
    QPushButton* cmdPrint;
    QPushButton* cmdSave;
    QPushButton* cmdClose;

    /// Shows a document in the place of the one before. Gives false when it cannot be read.
    bool Show(const QByteArray& pdf);

    /// The document that is shown; empty before the first.
    const QByteArray& Document() const { return m_bytes.data(); }

    /// Shows that the document is being made anew.
    void Wait();

private:
    void Arrange();
    void ZoomBy(double factor);

    QBuffer m_bytes;
    QPdfDocument m_document{nullptr};
    QPdfView* m_view;
};

} // namespace tallowmere
