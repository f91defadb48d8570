#include "app/market/AlertWindow.h"

#include "app/base/DesktopNotice.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/market/PriceAlerts.h"
#include "core/quotes/number_text.h"

#include <QApplication>
#include <QDateTime>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

QString Moment(std::int64_t time) {
    return QDateTime::fromSecsSinceEpoch(time).toString(u"MM/dd/yyyy HH:mm:ss"_s);
}

/// A price in a cell: "430.50 (+0.53%)", with what keeps it from firing.
std::string PriceCell(const std::optional<ListedPrice>& price) {
    if (!price)
        return "not known";
    std::string text = PriceText(price->last);
    if (price->percent)
        text += " (" + PercentText(*price->percent) + ")";
    if (!price->age.empty())
        text += ", stale: " + price->age;
    return price->doubtful ? text + ", doubtful" : text;
}

AlertEntry EntryOf(const frmAlert& editor) {
    return ReadAlertEntry(FromQt(editor.txtTicker->text()),
                          static_cast<AlertKind>(editor.cboKind->currentIndex()),
                          FromQt(editor.txtLimit->text()));
}

} // namespace

AlertWindow::AlertWindow(frmMain& form, PriceAlerts& alerts, PaneDeck& panes)
    : QObject(&form), m_form(form), m_alerts(alerts), m_panes(panes),
      m_notice(new DesktopNotice(this)) {
    connect(form.menus->At("alerts"), &QAction::triggered, this, &AlertWindow::Show);
    connect(form.menus->At("addAlert"), &QAction::triggered, this,
            [this] { Add(m_form.List1->SelectedText()); });
    connect(&alerts, &PriceAlerts::Changed, this, &AlertWindow::Fill);
    connect(&alerts, &PriceAlerts::Checked, this, &AlertWindow::ShowPrices);
    connect(&alerts, &PriceAlerts::Fired, this, &AlertWindow::Tell);
    connect(m_notice, &DesktopNotice::Clicked, this, [this] {
        m_form.setWindowState(m_form.windowState() & ~Qt::WindowMinimized);
        m_form.raise();
        m_form.activateWindow();
        if (!QApplication::activeModalWidget())
            Show();
    });
}

void AlertWindow::Make() {
    if (m_window)
        return;
    m_window = new frmAlerts(&m_form);
    m_window->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_window->lstAlerts, &QTreeWidget::currentItemChanged, this, &AlertWindow::ShowButtons);
    connect(m_window->lstAlerts, &QTreeWidget::itemActivated, this, &AlertWindow::Edit);
    connect(m_window->cmdAdd, &QPushButton::clicked, this,
            [this] { Add(m_form.List1->SelectedText()); });
    connect(m_window->cmdEdit, &QPushButton::clicked, this, &AlertWindow::Edit);
    const auto remove = [this] { m_alerts.Remove(Selected()); };
    connect(m_window->cmdRemove, &QPushButton::clicked, this, remove);
    connect(m_window, &frmAlerts::DeleteKey, this, remove);
    connect(m_window->cmdReset, &QPushButton::clicked, this,
            [this] { m_alerts.Reset(Selected()); });
    m_window->lblMessage->setVisible(!m_alerts.HasQuotes());
    if (!m_alerts.HasQuotes())
        m_window->lblMessage->setText(
            u"Pages are loaded as they were built: no prices are known here, and no alert is "
            "checked."_s);
    m_alerts.Refresh();
    Fill();
}

void AlertWindow::Show() {
    m_untold = 0;
    Make();
    m_alerts.TellUnread();
    m_window->setAttribute(Qt::WA_ShowWithoutActivating, false);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    m_window->lstAlerts->setFocus();
}

// The row that was selected stays so, or the one in its place; an alert that was reset has another
// id.
void AlertWindow::Fill() {
    if (!m_window)
        return;
    QTreeWidget& list = *m_window->lstAlerts;
    const std::int64_t selected = Selected();
    const int row = list.indexOfTopLevelItem(list.currentItem());
    const AlertBook& book = m_alerts.Book();
    list.clear();
    QTreeWidgetItem* current = nullptr;
    for (const PriceAlert& alert : book.List().alerts) {
        const FiredAlert* fired = book.FiredBy(alert.id);
        auto* item = new QTreeWidgetItem(
            {ToQt(alert.ticker), ToQt(RuleWords(alert)),
             fired ? tr("fired at %1").arg(ToQt(PriceText(fired->price))) : tr("armed")});
        item->setData(frmAlerts::Ticker, Qt::UserRole, QVariant::fromValue<qint64>(alert.id));
        QFont font = list.font();
        font.setBold(fired);
        item->setFont(frmAlerts::State, font);
        if (fired)
            item->setToolTip(frmAlerts::State, Moment(fired->firedAt));
        list.addTopLevelItem(item);
        if (alert.id == selected)
            current = item;
    }
    if (!current)
        current = list.topLevelItem(std::clamp(row, 0, std::max(0, list.topLevelItemCount() - 1)));
    list.setCurrentItem(current);
    ShowPrices();
    FillLog();
    ShowButtons();
}

