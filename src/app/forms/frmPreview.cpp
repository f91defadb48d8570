#include "app/forms/frmPreview.h"

#include "app/forms/DialogParts.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <QtPdfWidgets/QPdfView>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 110; // characters
constexpr int kLines = 50;
constexpr double kStep = 1.25;
constexpr double kSmallest = 0.1;
constexpr double kLargest = 5;

} // namespace

frmPreview::frmPreview(QWidget* parent) : QDialog(parent), m_view(new QPdfView(this)) {
    setObjectName(u"frmPreview"_s);
    setWindowTitle(u"Print Preview"_s);
    m_view->setObjectName(u"Pages"_s);
    m_view->setAccessibleName(u"Pages"_s);
    m_view->setPageMode(QPdfView::PageMode::MultiPage);
    m_view->setZoomMode(QPdfView::ZoomMode::FitToWidth);
    m_view->setDocument(&m_document);
    chkLandscape = new QCheckBox(u"Lan&dscape"_s, this);
    chkLandscape->setObjectName(u"chkLandscape"_s);
    chkLandscape->setAccessibleName(u"Landscape"_s);
    lblPages = new QLabel(this);
    lblPages->setObjectName(u"lblPages"_s);
    lblPages->setTextFormat(Qt::PlainText);
    cmdLarger = MakeButton(u"cmdLarger"_s, u"&Larger"_s, this);
    cmdSmaller = MakeButton(u"cmdSmaller"_s, u"S&maller"_s, this);
    cmdPrint = MakeButton(u"cmdPrint"_s, u"&Print..."_s, this);
    cmdSave = MakeButton(u"cmdSave"_s, u"&Save as PDF..."_s, this);
    cmdClose = MakeButton(u"cmdClose"_s, u"&Close"_s, this);
    Arrange();
    Wait();
    connect(cmdLarger, &QPushButton::clicked, this, [this] { ZoomBy(kStep); });
    connect(cmdSmaller, &QPushButton::clicked, this, [this] { ZoomBy(1 / kStep); });
    connect(cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

// The view looks at the document until it goes.
frmPreview::~frmPreview() {
    delete m_view;
}

void frmPreview::Arrange() {
    auto* top = new QHBoxLayout;
    for (QWidget* control : std::initializer_list<QWidget*>{cmdLarger, cmdSmaller, chkLandscape})
        top->addWidget(control);
    top->addWidget(lblPages, 1, Qt::AlignRight);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    for (QPushButton* button : {cmdPrint, cmdSave, cmdClose})
        buttons->addWidget(button);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addLayout(buttons);
    ResizeWithinScreen(*this, kWidth, kLines);
}

void frmPreview::Wait() {
    lblPages->setText(u"Making the pages..."_s);
    for (QWidget* control :
         std::initializer_list<QWidget*>{chkLandscape, cmdPrint, cmdSave, cmdLarger, cmdSmaller})
        control->setEnabled(false);
}

bool frmPreview::Show(const QByteArray& pdf) {
    m_document.close();
    m_bytes.close();
    m_bytes.setData(pdf);
    m_bytes.open(QIODevice::ReadOnly);
    m_document.load(&m_bytes);
    const bool isRead = m_document.status() == QPdfDocument::Status::Ready;
    const int pages = isRead ? m_document.pageCount() : 0;
    lblPages->setText(!isRead      ? u"The page cannot be shown as it is printed."_s
                      : pages == 1 ? u"1 page"_s
                                   : QString::number(pages) + u" pages"_s);
    for (QWidget* control :
         std::initializer_list<QWidget*>{cmdPrint, cmdSave, cmdLarger, cmdSmaller})
        control->setEnabled(isRead);
    chkLandscape->setEnabled(true);
    return isRead;
}

void frmPreview::ZoomBy(double factor) {
    if (m_view->zoomMode() != QPdfView::ZoomMode::Custom) {
        const double width = m_document.pagePointSize(0).width() * logicalDpiX() / 72;
        m_view->setZoomFactor(width > 0 ? m_view->viewport()->width() / width : 1);
        m_view->setZoomMode(QPdfView::ZoomMode::Custom);
    }
    m_view->setZoomFactor(std::clamp(m_view->zoomFactor() * factor, kSmallest, kLargest));
}

} // namespace tallowmere
