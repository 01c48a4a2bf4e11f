#include <gtest/gtest.h>

#include "hash/checksum.h"
#include "hash/crc_engine.h"
#include "hash/file_checksum.h"
#include "hash/hash_engine.h"
#include "tests/core/fakes.h"

namespace tv::hash {
namespace {

const std::uint8_t* bytes(const std::string& s) { return reinterpret_cast<const std::uint8_t*>(s.data()); }

TEST(CrcEngine, NewEngineIsClearedCrc32AndCarriesOver) {
    CrcEngine crc;
    EXPECT_EQ(crc.algorithm(), -1);
    EXPECT_EQ(crc.value(), 0);
    crc.calculateString("12345");
    EXPECT_EQ(crc.calculateString("6789"), static_cast<std::int32_t>(0xCBF43926u));  // negative
    EXPECT_EQ(crc.addBytes(nullptr, 0), std::nullopt);
    EXPECT_EQ(crc.value(), static_cast<std::int32_t>(0xCBF43926u));
    crc.setValue(0x12345678);  // stored as it is, read complemented
    EXPECT_EQ(crc.value(), static_cast<std::int32_t>(~0x12345678u));
}

TEST(CrcEngine, Crc16IsSelectedByZeroOnly) {
    CrcEngine crc;
    crc.setAlgorithm(0);
    EXPECT_EQ(crc.algorithm(), 0);
    EXPECT_EQ(crc.value(), 0);
    EXPECT_EQ(crc.addString("123456789"), 0x31C3);
    crc.setAlgorithm(5);
    EXPECT_EQ(crc.algorithm(), -1);
    EXPECT_EQ(crc.value(), 0);
}

TEST(HashEngine, IndexOutOfRangeIsIgnoredAndThreeLeavesTheAlgorithm) {
    HashEngine none;
    none.setHashAlgorithm(3);
    none.createHash();
    EXPECT_FALSE(none.hashData(bytes("abc"), 3));
    none.readDigest();
    EXPECT_EQ(none.getDigestedData(1), "");

    HashEngine md5;
    md5.setHashAlgorithm(1);
    md5.setHashAlgorithm(7);
    md5.setHashAlgorithm(3);
    EXPECT_EQ(md5.hashAlgorithm(), 3);
    md5.createHash();
    ASSERT_TRUE(md5.hashData(bytes("abc"), 3));
    md5.readDigest();
    EXPECT_EQ(md5.getDigestedData(0), "90\t01\t50\t98\t3C\tD2\t4F\tB0\tD6\t96\t3F\t7D\t28\tE1\t7F\t72\t");
    md5.destroyHash();
    EXPECT_EQ(md5.getDigestedData(1), "");
}

class FileChecksum : public ::testing::Test {
protected:
    FileChecksum() {
        ctx.appPath = "C:\\T\\";
        ctx.readBuffer = 4;
    }
    std::string file(std::string content) {
        os.files.put("C:\\f.bin", std::move(content));
        return "C:\\f.bin";
    }
    test::FakePlatform os;
    AppContext ctx{os.set()};
};

TEST(Crc32Text, HasNoLeadingZeros) {
    EXPECT_EQ(hexText(0x00ABCDEF), "ABCDEF");
    EXPECT_EQ(hexText(0), "0");
}

TEST_F(FileChecksum, DigestsAreDecimalBytes) {
    const std::string path = file("abc");
    ctx.algoName = "md5";
    EXPECT_EQ(getChecksum(ctx, path), "14418015260210791762141506312540225127114");
    ctx.algoName = "SHA1";
    EXPECT_EQ(getChecksum(ctx, path), "1691536254716129106186623711312080194108156208216157");
    ctx.algoName = "Md4";
    EXPECT_EQ(getChecksum(ctx, path), "16472112217533216829519310232122166114157");
}

TEST_F(FileChecksum, NamesOutsideTheFourGiveNothingButStillNameAFile) {
    const std::string path = file("abc");
    for (const char* name : {" crc32 ", "sha-1", "x"}) {
        ctx.algoName = name;
        EXPECT_EQ(getChecksum(ctx, path), "") << name;
    }
    ctx.algoName = " crc32 ";
    setDatName(ctx);
    EXPECT_EQ(ctx.intFile, "C:\\T\\Data\\Integrity.dat");
    ctx.algoName = "sha-1";
    setDatName(ctx);
    EXPECT_EQ(ctx.intFile, "C:\\T\\Data\\Integrity-sha-1.dat");
    ctx.algoName = " MD5";
    setDatName(ctx);
    EXPECT_EQ(ctx.intFile, "C:\\T\\Data\\Integrity-md5.dat");
    EXPECT_EQ(getCustomDat(ctx, 7), "C:\\T\\Data\\7-md5.dat");
    ctx.algoName = "";
    EXPECT_EQ(getCustomDat(ctx, 20), "C:\\T\\Data\\20.dat");
}

TEST_F(FileChecksum, OnePumpTestPerFullBufferAndNoneForTheTail) {
    os.loop.queueAnswer = 0x00040004;  // a mouse button is waiting
    CrcEngine crc;
    EXPECT_EQ(calculateFile2(ctx, crc, file("123456789")), static_cast<std::int32_t>(0xCBF43926u));
    EXPECT_EQ(os.loop.statusQueries, 2);  // 4 + 4, then a tail of 1
    EXPECT_EQ(os.loop.pumps, 2);
    os.loop.statusQueries = 0;
    calculateFile2(ctx, crc, file("12345678"));  // an exact multiple: the last full buffer is the tail
    EXPECT_EQ(os.loop.statusQueries, 1);
    os.loop.queueAnswer = 0;  // only timers: no pump
    calculateFile2(ctx, crc, file("123456789"));
    EXPECT_EQ(os.loop.pumps, 3);
}

TEST_F(FileChecksum, ZeroReadBufferBecomesTheDefaultForGood) {
    ctx.readBuffer = 0;
    ctx.algoName = "crc32";
    EXPECT_EQ(getChecksum(ctx, file("123456789")), "CBF43926");
    EXPECT_EQ(ctx.readBuffer, 65536);
    ctx.readBuffer = -1;
    EXPECT_EQ(getChecksum(ctx, file("123456789")), "0");
}

}  // namespace
}  // namespace tv::hash
