#include <algorithm>
#include <string>

#include "regwatch/reg_class.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

void deleteTree(HKEY parent, const std::string& subKey) {
    HKEY key = nullptr;
    if (::RegOpenKeyExA(parent, subKey.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
    char child[256];
    while (::RegEnumKeyA(key, 0, child, sizeof child) == ERROR_SUCCESS) deleteTree(key, child);
    ::RegCloseKey(key);
    ::RegDeleteKeyA(parent, subKey.c_str());
}

// A scratch key of this test under HKEY_CURRENT_USER, removed afterwards.
class RegClassTest : public WinTest {
protected:
    RegClassTest() : subKey("Software\\TarvelonTests\\" + std::to_string(::GetCurrentProcessId()) + "-" + name()) {
        ::RegCreateKeyExA(HKEY_CURRENT_USER, subKey.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    }
    ~RegClassTest() override {
        ::RegCloseKey(key);
        deleteTree(HKEY_CURRENT_USER, subKey);
    }
    static std::string name() { return ::testing::UnitTest::GetInstance()->current_test_info()->name(); }
    void put(const std::string& value, DWORD type, const std::string& bytes) {
        ::RegSetValueExA(key, value.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
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
    EXPECT_EQ(reg.getValue("text"), "C:\\Orbexa");
    EXPECT_EQ(reg.getValue("empty"), "");
    EXPECT_EQ(reg.getValue("binary"), "A 10 ");  // the last byte is dropped
    EXPECT_EQ(reg.getValue("five"), "05 1F ");
    EXPECT_EQ(reg.getValue("number"), std::string("\x01\x00\x00\x00", 4) + std::string(252, ' '));
    EXPECT_EQ(reg.getValue("missing"), "");
}

TEST_F(RegClassTest, FixedBuffersDecideWhatIsSeen) {
    put("first", REG_SZ, std::string("short\0", 6));
    put("whole", REG_SZ, std::string(255, 'w') + '\0');  // 256 bytes
    put("long", REG_SZ, std::string(256, 'l') + '\0');   // 257 bytes
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    EXPECT_EQ(reg.getValue("whole"), std::string(255, 'w'));
    EXPECT_EQ(reg.getValue("long"), "");
    // The listing ends at the first value whose data is over 240 bytes.
    EXPECT_EQ(reg.getAllValues(), std::vector<std::string>{"first"});
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
    auto names = reg.getAllValues();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"Other", "Run me"}));
    EXPECT_FALSE(reg.deleteKey("Run me"));  // gone all the same
    EXPECT_EQ(reg.getAllValues(), (std::vector<std::string>{"Other"}));
    EXPECT_TRUE(reg.closeRegistry());
    EXPECT_EQ(reg.getValue("Other"), "");
}

TEST_F(RegClassTest, RootZeroAndMissingKeysAnswerFalse) {
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, subKey));
    EXPECT_FALSE(reg.openRegistry(0, "Software"));
    EXPECT_EQ(reg.registryRootKey(), hive::CurrentUser);
    EXPECT_EQ(reg.subDirectory(), subKey);
    EXPECT_FALSE(reg.openRegistry(hive::CurrentUser, subKey + "\\Nowhere"));
    EXPECT_EQ(reg.subDirectory(), subKey + "\\Nowhere");
    RegClass fresh{registry};
    EXPECT_FALSE(fresh.deleteKey("anything"));
}

}  // namespace
}  // namespace tv::test
