#pragma once

#include <QWidget>

#include <array>

namespace tallowmere {

class StripPanel;

/// The status bar of six panels. The panels stand in as few rows as their texts allow.
class StripBar : public QWidget {
    Q_OBJECT
public:
    static constexpr int kPanels = 6;

    explicit StripBar(QWidget* parent);

    /// Panels count from 1.
    QString PanelText(int panel) const;
    void SetPanelText(int panel, const QString& text);
    /// What is to be said about the text of a panel, or why there is none: told under the pointer,
    /// and to assistive technology.
    void SetPanelNote(int panel, const QString& note);
    /// How old a stale text is, drawn behind the dimmed text; empty for one that is not stale.
    void SetPanelAge(int panel, const QString& age);
    /// What is drawn in a panel that has no text yet.
    void SetPanelHint(int panel, const QString& hint);

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
    StripPanel* Panel(int panel) const { return m_panels.at(static_cast<std::size_t>(panel - 1)); }
    template <typename Change>
    void Rearrange(Change change);
    int Columns(int width) const;
    void Arrange();

    std::array<StripPanel*, kPanels> m_panels{};
};

} // namespace tallowmere
