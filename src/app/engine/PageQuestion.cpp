#include "app/engine/PageQuestion.h"

#include "app/base/FlowLayout.h"
#include "app/base/TabPlace.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidest = 460;
constexpr int kGap = 6;
constexpr int kFewestLines = 2;
constexpr int kMostLines = 10;
constexpr qsizetype kLongestText = 20'000; // nobody reads more, and to lay it out takes time

QLineEdit* AddBox(QLayout* layout, const QString& name, const QString& accessibleName) {
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    layout->addWidget(box);
    return box;
}

} // namespace

PageQuestion::PageQuestion(QWidget* pane) : QFrame(pane) {
    setObjectName(u"PageQuestion"_s);
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    pane->installEventFilter(this);
    hide();
}

// Most pages have nothing to say.
void PageQuestion::Build() {
    if (m_area)
        return;
    m_area = new QScrollArea(this);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_area);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    m_area->setWidget(new QWidget);
    auto* layout = new QVBoxLayout(m_area->widget());
    m_who = new QLabel;
    m_who->setObjectName(u"QuestionWho"_s);
    m_who->setTextFormat(Qt::PlainText);
    m_who->setWordWrap(true);
    layout->addWidget(m_who);
    m_text = new QPlainTextEdit;
    m_text->setObjectName(u"QuestionText"_s);
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    layout->addWidget(m_text, 1);
    m_input = AddBox(layout, u"QuestionInput"_s, tr("Answer"));
    m_password = AddBox(layout, u"QuestionPassword"_s, tr("Password"));
    m_password->setPlaceholderText(tr("Password"));
    m_password->setEchoMode(QLineEdit::Password);
    auto* buttons = new FlowLayout(nullptr, kGap);
    layout->addLayout(buttons);
    m_yes = AddButton(buttons, u"QuestionYes"_s);
    m_no = AddButton(buttons, u"QuestionNo"_s);
    m_silence = AddButton(buttons, u"QuestionSilence"_s);
    m_silence->setText(tr("No more from this page"));
    connect(m_yes, &QPushButton::clicked, this, [this] { Answer(true, false); });
    connect(m_no, &QPushButton::clicked, this, [this] { Answer(false, false); });
    connect(m_silence, &QPushButton::clicked, this, [this] { Answer(false, true); });
    for (QLineEdit* box : {m_input, m_password})
        connect(box, &QLineEdit::returnPressed, this, [this] { Answer(true, false); });
    TakeTabPlace(*this);
}

PageQuestion::~PageQuestion() {
    EndAll();
}

QPushButton* PageQuestion::AddButton(QLayout* layout, const QString& name) {
    auto* button = new QPushButton;
    button->setObjectName(name);
    layout->addWidget(button);
    return button;
}

void PageQuestion::Ask(const PageAsk& ask, Receive receive) {
    m_open.insert(0, {ask, std::move(receive)});
    // What is shown already may have something typed into it.
    if (m_open.size() == 1)
        ShowLatest();
}

void PageQuestion::AskAtOnce(const PageAsk& ask, Receive receive) {
    m_open.append({ask, std::move(receive), true});
    ShowLatest();
}

void PageQuestion::EndAwaited() {
    while (!m_open.isEmpty() && m_open.last().isAwaited)
        Answer(false, false);
}

void PageQuestion::EndAll() {
    const QList<Open> ended = std::exchange(m_open, {});
    hide();
    for (auto open = ended.crbegin(); open != ended.crend(); ++open)
        open->receive({});
}

void PageQuestion::ShowLatest() {
    if (m_open.isEmpty()) {
        hide();
        return;
    }
    Build();
    using Kind = PageAsk::Kind;
    const PageAsk& ask = m_open.last().ask;
    const bool isSignIn = ask.kind == Kind::SignIn;
    m_who->setText(ask.kind == Kind::Question || ask.kind == Kind::Message
                       ? tr("%1 says:").arg(ask.who)
                       : tr("%1 asks:").arg(ask.who));
    m_text->setPlainText(ask.text.size() > kLongestText ? ask.text.left(kLongestText) + u"\n..."_s
                                                        : ask.text);
    m_text->setAccessibleName(m_who->text());
    m_input->setText(ask.preset.left(kLongestText));
    m_input->setPlaceholderText(isSignIn ? tr("User Name") : QString());
    m_input->setVisible(isSignIn || ask.kind == Kind::Input);
    m_password->clear();
    m_password->setVisible(isSignIn);
    m_yes->setText(ask.kind == Kind::Question ? tr("&Yes") : tr("&OK"));
    m_no->setText(ask.kind == Kind::Question ? tr("&No") : tr("&Cancel"));
    m_no->setVisible(ask.kind != Kind::Message);
    m_silence->setVisible(ask.offersSilence);
    show();
    raise();
    Fit();
    // Who types elsewhere is not taken away from there.
    const QWidget* focus = QApplication::focusWidget();
    if (focus && parentWidget()->isAncestorOf(focus))
        (m_input->isVisible() ? static_cast<QWidget*>(m_input) : m_text)->setFocus();
}

// As much of the top of the pane as the text needs, and never more than the pane has.
void PageQuestion::Fit() {
    const QSize pane = parentWidget()->size();
    const int width = std::min(pane.width(), kWidest);
    const int line = m_text->fontMetrics().lineSpacing();
    const int frame = m_text->frameWidth() * 2 + kGap * 2;
    const int perLine = std::max(1, (width - 60) / m_text->fontMetrics().averageCharWidth());
    const int lines = std::clamp(static_cast<int>(m_text->toPlainText().size()) / perLine + 1 +
                                     m_text->blockCount(),
                                 kFewestLines, kMostLines);
    const int least = kFewestLines * line + frame;
    m_text->setFixedHeight(least);
    QLayout* layout = m_area->widget()->layout();
    const int others = layout->heightForWidth(width - 2 * frameWidth()) - least + 2 * frameWidth();
    m_text->setFixedHeight(
        std::clamp(lines * line + frame, least, std::max(least, pane.height() - others)));
    const int height = std::min(pane.height(), others + m_text->maximumHeight());
    setGeometry((pane.width() - width) / 2, 0, width, height);
    this->layout()->activate();
    layout->activate();
}

void PageQuestion::Answer(bool isYes, bool wantsSilence) {
    if (m_open.isEmpty())
        return;
    const Open answered = m_open.takeLast();
    PageReply reply;
    reply.isYes = isYes;
    reply.wantsSilence = wantsSilence;
    if (isYes) {
        reply.text = m_input->text();
        reply.password = m_password->text();
    }
    m_password->clear();
    ShowLatest();
    answered.receive(reply);
}

void PageQuestion::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Answer(false, false);
    else
        QFrame::keyPressEvent(event);
}

bool PageQuestion::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible())
        Fit();
    return QFrame::eventFilter(watched, event);
}

} // namespace tallowmere
