#include "hash/crc_engine.h"

#include "hash/crc16.h"
#include "hash/crc32.h"

namespace tv::hash {

void CrcEngine::setAlgorithm(int value) {
    algorithm_ = value == 0 ? kCrc16 : kCrc32;
    clear();
}

void CrcEngine::clear() {
    crc16_ = 0;
    crc32_ = 0xFFFFFFFFu;
}

std::int32_t CrcEngine::value() const {
    return static_cast<std::int32_t>(algorithm_ == kCrc16 ? crc16_ & 0xFFFFu : ~crc32_);
}

void CrcEngine::setValue(std::int32_t value) {
    (algorithm_ == kCrc16 ? crc16_ : crc32_) = static_cast<std::uint32_t>(value);
}

std::optional<std::int32_t> CrcEngine::addBytes(const std::uint8_t* data, std::size_t length) {
    if (length == 0) return std::nullopt;
    if (algorithm_ == kCrc16)
        crc16_ = crc16Update(crc16_, data, length);
    else
        crc32_ = crc32Update(crc32_, data, length);
    return value();
}

std::optional<std::int32_t> CrcEngine::addString(std::string_view text) {
    return addBytes(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

}  // namespace tv::hash
