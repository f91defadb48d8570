#pragma once

#include <QLabel>

namespace tallowmere {

/// A line of plain text that ends with dots where there is no room for all of it; its tool tip has
/// the rest then. It yields: it keeps no window from being made small.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(const QString& text, QWidget* parent);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    bool IsWhole() const;
};

} // namespace tallowmere
