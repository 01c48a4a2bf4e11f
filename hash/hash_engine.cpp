#include "hash/hash_engine.h"

namespace tv::hash {

std::string digestText(const std::vector<std::uint8_t>& digest, int format) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : digest) {
        switch (format) {
        case 0:
            text += kHex[byte >> 4];
            text += kHex[byte & 15];
            text += '\t';
            break;
        case 1: text += std::to_string(byte); break;
        case 2: text += static_cast<char>(byte); break;
        default: return {};
        }
    }
    return text;
}

void HashEngine::setHashAlgorithm(int index) {
    if (index < 0 || index > 3) return;
    index_ = index;
    if (index < 3) algorithmId_ = kMd4 + index;
}

void HashEngine::createHash() {
    if (created_) destroyHash();
    switch (algorithmId_) {
    case kMd4: hash_.emplace(DigestKind::Md4); break;
    case kMd5: hash_.emplace(DigestKind::Md5); break;
    case kSha1: hash_.emplace(DigestKind::Sha1); break;
    default: hash_.reset(); break;
    }
    created_ = true;
}

bool HashEngine::hashData(const std::uint8_t* data, std::size_t length) {
    if (!hash_) return false;
    hash_->update(data, length);
    return true;
}

void HashEngine::readDigest() {
    digest_ = hash_ ? hash_->finish() : std::vector<std::uint8_t>{};
    hash_.reset();  // a finished hash takes no more data
}

void HashEngine::destroyHash() {
    hash_.reset();
    digest_.clear();
    created_ = false;
}

}  // namespace tv::hash
