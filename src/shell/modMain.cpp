#include "shell/modMain.h"

#include "shell/QtText.h"
#include "shell/TransferControl.h"
#include "shell/conversion.h"
#include "shell/window_layout.h"

namespace tallowmere {

QByteArray TransferPool::FetchPage(const QString& address) {
    TransferControl control(m_access);
    control.SetProxy(m_proxy);
    control.SetAccessType(m_accessType);
    return control.OpenURL(address);
}

void LoadFormPosition(QWidget& form, const SettingsStore& settings) {
    const std::string section = FromQt(form.objectName());
    const auto pixels = [&](const char* key, const char* fallback) {
        return qRound(ToSingle(settings.GetSetting(section, key, fallback)) / kTwipsPerPixel);
    };
    const int top = pixels("Top", "50");
    const int left = pixels("Left", "50");
    const int height = pixels("Height", "8500");
    const int width = pixels("Width", "10000");
    form.move(left, top);
    form.resize(width, height);
}

void SaveFormPosition(const QWidget& form, SettingsStore& settings) {
    if (form.isMinimized())
        return;
    const std::string section = FromQt(form.objectName());
    const auto save = [&](const char* key, int pixels) {
        settings.SaveSetting(section, key, FromSingle(static_cast<float>(pixels * kTwipsPerPixel)));
    };
    save("Top", form.y());
    save("Left", form.x());
    save("Height", form.height());
    save("Width", form.width());
}

} // namespace tallowmere
