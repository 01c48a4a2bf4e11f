// CRC-16 in its non-reflected CCITT form (polynomial 0x1021, start 0, no final
// complement), on the raw register.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tv::hash {

std::uint32_t crc16Update(std::uint32_t state, const std::uint8_t* data, std::size_t length);

}  // namespace tv::hash
