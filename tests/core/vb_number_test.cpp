#include <gtest/gtest.h>

#include "core/vb_number.h"

namespace tv {
namespace {

TEST(SettingNumbers, AcceptBlanksSignsAndRoundHalfToEven) {
    EXPECT_EQ(toInt32(" 65536 "), 65536);
    EXPECT_EQ(toInt32("-5"), -5);
    EXPECT_EQ(toInt32("2.5"), 2);
    EXPECT_EQ(toInt32("3.5"), 4);
    EXPECT_EQ(toInt16("1"), 1);
}

TEST(SettingNumbers, RefuseTextAndOutOfRange) {
    EXPECT_EQ(toInt32(""), std::nullopt);
    EXPECT_EQ(toInt32("abc"), std::nullopt);
    EXPECT_EQ(toInt32("12kb"), std::nullopt);
    EXPECT_EQ(toInt32("."), std::nullopt);
    EXPECT_EQ(toInt32("2147483648"), std::nullopt);
    EXPECT_EQ(toInt32("2147483647"), 2147483647);
    EXPECT_EQ(toInt16("32768"), std::nullopt);
}

}  // namespace
}  // namespace tv
