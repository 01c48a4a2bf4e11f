#include <gtest/gtest.h>

#include <random>

#include "integrity/pending_list_index.h"

namespace tv {
namespace {

// The plain search the index stands for: 1-based, 0 when absent.
std::size_t plainSearch(const std::string& list, const std::string& path, char mark) {
    const std::size_t at = list.find("," + path + mark);
    return at == std::string::npos ? 0 : at + 1;
}

TEST(PendingListIndex, FindsTheFirstCommaEntryLikeAPlainSearch) {
    const std::string list = "C:\\S\\A.DLL(3) 1,C:\\S\\B.DLL(3) 2,C:\\S\\A.DLL(4) 3,";
    const PendingListIndex index(list, '(');
    EXPECT_EQ(index.afterComma("C:\\S\\B.DLL"), plainSearch(list, "C:\\S\\B.DLL", '('));
    EXPECT_EQ(index.afterComma("C:\\S\\A.DLL"), 32u);  // the very first entry has no comma before it
    EXPECT_EQ(index.afterComma("C:\\S\\C.DLL"), 0u);
}

// Random lists of short paths made of few letters, commas, blanks and marks,
// so that paths overlap, hold the mark and contain one another.
TEST(PendingListIndex, AgreesWithThePlainSearchOnRandomLists) {
    std::mt19937 random(7);
    const std::string alphabet = "ab,( .\\";
    auto randomPath = [&] {
        std::string path;
        for (int n = 1 + static_cast<int>(random() % 6); n > 0; --n) path += alphabet[random() % alphabet.size()];
        return path;
    };
    for (int round = 0; round < 2000; ++round) {
        const char mark = round % 2 ? '(' : ' ';
        std::string list;
        std::vector<std::string> paths;
        for (int n = static_cast<int>(random() % 8); n > 0; --n) {
            paths.push_back(randomPath());
            list += paths.back() + (mark == '(' ? "(1) X," : " X,");
        }
        const PendingListIndex index(list, mark);
        for (int probe = 0; probe < 10; ++probe) paths.push_back(randomPath());
        for (const auto& path : paths)
            ASSERT_EQ(index.afterComma(path), plainSearch(list, path, mark)) << list << " | " << path;
    }
}

}  // namespace
}  // namespace tv
