#include "app/backup/DatedCopies.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"

#include <exception>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::minutes kAfterStart{1};
constexpr std::chrono::minutes kAfterChange{5};

} // namespace

DatedCopies::DatedCopies(frmMain& form, const Clock& clock, StorePlaces places)
    : QObject(&form), m_form(form), m_clock(clock), m_places(std::move(places)) {
    m_due.setSingleShot(true);
    m_due.setTimerType(Qt::VeryCoarseTimer);
    connect(&m_due, &QTimer::timeout, this, [this] {
        if (m_form.Web->Busy())
            Await(kAfterStart);
        else
            Make();
    });
}

DatedCopies::~DatedCopies() {
    m_isWanted = false;
    if (m_worker.joinable())
        m_worker.join();
}

void DatedCopies::Await(std::chrono::milliseconds time) {
    m_due.start(time);
}

void DatedCopies::Start() {
    Await(kAfterStart);
}

void DatedCopies::NoteChange() {
    if (!m_due.isActive())
        Await(kAfterChange);
}

void DatedCopies::Make() {
    if (m_worker.joinable())
        return;
    m_due.stop();
    const Date today = m_clock.Today();
    const auto time = static_cast<std::time_t>(m_clock.Now().toSecsSinceEpoch());
    m_worker = std::thread([this, today, time] {
        CopyOutcome outcome = CopyOutcome::Left;
        QString problem;
        try {
            outcome = MakeDatedCopy(m_places, today, time, [this] { return m_isWanted.load(); });
        } catch (const std::exception& error) {
            problem = ToQt(error.what());
        }
        QMetaObject::invokeMethod(
            this, [this, outcome, problem] { Finish(outcome, problem); }, Qt::QueuedConnection);
    });
}

void DatedCopies::Finish(CopyOutcome outcome, const QString& problem) {
    m_worker.join();
    if (!problem.isEmpty() && !m_isFailureTold) {
        m_isFailureTold = true;
        Q_EMIT Failed(u"No copy of your data was made: "_s + problem);
    }
    if (outcome == CopyOutcome::Moving)
        NoteChange();
    Q_EMIT Done(outcome);
}

} // namespace tallowmere
