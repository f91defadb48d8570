#pragma once

#include <QObject>
#include <QString>

namespace tallowmere {

/// The text that the user searched pages for last: the same in all panes, as long as the program
/// runs.
class FindText : public QObject {
    Q_OBJECT
public:
    const QString& Text() const { return m_text; }
    void Set(const QString& text) {
        if (text == m_text)
            return;
        m_text = text;
        Q_EMIT Changed();
    }

Q_SIGNALS:
    void Changed();

private:
    QString m_text;
};

} // namespace tallowmere
