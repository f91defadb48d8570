#pragma once

#include <QList>
#include <QStringList>

class QPrinter;

namespace tallowmere {

/// A table as it is put on paper.
struct PrintedTable {
    struct Column {
        QString heading;
        bool isNumber; ///< stands at the right
    };
    QString title;
    QList<Column> columns;
    QList<QStringList> rows;
};

/// Puts a table on paper, across, with its headings on each page and its title, page and count of
/// pages below. What is too wide for its column ends with dots. False when the printer does not
/// take it; throws RuntimeError when it writes a file and cannot.
bool PrintTable(const PrintedTable& table, QPrinter& printer);

} // namespace tallowmere
