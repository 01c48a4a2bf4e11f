#include "hash/digests.h"

namespace tv::hash {
namespace {

BlockFunction defaultBlocks(DigestKind kind) {
    switch (kind) {
    case DigestKind::Md4: return md4Blocks;
    case DigestKind::Md5: return md5Blocks;
    case DigestKind::Sha1: return sha1Blocks();
    }
    return md5Blocks;
}

}  // namespace

Digest::Digest(DigestKind kind, BlockFunction blocks)
    : kind_(kind), blocks_(blocks ? blocks : defaultBlocks(kind)),
      state_{0x67452301u, 0xEFCDAB89u, 0x98BADCFEu, 0x10325476u, 0xC3D2E1F0u} {}

void Digest::update(const std::uint8_t* data, std::size_t length) {
    buffer_.update(data, length, [this](const std::uint8_t* p, std::size_t n) { blocks_(state_.data(), p, n); });
}

std::vector<std::uint8_t> Digest::finish() {
    const bool sha1 = kind_ == DigestKind::Sha1;
    buffer_.finish(sha1, [this](const std::uint8_t* p, std::size_t n) { blocks_(state_.data(), p, n); });
    std::vector<std::uint8_t> out;
    const int words = sha1 ? 5 : 4;
    for (int w = 0; w < words; ++w)
        for (int i = 0; i < 4; ++i) {
            const int shift = sha1 ? 24 - 8 * i : 8 * i;
            out.push_back(static_cast<std::uint8_t>(state_[w] >> shift));
        }
    return out;
}

}  // namespace tv::hash
