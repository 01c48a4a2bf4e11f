#include <gtest/gtest.h>

#include <random>
#include <string>

#include "hash/crc16.h"
#include "hash/crc32.h"
#include "hash/digests.h"
#include "hash/hash_engine.h"

namespace tv::hash {
namespace {

const std::uint8_t* bytes(const std::string& s) { return reinterpret_cast<const std::uint8_t*>(s.data()); }

std::string hexOf(const std::vector<std::uint8_t>& digest) {
    static constexpr char kHex[] = "0123456789abcdef";
    std::string text;
    for (auto b : digest) text += {kHex[b >> 4], kHex[b & 15]};
    return text;
}

std::string digestHex(DigestKind kind, const std::string& input, BlockFunction blocks = nullptr) {
    Digest d(kind, blocks);
    d.update(bytes(input), input.size());
    return hexOf(d.finish());
}

std::uint32_t crc32Of(const std::string& s) { return ~crc32Update(0xFFFFFFFFu, bytes(s), s.size()); }

TEST(KnownAnswers, Crc) {
    EXPECT_EQ(crc32Of("123456789"), 0xCBF43926u);
    EXPECT_EQ(crc32Of(""), 0u);
    EXPECT_EQ(crc32Of("a"), 0xE8B7BE43u);
    EXPECT_EQ(crc32Of("The quick brown fox jumps over the lazy dog"), 0x414FA339u);
    EXPECT_EQ(crc16Update(0, bytes("123456789"), 9), 0x31C3u);
}

TEST(KnownAnswers, Md4) {
    EXPECT_EQ(digestHex(DigestKind::Md4, ""), "31d6cfe0d16ae931b73c59d7e0c089c0");
    EXPECT_EQ(digestHex(DigestKind::Md4, "abc"), "a448017aaf21d8525fc10ae87aa6729d");
    EXPECT_EQ(digestHex(DigestKind::Md4, "message digest"), "d9130a8164549fe818874806e1c7014b");
    EXPECT_EQ(digestHex(DigestKind::Md4, "12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
              "e33b4ddc9c38f2199c3e7b164fcc0536");
}

TEST(KnownAnswers, Md5) {
    EXPECT_EQ(digestHex(DigestKind::Md5, ""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(digestHex(DigestKind::Md5, "abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(digestHex(DigestKind::Md5, "message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(digestHex(DigestKind::Md5, "12345678901234567890123456789012345678901234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(KnownAnswers, Sha1OnEveryForm) {
    std::vector<BlockFunction> forms{sha1BlocksPortable};
    if (sha1BlocksShaNi()) forms.push_back(sha1BlocksShaNi());
    for (BlockFunction form : forms) {
        EXPECT_EQ(digestHex(DigestKind::Sha1, "abc", form), "a9993e364706816aba3e25717850c26c9cd0d89d");
        EXPECT_EQ(digestHex(DigestKind::Sha1, "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq", form),
                  "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
        EXPECT_EQ(digestHex(DigestKind::Sha1, std::string(1000000, 'a'), form),
                  "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
    }
}

// Every fast form against the plainest one, over lengths around the block and
// folding boundaries, odd alignments, and one input split at random points.
class CrossCheck : public ::testing::Test {
protected:
    CrossCheck() : data(70000) {
        for (auto& b : data) b = static_cast<std::uint8_t>(random());
    }
    std::vector<std::size_t> lengths() {
        std::vector<std::size_t> out{0, 1, 15, 16, 17, 55, 56, 63, 64, 65, 127, 128, 255, 256, 511, 512, 513, 1023, 4096, 65536};
        for (int i = 0; i < 40; ++i) out.push_back(random() % 69000);
        return out;
    }
    std::vector<std::size_t> splits(std::size_t length) {
        std::vector<std::size_t> cuts{0};
        while (cuts.back() < length) cuts.push_back(std::min(length, cuts.back() + 1 + random() % 700));
        return cuts;
    }
    std::mt19937 random{20261122};
    std::vector<std::uint8_t> data;
};

TEST_F(CrossCheck, Crc32Forms) {
    std::vector<std::pair<const char*, Crc32Function>> forms{{"slice-by-16", crc32Slice16}, {"chosen", crc32Update}};
    if (crc32FoldXmm()) forms.emplace_back("xmm", crc32FoldXmm());
    if (crc32FoldYmm()) forms.emplace_back("ymm", crc32FoldYmm());
    for (std::size_t length : lengths())
        for (std::size_t offset : {0, 1, 7, 13}) {
            const std::uint8_t* p = data.data() + offset;
            const std::uint32_t expected = crc32Bytewise(0x12345678u, p, length);
            for (auto [name, form] : forms) {
                ASSERT_EQ(form(0x12345678u, p, length), expected) << name << " length " << length << " offset " << offset;
                const auto cuts = splits(length);
                std::uint32_t state = 0x12345678u;
                for (std::size_t i = 1; i < cuts.size(); ++i) state = form(state, p + cuts[i - 1], cuts[i] - cuts[i - 1]);
                ASSERT_EQ(state, expected) << name << " split, length " << length;
            }
        }
}

TEST_F(CrossCheck, Sha1FormsAndBufferSplits) {
    for (std::size_t length : lengths()) {
        const std::string input(data.begin() + 3, data.begin() + 3 + length);
        const std::string expected = digestHex(DigestKind::Sha1, input, sha1BlocksPortable);
        if (sha1BlocksShaNi()) {
            ASSERT_EQ(digestHex(DigestKind::Sha1, input, sha1BlocksShaNi()), expected) << length;
        }
        for (DigestKind kind : {DigestKind::Md4, DigestKind::Md5, DigestKind::Sha1}) {
            Digest whole(kind), pieces(kind);
            whole.update(bytes(input), input.size());
            const auto cuts = splits(length);
            for (std::size_t i = 1; i < cuts.size(); ++i) pieces.update(bytes(input) + cuts[i - 1], cuts[i] - cuts[i - 1]);
            ASSERT_EQ(whole.finish(), pieces.finish()) << length;
        }
    }
}

TEST(DigestText, ThreeForms) {
    const std::vector<std::uint8_t> d{0x0A, 0xFF, 0x00};
    EXPECT_EQ(digestText(d, 0), "0A\tFF\t00\t");
    EXPECT_EQ(digestText(d, 1), "102550");
    EXPECT_EQ(digestText(d, 2), std::string("\x0a\xff\0", 3));
    EXPECT_EQ(digestText(d, 3), "");
}

}  // namespace
}  // namespace tv::hash
