#pragma once

#include "app/engine/PageQuestion.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QTimer>

#include <functional>

namespace tallowmere {

/// Answers what the page of a pane asks, as the user would: with the buttons of the sheet in the
/// pane. It does so from within the wait of the page, too.
class PageReplies {
public:
    struct Reply {
        const char* button = "QuestionNo";
        QString text = {};
        QString password = {};
        std::function<void()> before = {}; ///< done while the question stands
    };

    explicit PageReplies(QWidget& pane) : m_pane(pane) {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Look(); });
        m_timer.start(2);
    }

    QStringList asked;    ///< "who: text" of everything shown, in order
    QList<bool> offers;   ///< whether each came with an offer of silence
    QList<Reply> replies; ///< in order; without one the answer is no

private:
    template <typename Widget>
    Widget* Find(const char* name) {
        return m_pane.findChild<Widget*>(QString::fromLatin1(name));
    }

    void Look() {
        auto* question = m_pane.findChild<PageQuestion*>();
        if (m_isAnswering || !question || !question->isVisible())
            return;
        m_isAnswering = true;
        asked << Find<QLabel>("QuestionWho")->text() + QLatin1Char(' ') +
                     Find<QPlainTextEdit>("QuestionText")->toPlainText();
        offers << Find<QPushButton>("QuestionSilence")->isVisible();
        const Reply reply = replies.isEmpty() ? Reply{} : replies.takeFirst();
        m_isAnswering = false;
        if (reply.before) {
            m_isAnswering = true;
            reply.before();
            m_isAnswering = false;
        }
        if (!reply.text.isNull())
            Find<QLineEdit>("QuestionInput")->setText(reply.text);
        if (!reply.password.isNull())
            Find<QLineEdit>("QuestionPassword")->setText(reply.password);
        auto* button = Find<QPushButton>(reply.button);
        if (!button->isVisible()) // a message has one button only
            button = Find<QPushButton>("QuestionYes");
        QTest::mouseClick(button, Qt::LeftButton);
    }

    QWidget& m_pane;
    QTimer m_timer;
    bool m_isAnswering = false;
};

} // namespace tallowmere
