#pragma once

#include <QColor>
#include <QString>

#include <optional>

class QPrinter;
class QWidget;

namespace tallowmere {

/// Everything with which the program stops the user: its questions and messages. Tests answer
/// through this seam. Pages do not get here: they ask in their panes.
class Prompts {
public:
    virtual ~Prompts() = default;

    /// From now on nobody is there to answer, because the program is made to end: messages go to
    /// standard error, every question is answered as by Escape.
    virtual void Leave() { m_isLeft = true; }
    bool IsLeft() const { return m_isLeft; }

    /// Shows a message with the information icon.
    virtual void Message(const QString& text, const QString& title) = 0;
    enum class Answer { Yes, No };
    /// Asks a Yes/No question; anything but Yes is no. Enter gives the answer `byDefault`, which is
    /// no where something would be lost.
    virtual bool Ask(const QString& text, const QString& title, Answer byDefault = Answer::Yes) = 0;
    /// Asks for a line of text; none when cancelled.
    virtual std::optional<QString> Input(const QString& prompt, const QString& title,
                                         const QString& preset) = 0;
    /// Asks for a text of any number of lines, which end with line feeds; none when cancelled.
    virtual std::optional<QString> InputLines(const QString& prompt, const QString& title,
                                              const QString& preset) = 0;
    /// Asks where to save a file; none when cancelled. `filter` is in Qt's form.
    virtual std::optional<QString> SaveFile(const QString& title, const QString& suggested,
                                            const QString& filter) = 0;
    /// Asks for a file that is there, or for a folder, beginning in `folder`; none when cancelled.
    virtual std::optional<QString> OpenFile(const QString& title, const QString& folder,
                                            const QString& filter) = 0;
    virtual std::optional<QString> OpenFolder(const QString& title, const QString& folder) = 0;
    /// Lets the user choose a printer and what it is to print; false when cancelled.
    virtual bool ChoosePrinter(QPrinter& printer, const QString& title) = 0;
    /// Lets the user pick a colour, starting from `initial`; none when cancelled.
    virtual std::optional<QColor> PickColor(const QColor& initial, const QString& title) = 0;

private:
    bool m_isLeft = false;
};

/// The title of the program's own messages.
inline QString MessageTitle() {
    return QStringLiteral("Quorvane");
}

/// The platform's own dialogs, over the window that is in front.
class DialogPrompts : public Prompts {
public:
    void Message(const QString& text, const QString& title) override;
    bool Ask(const QString& text, const QString& title, Answer byDefault = Answer::Yes) override;
    std::optional<QString> Input(const QString& prompt, const QString& title,
                                 const QString& preset) override;
    std::optional<QString> InputLines(const QString& prompt, const QString& title,
                                      const QString& preset) override;
    std::optional<QString> SaveFile(const QString& title, const QString& suggested,
                                    const QString& filter) override;
    std::optional<QString> OpenFile(const QString& title, const QString& folder,
                                    const QString& filter) override;
    std::optional<QString> OpenFolder(const QString& title, const QString& folder) override;
    bool ChoosePrinter(QPrinter& printer, const QString& title) override;
    std::optional<QColor> PickColor(const QColor& initial, const QString& title) override;
};

} // namespace tallowmere
