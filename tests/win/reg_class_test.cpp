#include <algorithm>
#include <set>
#include <string>

#include "regwatch/reg_class.h"
#include "tests/win/regwatch_fixture.h"

namespace tv::test {
namespace {

// A scratch key of this test under HKEY_CURRENT_USER, removed afterwards.
class RegClassTest : public WinTest {
protected:
    RegClassTest() : subKey("Software\\TarvelonTests\\" + std::to_string(::GetCurrentProcessId()) + "-" + name()) {
        ::RegCreateKeyExA(HKEY_CURRENT_USER, subKey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    }
    ~RegClassTest() override {
        ::RegCloseKey(key);
        deleteKeyTree(HKEY_CURRENT_USER, subKey);
    }
    static std::string name() { return ::testing::UnitTest::GetInstance()->current_test_info()->name(); }
    void put(const std::string& value, DWORD type, const std::string& bytes) {
        ::RegSetValueExA(key, value.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
    }

    std::string value(const char* name) { return reg.getValue(RegText(name)).text; }
    std::vector<std::string> names() {
        std::vector<std::string> texts;
        for (const RegText& name : reg.getAllValues()) texts.push_back(name.text);
        return texts;
    }

    std::string subKey;
    HKEY key = nullptr;
    RegClass reg{registry};
};

TEST_F(RegClassTest, ValuesFoldIntoTextByTheirType) {
    put("text", REG_SZ, std::string("C:\\Orbexa\0", 10));
    put("empty", REG_SZ, std::string(1, '\0'));
    put("binary", REG_BINARY, "\x0A\x10\x99");
    put("five", REG_BINARY, std::string("\x05\x1F\x00", 3));
    put("number", REG_DWORD, std::string("\x01\x00\x00\x00", 4));
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    EXPECT_EQ(value("text"), "C:\\Orbexa");
    EXPECT_EQ(value("empty"), "");
    EXPECT_EQ(value("binary"), "A 10 ");  // the last byte is dropped
    EXPECT_EQ(value("five"), "05 1F ");
    EXPECT_EQ(value("number"), std::string("\x01\x00\x00\x00", 4) + std::string(252, ' '));
    EXPECT_EQ(value("missing"), "");
}

TEST_F(RegClassTest, EverySizeOfEveryTypeReadsWhole) {
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    for (const DWORD type : {REG_SZ, REG_EXPAND_SZ, REG_MULTI_SZ, REG_BINARY, REG_DWORD, REG_NONE}) {
        for (const std::size_t size : {0u, 1u, 255u, 256u, 257u, 65536u}) {
            std::string bytes(size, '7');
            if (size > 0 && type != REG_BINARY && type != REG_DWORD && type != REG_NONE) bytes.back() = '\0';
            put("value", type, bytes);
            const std::string text = value("value");
            const std::string what = std::to_string(type) + "/" + std::to_string(size);
            if (type == REG_SZ) {
                EXPECT_EQ(text, std::string(size > 0 ? size - 1 : 0, '7')) << what;
            } else if (type == REG_BINARY) {
                EXPECT_EQ(text.size(), (size > 0 ? size - 1 : 0) * 3) << what;
            } else {
                EXPECT_EQ(text.size(), std::max<std::size_t>(size, 256)) << what;
                EXPECT_EQ(text.substr(0, size > 0 ? size - 1 : 0), std::string(size > 0 ? size - 1 : 0, '7')) << what;
            }
        }
    }
}

TEST_F(RegClassTest, ThousandsOfValuesAreListedInOneGo) {
    for (int i = 0; i < 3000; ++i) put("n" + std::to_string(10000 + i), REG_SZ, std::string("v\0", 2));
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    const auto listed = names();
    ASSERT_EQ(listed.size(), 3000u);
    EXPECT_EQ(std::set<std::string>(listed.begin(), listed.end()).size(), 3000u);
}

TEST_F(RegClassTest, SubKeysAndValueNamesAreListed) {
    HKEY child = nullptr;
    for (const char* name : {"Alpha", "Beta"}) {
        ::RegCreateKeyExA(key, name, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &child, nullptr);
        ::RegCloseKey(child);
    }
    put("Run me", REG_SZ, std::string("x\0", 2));
    put("Other", REG_SZ, std::string("y\0", 2));
    RegClass closed{registry};
    EXPECT_TRUE(closed.getAllValues().empty());
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    EXPECT_EQ(reg.getAllSubDirectories(), (std::vector<std::string>{"Alpha", "Beta"}));
    auto listed = names();
    std::sort(listed.begin(), listed.end());
    EXPECT_EQ(listed, (std::vector<std::string>{"Other", "Run me"}));
    EXPECT_FALSE(reg.deleteKey(RegText("Run me")));  // gone all the same
    EXPECT_EQ(names(), (std::vector<std::string>{"Other"}));
    EXPECT_TRUE(reg.closeRegistry());
    EXPECT_EQ(value("Other"), "");
}

TEST_F(RegClassTest, RootZeroAndMissingKeysAnswerFalse) {
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    EXPECT_FALSE(reg.openRegistry(0, "Software"));
    EXPECT_EQ(reg.registryRootKey(), hive::CurrentUser);
    EXPECT_EQ(reg.subDirectory(), subKey);
    EXPECT_FALSE(reg.openRegistry(hive::CurrentUser, subKey + "\\Nowhere"));
    EXPECT_EQ(reg.subDirectory(), subKey + "\\Nowhere");
    RegClass fresh{registry};
    EXPECT_FALSE(fresh.deleteKey(RegText("anything")));
}

}  // namespace
}  // namespace tv::test
