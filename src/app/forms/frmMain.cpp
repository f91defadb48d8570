#include "app/forms/frmMain.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/ChipGroup.h"
#include "app/forms/Grip.h"
#include "app/forms/TabRow.h"
#include "app/forms/TopBar.h"
#include "app/forms/UndoBar.h"
#include "core/links/link_areas.h"

#include <QCloseEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWindow>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGap = 3;
constexpr double kLinkFontScale = 0.88;
constexpr int kListRows = 6;
constexpr int kLeastRows = 3;
constexpr int kRowsBesideBar = 2;
constexpr int kLongestEntry = 1'000'000; // a list of any size may be pasted

QRect ToQt(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

} // namespace

frmMain::frmMain(EngineProfile& profile, Prompts& prompts, CommandKeys& keys)
    : m_profile(profile), m_prompts(prompts) {
    setObjectName(u"frmMain"_s);
    setWindowTitle(u"Tallowmere"_s);
    m_body = new QWidget(this);
    m_controls = new QWidget(m_body);
    setCentralWidget(m_body);
    setMinimumSize(PixelsFromTwips(kMinimumWidthTwips), PixelsFromTwips(kMinimumHeightTwips));
    menus = std::make_unique<MainMenus>(*this, keys);
    BuildPanes();
    BuildPortfolioControls();
    BuildLinks();
    ConnectGrips();
    m_body->installEventFilter(this);
    List1->installEventFilter(this);
    for (QWidget* ground : {m_controls, m_body, static_cast<QWidget*>(this)})
        ground->setMouseTracking(true);
}

frmMain::~frmMain() = default;

BrowserPane* frmMain::MakePane(const QString& name, const QString& accessibleName,
                               QWidget* parent) {
    auto* pane = new BrowserPane(m_profile, m_prompts, parent);
    pane->setObjectName(name);
    pane->setAccessibleName(accessibleName);
    return pane;
}

BrowserPane* frmMain::AddPane() {
    const QString number = QString::number(++m_panesMade);
    BrowserPane* pane = MakePane(u"WebTab"_s + number, u"Further page "_s + number, m_body);
    pane->hide();
    pane->setGeometry(Web->geometry());
    m_furtherPanes << pane;
    return pane;
}

void frmMain::RemovePane(BrowserPane* pane) {
    m_furtherPanes.removeOne(pane);
    pane->hide();
    pane->deleteLater();
}

void frmMain::ShowTabs(bool shown) {
    if (tabRow->isHidden() != shown)
        return;
    tabRow->setVisible(shown);
    LayOut();
}

void frmMain::BuildPanes() {
    fraTick = new QFrame(m_controls);
    fraTick->setObjectName(u"fraTick"_s);
    fraTick->hide();
    tabRow = new TabRow(m_controls);
    tabRow->hide();
    Web = MakePane(u"Web"_s, u"Research page"_s, m_body);
    WebB = MakePane(u"WebB"_s, u"Broker page"_s, m_body);
    WebB->hide();
    WebTick = MakePane(u"WebTick"_s, u"Ticker strip"_s, fraTick);
    WebTick->LeaveOutLocation();
    WebStatus = new QLabel(m_controls);
    WebStatus->setObjectName(u"WebStatus"_s);
    WebStatus->setTextFormat(Qt::PlainText);
    WebStatus->setAutoFillBackground(true);
    WebStatus->setContentsMargins(4, 0, 4, 0);
    // A long address must not widen the window.
    WebStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    lblStat = new QLabel(m_controls);
    lblStat->setObjectName(u"lblStat"_s);
    lblStat->setAccessibleName(u"Progress"_s);
    lblStat->setAutoFillBackground(true);
    SpooBar = new StripBar(m_controls);
    connect(SpooBar, &StripBar::HeightChanged, this, &frmMain::LayOut);
}

void frmMain::BuildPortfolioControls() {
    for (int n = 1; n <= 10; ++n) {
        auto* number = new Chip(u"lblListNum"_s, n, QString::number(n), m_controls);
        number->setAccessibleDescription(u"Portfolio number"_s);
        number->SetHasDoubleClick(true);
        number->SetHasMenu(true);
        lblListNum[static_cast<std::size_t>(n)] = number;
    }
    lblListNum[1]->setFocusPolicy(Qt::StrongFocus);
    lblPort = new Chip(u"lblPort"_s, -1, {}, m_controls);
    lblPort->SetHasDoubleClick(true);
    lblPort->SetHasMenu(true);
    txtStock = new QLineEdit(m_controls);
    txtStock->setObjectName(u"txtStock"_s);
    txtStock->setAccessibleName(u"Ticker entry"_s);
    txtStock->setPlaceholderText(u"Ticker"_s);
    txtStock->setMaxLength(kLongestEntry);
    Label1 = new Chip(u"Label1"_s, -1, u" X"_s, m_controls);
    Label1->setAccessibleDescription(u"Remove the selected ticker"_s);
    Label1->setToolTip(u"Click: remove the selected ticker. Double-click: clear the list."_s);
    Label1->SetColors(kDesignedTool);
    Label1->setFocusPolicy(Qt::StrongFocus);
    Label1->SetHasDoubleClick(true);
    List1 = new TickerListBox(u"List1"_s, u"Ticker list"_s, m_controls);
    undoBar = new UndoBar(m_controls);
    connect(undoBar, &UndoBar::Switched, this, &frmMain::LayOut);
}

