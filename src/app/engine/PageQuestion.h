#pragma once

#include <QFrame>
#include <QList>

#include <functional>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QScrollArea;

namespace tallowmere {

/// What a page wants to show or to ask.
struct PageAsk {
    enum class Kind { Message, Question, Input, SignIn };

    Kind kind = Kind::Message;
    QString who;  ///< whose page it is
    QString text; ///< as the page has it
    QString preset = {};
    bool offersSilence = false;
};

/// What the user answered; the default is what stands for no answer.
struct PageReply {
    bool isYes = false;
    bool wantsSilence = false;
    QString text = {}; ///< what was typed, or the user name
    QString password = {};
};

/// Where a page speaks to the user: a sheet over the page in its own pane, never over the rest of
/// the program, which stays alive. It is no larger than the pane, and long text scrolls in it. Its
/// controls are made when a page first speaks.
class PageQuestion : public QFrame {
    Q_OBJECT
public:
    using Receive = std::function<void(const PageReply&)>;

    /// `pane` is the pane whose page speaks.
    explicit PageQuestion(QWidget* pane);
    /// Answers what is open with no answer.
    ~PageQuestion() override;

    /// Shows `ask` when what is open already is answered. `receive` is called once.
    void Ask(const PageAsk& ask, Receive receive);
    /// The same at once: somebody waits for the answer.
    void AskAtOnce(const PageAsk& ask, Receive receive);
    /// Ends what somebody waits for, and leaves the rest open.
    void EndAwaited();
    /// Takes everything away that is open; it is answered with no answer.
    void EndAll();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Open {
        PageAsk ask;
        Receive receive;
        bool isAwaited = false;
    };

    void Build();
    QPushButton* AddButton(QLayout* layout, const QString& name);
    void ShowLatest();
    void Fit();
    void Answer(bool isYes, bool wantsSilence);

    QList<Open> m_open; ///< the last is shown
    QScrollArea* m_area = nullptr;
    QLabel* m_who = nullptr;
    QPlainTextEdit* m_text = nullptr;
    QLineEdit* m_input = nullptr;
    QLineEdit* m_password = nullptr;
    QPushButton* m_yes = nullptr;
    QPushButton* m_no = nullptr;
    QPushButton* m_silence = nullptr;
};

} // namespace tallowmere
