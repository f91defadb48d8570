#include "app/forms/HintColor.h"

#include "app/forms/Chip.h"
#include "core/tools/color_values.h"

#include <QPalette>

namespace tallowmere {

namespace {

/// A hint is paler than text is; what is paler than this is not seen.
constexpr double kLeastContrast = 3.0;
constexpr int kHintAlpha = 160; // of 255

QColor Over(const QColor& color, const QColor& ground) {
    const auto mix = [share = color.alphaF()](float one, float other) {
        return one * share + other * (1 - share);
    };
    return QColor::fromRgbF(mix(color.redF(), ground.redF()), mix(color.greenF(), ground.greenF()),
                            mix(color.blueF(), ground.blueF()));
}

} // namespace

std::optional<QColor> LegibleHint(const QPalette& palette) {
    const QColor ground = palette.color(QPalette::Base);
    const QColor hint = Over(palette.color(QPalette::PlaceholderText), ground);
    if (Contrast(StoredColor(hint), StoredColor(ground)) >= kLeastContrast)
        return std::nullopt;
    QColor mended = palette.color(QPalette::Text);
    mended.setAlpha(kHintAlpha);
    return mended;
}

} // namespace tallowmere
