#include "app/engine/PagePermissions.h"

#include "app/base/Prompts.h"
#include "app/base/WebAccess.h"

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

PagePermissions::PagePermissions(QWebEnginePage& page, Prompts& prompts)
    : QObject(&page), m_prompts(prompts) {
    // While the user is asked, the page may go.
    const QPointer<QWebEnginePage> guard(&page);
#ifdef TALLOWMERE_PERMISSION_OBJECTS
    connect(&page, &QWebEnginePage::permissionRequested, this,
            [this, guard](const QWebEnginePermission& permission) {
                const QWebEnginePermission asked = permission;
                const bool isGranted = Ask(asked.origin(), WishOf(asked.permissionType()));
                if (!guard)
                    return;
                if (isGranted)
                    asked.grant();
                else
                    asked.deny();
            });
#else
    connect(&page, &QWebEnginePage::featurePermissionRequested, this,
            [this, guard](const QUrl& origin, Kind kind) {
                const bool isGranted = Ask(origin, WishOf(kind));
                if (guard)
                    guard->setFeaturePermission(origin, kind,
                                                isGranted ? QWebEnginePage::PermissionGrantedByUser
                                                          : QWebEnginePage::PermissionDeniedByUser);
            });
#endif
}

void PagePermissions::RememberForThisRun([[maybe_unused]] QWebEngineProfile& profile) {
#ifdef TALLOWMERE_PERMISSION_OBJECTS
    profile.setPersistentPermissionsPolicy(
        QWebEngineProfile::PersistentPermissionsPolicy::StoreInMemory);
#endif
}

bool PagePermissions::Ask(const QUrl& origin, const char* wish) {
    return wish && m_prompts.Ask(tr("The page of %1 asks to %2. Do you allow it?")
                                     .arg(WebAccess::AsBuilt(origin).toString(), tr(wish)),
                                 MessageTitle());
}

} // namespace tallowmere
