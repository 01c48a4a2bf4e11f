// clsCRC: CRC-32 or CRC-16 over bytes fed in pieces. A new engine is a cleared
// CRC-32. Adding bytes never clears: the register carries over from one piece to
// the next, which is how a file is checksummed buffer by buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tv::hash {

class CrcEngine {
public:
    static constexpr std::int16_t kCrc32 = -1;
    static constexpr std::int16_t kCrc16 = 0;

    CrcEngine() { setAlgorithm(1); }

    // 0 selects CRC-16, anything else CRC-32 (stored as -1); then clears.
    void setAlgorithm(int value);
    std::int16_t algorithm() const { return algorithm_; }

    // Both registers to their start values, whichever kind is selected.
    void clear();

    // CRC-32: the complement of the register; CRC-16: its low 16 bits. Signed,
    // so a CRC-32 with its top bit set is negative.
    std::int32_t value() const;
    // Stores the number in the selected register as it is, without complement.
    void setValue(std::int32_t value);

    // Runs the selected CRC over the bytes and gives value(); no bytes at all
    // leave the register alone and give nothing.
    std::optional<std::int32_t> addBytes(const std::uint8_t* data, std::size_t length);
    std::optional<std::int32_t> calculateBytes(const std::uint8_t* data, std::size_t length) {
        return addBytes(data, length);
    }
    std::optional<std::int32_t> addString(std::string_view text);
    std::optional<std::int32_t> calculateString(std::string_view text) { return addString(text); }

private:
    std::int16_t algorithm_ = kCrc32;
    std::uint32_t crc16_ = 0;
    std::uint32_t crc32_ = 0xFFFFFFFFu;
};

}  // namespace tv::hash
