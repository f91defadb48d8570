#pragma once

#include <QLabel>

namespace tallowmere {

/// One panel of the strip: its text, and what is drawn beside or in place of it without being part
/// of it.
class StripPanel : public QLabel {
    Q_OBJECT
public:
    explicit StripPanel(QWidget* parent);

    /// How old the text is, in a few characters; the panel is dimmed then. Empty for a text that is
    /// not stale.
    void SetAge(const QString& age);
    const QString& Age() const { return m_age; }
    /// What is shown as long as there is no text.
    void SetHint(const QString& hint);
    const QString& Hint() const { return m_hint; }

    /// The width in pixels of all that the panel shows.
    int ShownWidth() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString ShownAge() const;

    QString m_age;
    QString m_hint;
};

} // namespace tallowmere