QScrollArea* frmMain::MakePanel(QScrollArea* panel, const QString& name,
                                const QString& accessibleName) {
    panel->setObjectName(name);
    panel->setAccessibleName(accessibleName);
    panel->setFrameShape(QFrame::NoFrame);
    panel->setWidgetResizable(true);
    panel->setFocusPolicy(Qt::NoFocus);
    panel->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* content = new QWidget(panel);
    content->setMouseTracking(true);
    panel->setWidget(content);
    return panel;
}

void frmMain::BuildLinks() {
    fraTop = MakePanel(new TopBar(m_controls), u"fraTop"_s, u"Top link bar"_s);
    fraLeft = MakePanel(new QScrollArea(m_controls), u"fraLeft"_s, u"Left panel"_s);
    fraRight = MakePanel(new QScrollArea(m_controls), u"fraRight"_s, u"Right panel"_s);

    ApplyFont();
    for (QScrollArea* panel : {fraTop, fraLeft, fraRight}) {
        QBoxLayout* layout = panel == fraTop ? static_cast<QBoxLayout*>(new QHBoxLayout)
                                             : static_cast<QBoxLayout*>(new QVBoxLayout);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        panel->widget()->setLayout(layout);
    }
    for (const LinkGroup& group : LinkGroups()) {
        QScrollArea* panel = group.panel == PanelSide::Top    ? fraTop
                             : group.panel == PanelSide::Left ? fraLeft
                                                              : fraRight;
        const bool top = panel == fraTop;
        auto* chips =
            new ChipGroup(top ? QString() : tallowmere::ToQt(group.heading), panel->widget());
        for (const int index : group.indexes) {
            const LinkRow& row = Catalogue()[static_cast<std::size_t>(index)];
            auto* link = new Chip(u"lbllink"_s, index, tallowmere::ToQt(row.caption), chips);
            link->setAccessibleDescription(tallowmere::ToQt(row.tooltip));
            link->SetColors(kDesignedTool);
            link->setProperty("tag", tallowmere::ToQt(AreaCode(row.area)));
            // No slot's place depends on what the slots are named.
            if (IsCustomSlot(index)) {
                chips->SetEqualColumns();
                link->SetSizeOf(tallowmere::ToQt(kEmptyCustomCaption));
            }
            link->SetHasMenu(row.action == LinkAction::Menu ||
                             row.action == LinkAction::QueryPortfolio);
            chips->Add(link);
            lbllink[static_cast<std::size_t>(index)] = link;
        }
        panel->widget()->layout()->addWidget(chips);
    }
    for (QScrollArea* panel : {fraTop, fraLeft, fraRight})
        static_cast<QBoxLayout*>(panel->widget()->layout())->addStretch(1);
}

// The links are many: their captions are somewhat smaller than the other texts of the window.
void frmMain::ApplyFont() {
    QFont font = this->font();
    font.setPointSizeF(font.pointSizeF() * kLinkFontScale);
    for (QScrollArea* panel : {fraTop, fraLeft, fraRight})
        panel->setFont(font);
}

void frmMain::ConnectGrips() {
    m_leftGrip = new Grip(u"Edge of the left panel"_s, Qt::Horizontal, m_controls);
    m_rightGrip = new Grip(u"Edge of the right panel"_s, Qt::Horizontal, m_controls);
    m_listGrip = new Grip(u"Edge of the ticker list"_s, Qt::Vertical, m_controls);
    connect(m_leftGrip, &Grip::Dragged, this, [this](int pixels) {
        m_panels.leftWidth = std::max(1, fraLeft->width() + pixels);
        LayOut();
    });
    connect(m_rightGrip, &Grip::Dragged, this, [this](int pixels) {
        m_panels.rightWidth = std::max(1, fraRight->width() - pixels);
        LayOut();
    });
    connect(m_listGrip, &Grip::Dragged, this, [this](int pixels) {
        m_panels.portfolioHeight =
            std::max(1, m_listGrip->y() - lblListNum[1]->y() + kGap + pixels);
        LayOut();
    });
    for (Grip* grip : {m_leftGrip, m_rightGrip, m_listGrip})
        connect(grip, &Grip::Released, this, &frmMain::PanelsChanged);
    const auto change = [this](auto what) {
        return [this, what] {
            PanelSizes panels = m_panels;
            what(panels);
            SetPanels(panels);
            Q_EMIT PanelsChanged();
        };
    };
    const auto foldLeft = change([](PanelSizes& panels) { panels.leftFolded ^= true; });
    const auto foldRight = change([](PanelSizes& panels) { panels.rightFolded ^= true; });
    connect(m_leftGrip, &Grip::DoubleClicked, this, foldLeft);
    connect(m_rightGrip, &Grip::DoubleClicked, this, foldRight);
    connect(m_listGrip, &Grip::DoubleClicked, this,
            change([](PanelSizes& panels) { panels.portfolioHeight = 0; }));
    connect(menus->foldLeft, &QAction::triggered, this, foldLeft);
    connect(menus->foldRight, &QAction::triggered, this, foldRight);
}

