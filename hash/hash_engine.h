// clsHash: an MD4, MD5 or SHA-1 digest of one file, used in the order
// setHashAlgorithm, createHash, feed, readDigest, getDigestedData, destroyHash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "hash/digests.h"

namespace tv::hash {

// The digest as text: format 0 two upper-case hexadecimal digits and a tab per
// byte, 1 each byte's decimal value with no separator (the form the data files
// hold), 2 the character of each byte; any other format gives empty text.
std::string digestText(const std::vector<std::uint8_t>& digest, int format);

class HashEngine {
public:
    static constexpr std::int32_t kMd4 = 32770, kMd5 = 32771, kSha1 = 32772;

    // 0 MD4, 1 MD5, 2 SHA-1, 3 accepted with the algorithm left as it was;
    // anything else is ignored.
    void setHashAlgorithm(int index);
    int hashAlgorithm() const { return index_; }

    // Starts a new hash (ending one in progress). Without a valid algorithm the
    // hash cannot take data.
    void createHash();

    // Feeds bytes; false when there is no hash that can take them.
    bool hashData(const std::uint8_t* data, std::size_t length);

    // Reads the digest of what was fed; without a hash the digest stays empty.
    void readDigest();

    std::string getDigestedData(int format) const { return digestText(digest_, format); }

    void destroyHash();

private:
    int index_ = 0;
    std::int32_t algorithmId_ = 0;
    std::optional<Digest> hash_;
    bool created_ = false;
    std::vector<std::uint8_t> digest_;
};

}  // namespace tv::hash
