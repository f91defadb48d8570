#pragma once

#include <QLabel>
#include <QWidget>

#include <array>

namespace tallowmere {

/// The status bar of six panels. The panels stand in as few rows as their texts allow.
class StripBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kPanels = 6;

    explicit StripBar(QWidget* parent);

    /// Panels count from 1.
    QString PanelText(int panel) const;
    void SetPanelText(int panel, const QString& text);
    /// What is to be said about the text of a panel: told under the pointer, and to assistive
    /// technology.
    void SetPanelNote(int panel, const QString& note);

    /// The height that the panels need at a width, in pixels.
    int heightForWidth(int width) const override;

Q_SIGNALS:
    void Clicked();
    /// The panels need another height than before.
    void HeightChanged();
    /// The pointer came over a panel of which there is something to say, or left it (empty).
    void NotePointedAt(const QString& note);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    int Columns(int width) const;
    void Arrange();

    std::array<QLabel*, kPanels> m_panels{};
};

} // namespace tallowmere
