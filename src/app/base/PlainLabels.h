#pragma once

#include <QObject>

namespace tallowmere {

/// Lets every label of the application show its text as it is: what looks like markup in the name
/// of a portfolio, a note or the word of a site is shown and not obeyed. Tool tips and message
/// boxes are drawn by labels too. A label that was told to show markup of our own keeps that.
class PlainLabels : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace tallowmere