void frmMain::SetPanels(const PanelSizes& panels) {
    m_panels = panels;
    menus->foldLeft->setChecked(!panels.leftFolded);
    menus->foldRight->setChecked(!panels.rightFolded);
    LayOut();
}

void frmMain::LayOut() {
    // Before the window is first shown its size says nothing; there is a resize when it is.
    if (isMinimized() || !m_hasSize)
        return;
    if (m_controls->isHidden()) {
        // What is not seen keeps its place: it is to be the same afterwards.
        for (BrowserPane* pane : Panes())
            pane->setGeometry(m_body->rect());
        PlaceOverPanes();
        return;
    }
    LayoutRequest request;
    request.width = m_body->width();
    request.height = m_body->height();
    request.tickerShown = !fraTick->isHidden();
    request.leftShown = !m_panels.leftFolded && !fraLeft->isHidden();
    request.rightShown = !m_panels.rightFolded && !fraRight->isHidden();
    request.leftWidth = m_panels.leftWidth;
    request.rightWidth = m_panels.rightWidth;
    request.portfolioLeast = PortfolioHeight(kLeastRows);
    request.portfolioHeight = PortfolioHeight(kListRows);
    request.portfolioDragged = m_panels.portfolioHeight;
    // Beside a scroll bar: a panel that has one keeps it until all links fit even so.
    request.linksHeight = fraLeft->widget()->heightForWidth(
        std::max(0, LeftPanelWidth(request) - fraLeft->verticalScrollBar()->sizeHint().width()));
    request.tabsHeight = tabRow->isHidden() ? 0 : tabRow->sizeHint().height();
    request.statusHeight = fontMetrics().height() + 4;
    request.stripHeight = SpooBar->heightForWidth(m_body->width());
    const WindowLayout layout = LayOutWindow(request);
    m_controls->setGeometry(m_body->rect());

    fraTop->setGeometry(ToQt(layout.topBar));
    fraTick->setGeometry(ToQt(layout.tickerFrame));
    WebTick->setGeometry(0, 0, layout.tickerWidth, layout.tickerFrame.height);
    LayOutPortfolio(ToQt(layout.portfolio));
    fraLeft->setGeometry(ToQt(layout.left));
    fraRight->setGeometry(ToQt(layout.right));
    m_leftGrip->setGeometry(ToQt(layout.leftGrip));
    m_rightGrip->setGeometry(ToQt(layout.rightGrip));
    m_listGrip->setGeometry(ToQt(layout.listGrip));
    tabRow->setGeometry(ToQt(layout.tabs));
    for (BrowserPane* pane : Panes())
        pane->setGeometry(ToQt(layout.web));
    PlaceOverPanes();
    WebStatus->setGeometry(ToQt(layout.status));
    lblStat->setGeometry(layout.progress.x, layout.progress.y,
                         std::min(lblStat->width(), layout.progress.width), layout.progress.height);
    SpooBar->setGeometry(ToQt(layout.strip));
}

int frmMain::PortfolioHeight(int rows) const {
    const int row = lblListNum[1]->sizeHint().height() + kGap;
    return (lblPort->isHidden() ? 2 : 3) * row + txtStock->sizeHint().height() + kGap +
           rows * List1->fontMetrics().lineSpacing() + 2 * List1->frameWidth() + 2 * kGap;
}

