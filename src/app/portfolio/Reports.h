#pragma once

#include "app/base/Services.h"
#include "core/portfolio/report.h"

#include <QObject>

#include <functional>
#include <memory>

class QPrinter;

namespace tallowmere {

class frmMain;
class LinkDispatch;

/// The report of all portfolios, in the pane and on paper.
class Reports : public QObject {
    Q_OBJECT
public:
    Reports(frmMain& form, const Services& services, LinkDispatch& dispatch);

    /// Writes the report and shows it in `Web`.
    void View();

    /// Prints the report on the system's printer.
    void Print();

    /// Makes the printer that a report goes to; null when there is none.
    using PrinterFactory = std::function<std::unique_ptr<QPrinter>()>;
    void SetPrinterFactory(PrinterFactory factory) { m_makePrinter = std::move(factory); }

private:
    NoteIndex Notes() const;
    bool PrintOn(QPrinter& printer) const;

    Services m_services;
    LinkDispatch& m_dispatch;
    PrinterFactory m_makePrinter;
};

} // namespace tallowmere
