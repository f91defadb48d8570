#pragma once

#include <QAbstractListModel>
#include <QList>

#include <functional>
#include <optional>

namespace tallowmere {

/// A row of the box that finds everything.
struct FinderRow {
    /// A part of the text that was found.
    struct Mark {
        int start, length;
    };
    QString kind;
    QString text; ///< of strangers: to be shown as plain text
    QList<Mark> marks;
};

/// The rows of the box. What stands beside a row is asked for when the row is first seen.
class FinderRows : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;
    using Detail = std::function<QString(int row)>;

    void Show(QList<FinderRow> rows, Detail detail);

    const FinderRow& At(int row) const { return m_rows[row]; }
    QString DetailOf(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QList<FinderRow> m_rows;
    Detail m_detail;
    mutable QList<std::optional<QString>> m_details; ///< those that were asked for
};

} // namespace tallowmere
