#include "core/tools/text_size.h"

#include <algorithm>

namespace tallowmere {

std::size_t TextSizeIndex(std::string_view stored) {
    constexpr std::size_t kNormal = 1;
    const auto* at = std::ranges::find(kTextSizes, stored, &TextSize::name);
    return at == kTextSizes.end() ? kNormal : static_cast<std::size_t>(at - kTextSizes.begin());
}

} // namespace tallowmere