// The numbers in two rows of five, the caption, the entry box beside " X", the list below.
void frmMain::LayOutPortfolio(const QRect& area) {
    const int inner = area.width() - 2 * kGap;
    const int left = area.x() + kGap;
    int y = area.y() + kGap;
    const int chipHeight = lblListNum[1]->sizeHint().height();
    const int columns = inner >= 10 * chipHeight + 9 * kGap ? 10 : 5;
    for (int n = 1; n <= 10; ++n) {
        const int column = (n - 1) % columns;
        const int from = left + inner * column / columns;
        const int to = left + inner * (column + 1) / columns - 2;
        lblListNum[static_cast<std::size_t>(n)]->setGeometry(from, y, std::max(0, to - from),
                                                             chipHeight);
        if (column == columns - 1)
            y += chipHeight + kGap;
    }
    lblPort->setGeometry(left, y, std::max(0, inner), chipHeight);
    if (!lblPort->isHidden())
        y += chipHeight + kGap;
    const int boxHeight = txtStock->sizeHint().height();
    const int removeWidth = Label1->sizeHint().width() + 2 * kGap;
    txtStock->setGeometry(left, y, std::max(0, inner - removeWidth - kGap), boxHeight);
    Label1->setGeometry(left + inner - removeWidth, y, removeWidth, boxHeight);
    y += boxHeight + kGap;
    List1->setGeometry(left, y, std::max(0, inner), std::max(0, area.bottom() - kGap - y + 1));
    LayOutUndoBar();
}

// The list makes room for the bar below its rows; where it has none to give, the bar lies over the
// links under it. Nothing else moves.
void frmMain::LayOutUndoBar() {
    if (undoBar->isHidden())
        return;
    QRect list = List1->geometry();
    const int height = undoBar->heightForWidth(list.width());
    if (list.height() - height >= kRowsBesideBar * List1->fontMetrics().height())
        list.setBottom(list.bottom() - height);
    List1->setGeometry(list);
    undoBar->setGeometry(list.x(), list.bottom() + 1, list.width(), height);
    undoBar->raise();
}

void frmMain::ShowCustomLink(const CustomLinkRecord& record, int slot) {
    Chip* link = lbllink.at(static_cast<std::size_t>(slot));
    const bool unused = IsUnusedSlot(record.title);
    link->SetCaption(tallowmere::ToQt(record.title));
    link->SetColors(ColorsOver(link->Colors(), record.colors));
    link->SetQuiet(unused);
    link->setAccessibleDescription(u"Custom link "_s + QString::number(slot) +
                                   (unused ? u", empty"_s : QString()));
}

void frmMain::PopUp(QMenu* menu) {
    const QWidget* focus = focusWidget();
    const bool byPointer = !focus || focus->underMouse();
    menu->popup(byPointer ? QCursor::pos() : focus->mapToGlobal(focus->rect().bottomLeft()));
}

void frmMain::ShowTicker(bool shown) {
    fraTick->setVisible(shown);
    LayOut();
}

void frmMain::ShowOverPanes(QWidget* bar) {
    m_overPanes = bar;
    PlaceOverPanes();
    bar->show();
}

void frmMain::ShowPanesAlone(bool alone) {
    m_controls->setVisible(!alone);
    LayOut();
}

void frmMain::PlaceOverPanes() {
    if (!m_overPanes)
        return;
    const QRect panes = Web->geometry();
    const int height = m_overPanes->sizeHint().height();
    m_overPanes->setGeometry(panes.x(), panes.bottom() + 1 - height, panes.width(), height);
    m_overPanes->raise();
}

void frmMain::ShowPortfolioLabel(bool shown) {
    menus->mnuPortOpt[3]->setChecked(shown);
    lblPort->setVisible(shown);
}

void frmMain::SetToolTips(bool shown) {
    m_toolTips = shown;
    for (Chip* link : lbllink) {
        const LinkRow& row = Catalogue()[static_cast<std::size_t>(link->Index())];
        link->setToolTip(shown ? tallowmere::ToQt(row.tooltip) : QString());
    }
}

void frmMain::SetBackground(const QColor& color) {
    // Scroll bars, arrows, edges and the strip take shades of it.
    const QPalette system = palette();
    m_body->setPalette(color == system.color(QPalette::Window) ? system : QPalette(color, color));
    m_body->setAutoFillBackground(true);
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool mayClose = true;
    Q_EMIT CloseWanted(&mayClose);
    event->setAccepted(mayClose);
    if (mayClose)
        Q_EMIT Closing();
}

void frmMain::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        ApplyFont();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        LayOut();
}

// The panes swallow the pointer's moves; the native window sees them all.
void frmMain::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    windowHandle()->installEventFilter(this);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_body && event->type() == QEvent::Resize) {
        m_hasSize = true;
        LayOut();
    }
    // The list keeps its tool tip while none is wanted; it is only not shown.
    if (watched == List1)
        return event->type() == QEvent::ToolTip && !m_toolTips;
    if (event->type() == QEvent::MouseMove)
        TellPointer(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::TellPointer(const QPoint& globalPosition) {
    Q_EMIT PointerMoved((globalPosition.x() - frameGeometry().x()) * kTwipsPerPixel,
                        frameGeometry().width() * kTwipsPerPixel);
}

} // namespace tallowmere
