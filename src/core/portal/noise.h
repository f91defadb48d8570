#pragma once

#include <cstdint>
#include <string_view>

namespace tallowmere {

/// Numbers that look random and follow from a seed, the same with every standard library.
class Noise {
public:
    explicit Noise(std::string_view seed) {
        for (const char c : seed)
            m_state = (m_state ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }

    /// A number from -1 up to 1.
    double Next() {
        m_state = m_state * 6364136223846793005 + 1442695040888963407;
        return static_cast<double>(m_state >> 33) / static_cast<double>(1U << 30) - 1;
    }

private:
    std::uint64_t m_state = 0xCBF29CE484222325;
};

} // namespace tallowmere
