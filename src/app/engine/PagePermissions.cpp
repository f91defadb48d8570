#include "app/engine/PagePermissions.h"

#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineProfile>

// Since 6.8 a permission is an object of its own; the older calls have no effect there.
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
#define TALLOWMERE_PERMISSION_OBJECTS
#include <QWebEnginePermission>
#endif

#include <array>

namespace tallowmere {

namespace {

#ifdef TALLOWMERE_PERMISSION_OBJECTS
using Kind = QWebEnginePermission::PermissionType;
#else
using Kind = QWebEnginePage::Feature;
#endif

struct WishRow {
    Kind kind;
    const char* wish;
};

// What a page may be allowed; everything else is refused unasked.
// clang-format off
constexpr std::array<WishRow, 5> kWishes = {{
    {Kind::Notifications,            QT_TR_NOOP("show notifications")},
    {Kind::Geolocation,              QT_TR_NOOP("know where you are")},
    {Kind::MediaAudioCapture,        QT_TR_NOOP("use the microphone")},
    {Kind::MediaVideoCapture,        QT_TR_NOOP("use the camera")},
    {Kind::MediaAudioVideoCapture,   QT_TR_NOOP("use the camera and the microphone")},
}};
// clang-format on

const char* WishOf(Kind kind) {
    for (const WishRow& row : kWishes)
        if (row.kind == kind)
            return row.wish;
    return nullptr;
}

} // namespace

PagePermissions::PagePermissions(QWebEnginePage& page, Question question)
    : QObject(&page), m_question(std::move(question)) {
    // While the user is asked, the page may go.
    const QPointer<QWebEnginePage> guard(&page);
#ifdef TALLOWMERE_PERMISSION_OBJECTS
    connect(&page, &QWebEnginePage::permissionRequested, this,
            [this, guard](const QWebEnginePermission& permission) {
                const auto decide = [guard, permission](bool isGranted) {
                    if (guard && isGranted)
                        permission.grant();
                    else if (guard)
                        permission.deny();
                };
                if (const char* wish = WishOf(permission.permissionType()))
                    m_question(permission.origin(), tr(wish), decide);
                else
                    decide(false);
            });
#else
    connect(&page, &QWebEnginePage::featurePermissionRequested, this,
            [this, guard](const QUrl& origin, Kind kind) {
                const auto decide = [guard, origin, kind](bool isGranted) {
                    if (guard)
                        guard->setFeaturePermission(origin, kind,
                                                    isGranted
                                                        ? QWebEnginePage::PermissionGrantedByUser
                                                        : QWebEnginePage::PermissionDeniedByUser);
                };
                if (const char* wish = WishOf(kind))
                    m_question(origin, tr(wish), decide);
                else
                    decide(false);
            });
#endif
}

void PagePermissions::RememberForThisRun([[maybe_unused]] QWebEngineProfile& profile) {
#ifdef TALLOWMERE_PERMISSION_OBJECTS
    profile.setPersistentPermissionsPolicy(
        QWebEngineProfile::PersistentPermissionsPolicy::StoreInMemory);
#endif
}

} // namespace tallowmere
