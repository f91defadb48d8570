#include "app/engine/Graphics.h"

#include <QByteArray>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

bool AskDriver() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface))
        return false;
    const auto* text = context.functions()->glGetString(GL_RENDERER);
    const QByteArray renderer = QByteArray(reinterpret_cast<const char*>(text)).toLower();
    context.doneCurrent();
    // What the renderers of Mesa, of Chromium and of Windows call themselves that have no card.
    constexpr std::array kWithout{"llvmpipe",    "softpipe", "swrast",
                                  "swiftshader", "software", "gdi generic"};
    return !renderer.isEmpty() &&
           std::ranges::none_of(kWithout, [&](auto name) { return renderer.contains(name); });
}

} // namespace

bool HasGraphicsCard() {
    static const bool has = AskDriver();
    return has;
}

} // namespace tallowmere
