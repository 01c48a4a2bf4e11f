#include "hash/checksum.h"

#include "core/text.h"
#include "hash/file_checksum.h"

namespace tv::hash {
namespace {

// The name test of the data files: trimmed before both comparisons.
bool namesCrc32File(const std::string& algoName) {
    const std::string trimmed = trimBlanks(algoName);
    return trimmed.empty() || upperCase(trimmed) == "CRC32";
}

std::string datSuffix(const AppContext& ctx) {
    return namesCrc32File(ctx.algoName) ? ".dat" : "-" + lowerCase(trimBlanks(ctx.algoName)) + ".dat";
}

}  // namespace

std::string hexText(std::uint32_t value) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string text;
    do {
        text.insert(text.begin(), kHex[value & 15]);
        value >>= 4;
    } while (value != 0);
    return text;
}

std::string checksumText(const std::string& algoName, const FileFeed& how, const std::string& path) {
    const std::string upper = upperCase(algoName);  // untrimmed, unlike the file name test
    if (upper == "CRC32" || trimBlanks(algoName).empty()) {
        CrcEngine crc;
        const auto value = crcOfFile(how, crc, path);
        return hexText(static_cast<std::uint32_t>(value.value_or(0)));
    }
    HashEngine digest;
    if (upper == "MD4") digest.setHashAlgorithm(0);
    if (upper == "MD5") digest.setHashAlgorithm(1);
    if (upper == "SHA1") digest.setHashAlgorithm(2);
    digest.createHash();
    hashFile(how, digest, path);
    std::string text = digest.getDigestedData(1);
    digest.destroyHash();
    return text;
}

std::string getChecksum(AppContext& ctx, const std::string& path) {
    return checksumText(ctx.algoName, WindowFeed(ctx).how(), path);
}

void setDatName(AppContext& ctx) {
    ctx.intFile = ctx.appPath + "Data\\Integrity" + datSuffix(ctx);
}

std::string getCustomDat(const AppContext& ctx, int number) {
    return ctx.appPath + "Data\\" + std::to_string(number) + datSuffix(ctx);
}

}  // namespace tv::hash
