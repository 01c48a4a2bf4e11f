// RegClass's own rules over a registry that records every call: the handle it
// holds, and the 16-bit counter of its listings.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "regwatch/reg_class.h"

namespace tv {
namespace {

class CountingRegistry final : public Registry {
public:
    std::size_t valueCount = 0;   // values "v0", "v1"... of every key that opens
    bool opens = true;
    std::vector<std::string> calls;  // "open", "close <handle>", "delete <handle> <name>"

    int otherViewBits() const override { return 0; }
    long openKey(std::uint32_t, const std::string&, RegView, RegAccess, Key& key) override {
        calls.push_back("open");
        key = opens ? ++lastHandle_ : 0;
        return opens ? 0 : 2;
    }
    long enumKey(Key, std::uint32_t index, std::string& buffer) override {
        if (index >= valueCount) return 259;
        buffer.replace(0, 3, "k\0\0", 3);
        return 0;
    }
    long enumValue(Key, std::uint32_t index, RegText& name) override {
        if (index >= valueCount) return 259;  // no more items
        name = RegText("v" + std::to_string(index));
        return 0;
    }
    long queryValue(Key, const RegText&, RegValue&) override { return 2; }
    long deleteValue(Key key, const RegText& name) override {
        calls.push_back("delete " + std::to_string(key) + " " + name.text);
        return 0;
    }
    long closeKey(Key key) override {
        calls.push_back("close " + std::to_string(key));
        return key == 0 ? 6 : 0;
    }

private:
    Key lastHandle_ = 100;
};

TEST(RegClassHandle, TheObjectsEndClosesWhatItHoldsEvenWhenClosedBefore) {
    CountingRegistry registry;
    {
        RegClass reg(registry);
        EXPECT_TRUE(reg.openRegistry(hive::CurrentUser, "A"));
        EXPECT_TRUE(reg.openRegistry(hive::CurrentUser, "B"));  // the first key is closed first
        EXPECT_TRUE(reg.closeRegistry());
        EXPECT_TRUE(reg.getAllValues().empty());
    }
    EXPECT_EQ(registry.calls, (std::vector<std::string>{"open", "close 101", "open", "close 102", "close 102"}));

    registry.calls.clear();
    { RegClass never(registry); }
    EXPECT_EQ(registry.calls, std::vector<std::string>{"close 0"});
}

TEST(RegClassHandle, AFailedOpenLeavesNoHandleToDeleteFrom) {
    CountingRegistry registry;
    RegClass reg(registry);
    ASSERT_TRUE(reg.openRegistry(hive::LocalMachine, "Run"));
    reg.closeRegistry();
    registry.opens = false;
    EXPECT_FALSE(reg.openRegistry(hive::LocalMachine, "Gone"));
    EXPECT_FALSE(reg.deleteKey(RegText("Foo")));
    EXPECT_EQ(registry.calls.back(), "delete 0 Foo");
    EXPECT_FALSE(reg.closeRegistry());  // nothing open: the flag stays as it was
}

TEST(RegClassListing, ASixteenBitCounterEndsListingsAt32767Entries) {
    CountingRegistry registry;
    RegClass reg(registry);
    reg.openRegistry(hive::CurrentUser, "Big");
    registry.valueCount = 32767;
    const auto names = reg.getAllValues();
    ASSERT_EQ(names.size(), 32767u);
    EXPECT_EQ(names.back().text, "v32766");
    EXPECT_EQ(reg.getAllSubDirectories().size(), 32767u);
    registry.valueCount = 32768;  // the next index overflows: everything built is lost
    EXPECT_TRUE(reg.getAllValues().empty());
    EXPECT_TRUE(reg.getAllSubDirectories().empty());
}

}  // namespace
}  // namespace tv
