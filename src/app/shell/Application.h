#pragma once

#include <QApplication>

namespace tallowmere {

class Prompts;

/// The application object. Its event boundary is the one place where an error that ended a
/// command is shown; the program then goes on.
class Application : public QApplication {
    Q_OBJECT
public:
    Application(int& argc, char** argv);

    /// Through whom errors are shown.
    void SetPrompts(Prompts* prompts) { m_prompts = prompts; }

    /// Whether the system asked the program to end, be it before its event loop ran.
    bool IsEnding() const { return m_isEnding; }

    bool notify(QObject* receiver, QEvent* event) override;

protected:
    bool event(QEvent* event) override;

private:
    static void MendHints();
    void LoadIcon();
    void Report(const QString& text);
    void QuitOnTermination();
    void EndNow();

    Prompts* m_prompts = nullptr;
    bool m_isEnding = false;
};

} // namespace tallowmere