void AlertWindow::FillLog() {
    QTreeWidget& list = *m_window->lstLog;
    list.clear();
    const std::vector<FiredAlert>& log = m_alerts.Book().Log();
    QList<QTreeWidgetItem*> items;
    for (auto fired = log.rbegin(); fired != log.rend(); ++fired) {
        const QString origin = LineStart(ToQt(fired->origin));
        items << new QTreeWidgetItem({Moment(fired->firedAt), ToQt(fired->alert.ticker),
                                      ToQt(RuleWords(fired->alert)), ToQt(FiredPriceText(*fired)),
                                      origin});
        items.last()->setToolTip(frmAlerts::LogSource, origin);
    }
    list.addTopLevelItems(items);
    list.setCurrentItem(list.topLevelItem(0));
}

void AlertWindow::ShowPrices() {
    if (!m_window)
        return;
    for (int row = 0; row < m_window->lstAlerts->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = m_window->lstAlerts->topLevelItem(row);
        item->setText(frmAlerts::Price,
                      ToQt(PriceCell(m_alerts.PriceOf(FromQt(item->text(frmAlerts::Ticker))))));
    }
}

std::int64_t AlertWindow::Selected() const {
    const QTreeWidgetItem* item = m_window ? m_window->lstAlerts->currentItem() : nullptr;
    return item ? item->data(frmAlerts::Ticker, Qt::UserRole).toLongLong() : -1;
}

void AlertWindow::ShowButtons() {
    const std::int64_t id = Selected();
    m_window->cmdEdit->setEnabled(id >= 0);
    m_window->cmdRemove->setEnabled(id >= 0);
    m_window->cmdReset->setEnabled(id >= 0 && m_alerts.Book().FiredBy(id));
}

void AlertWindow::Add(const QString& ticker) {
    PriceAlert alert;
    alert.ticker = FromQt(ticker);
    OpenEditor(-1, alert);
}

void AlertWindow::Edit() {
    if (const PriceAlert* alert = m_alerts.Book().Find(Selected()))
        OpenEditor(alert->id, *alert);
}

// There is never more than one.
void AlertWindow::OpenEditor(std::int64_t id, const PriceAlert& alert) {
    if (m_editor && m_editor->isVisible())
        return;
    QWidget* parent = &m_form;
    if (m_window && m_window->isActiveWindow())
        parent = m_window;
    m_editor = new frmAlert(parent);
    m_editor->setAttribute(Qt::WA_DeleteOnClose);
    m_editor->setWindowTitle(id < 0 ? tr("New Alert") : tr("Alert"));
    m_editor->txtTicker->setText(ToQt(alert.ticker));
    m_editor->cboKind->setCurrentIndex(static_cast<int>(alert.kind));
    if (alert.limit > 0)
        m_editor->txtLimit->setText(ToQt(LimitText(alert.limit)));
    connect(m_editor, &frmAlert::Edited, this, &AlertWindow::TellEntry);
    connect(m_editor, &QDialog::accepted, this, [this, id] { Accept(id); });
    TellEntry();
    m_editor->setModal(true);
    m_editor->show();
    QLineEdit* first = alert.ticker.empty() ? m_editor->txtTicker : m_editor->txtLimit;
    first->setFocus();
    first->selectAll();
}

void AlertWindow::TellEntry() {
    const AlertEntry entry = EntryOf(*m_editor);
    const std::string& ticker = entry.alert.ticker;
    const auto price = IsAlertTicker(ticker) ? m_alerts.PriceOf(ticker) : std::nullopt;
    m_editor->TellPrice(price ? ToQt("Now " + PriceCell(price) + "; " + price->origin)
                              : tr("No price of it is known yet."));
    if (!entry.problem.empty()) {
        m_editor->Tell(ToQt(entry.problem), false);
        return;
    }
    std::string words = "Tells once when " + ticker + " is " + RuleWords(entry.alert) + ".";
    if (price && Fires(entry.alert, *price))
        words += " That is so now.";
    m_editor->Tell(ToQt(words), true);
}

void AlertWindow::Accept(std::int64_t id) {
    const AlertEntry entry = EntryOf(*m_editor);
    if (!entry.problem.empty())
        return;
    if (id < 0)
        m_alerts.Add(entry.alert);
    else
        m_alerts.Replace(id, entry.alert);
}

ItemMark AlertWindow::MarkOf(const std::string& ticker) const {
    const AlertStanding standing = m_alerts.Known().StandingOf(ticker);
    const QString words = ToQt(StandingWords(standing));
    if (words.isEmpty())
        return {};
    // Flags are in the fonts of every desktop, bells are not.
    return {standing.fired.empty() ? u"\u2690"_s : u"\u2691"_s, ToQt(ticker) + u": "_s + words,
            words};
}

// Without notices of the desktop the window opens, but takes nobody's keys.
void AlertWindow::Tell(const std::vector<FiredAlert>& fired) {
    if (m_window && m_window->isActiveWindow())
        m_untold = 0;
    m_untold += fired.size();
    QString words = ToQt(FiredWords(fired.back()));
    if (m_untold > 1)
        words += tr(" (and %1 more)").arg(m_untold - 1);
    m_panes.ShowLastingStatus(words);
    m_notice->Show(words, u"Click to see the alerts."_s, [guard = QPointer(this)] {
        if (!guard || QApplication::activeModalWidget())
            return;
        guard->Make();
        guard->m_window->setAttribute(Qt::WA_ShowWithoutActivating);
        guard->m_window->show();
        guard->m_window->raise();
        QApplication::alert(guard->m_window);
    });
}

} // namespace tallowmere
