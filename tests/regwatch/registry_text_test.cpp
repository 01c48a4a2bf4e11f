#include <gtest/gtest.h>

#include "regwatch/registry_text.h"
#include "regwatch/watched_locations.h"

namespace tv {
namespace {

constexpr std::uint32_t kExpandSz = 2;

// A query's buffer: the value's bytes over 256 blanks.
std::string queried(const std::string& bytes) { return bytes + std::string(256 - bytes.size(), ' '); }

// Strings, sizes and the other types are held to their rules by the fuzz
// target; the bytes of a binary value are held here to their digits.
TEST(RegistryValueText, BinaryBytesReadAsUnpaddedHexWithoutTheLastByte) {
    // The "00" format pads only what reads as a number.
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried("\x0A\x10\x99"), 3), "A 10 ");
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried(std::string("\x05\x1F\x00\x09\xFF\xA0\x0F\xEE", 8)), 8),
              "05 1F 00 09 FF A0 F ");
}

TEST(SnapshotLine, StoredTextIsCutAtItsFirstNul) {
    const std::string expand = renderRegistryValue(kExpandSz, queried(std::string("%windir%\\x.exe\0", 15)), 15);
    EXPECT_EQ(cutAtNul(storedTextOf(expand)), " (%windir%\\x.exe");  // the ")" goes with the NULs
    EXPECT_EQ(cutAtNul(storedTextOf("C:\\a=b.exe")), " (C:\\a=b.exe)");
    EXPECT_EQ(cutAtNul(storedTextOf(queried(std::string("\0\0\0\0", 4)))), " (");
}

TEST(SnapshotLine, OnlyTheExactDefaultCommandIsSkipped) {
    EXPECT_TRUE(isDefaultOpenCommand("\"%1\" %*"));
    for (const char* other : {"\"%1\"", "\"%1\" %* ", " \"%1\" %*", "\"%1\"  %*", "\"%1\" %1"})
        EXPECT_FALSE(isDefaultOpenCommand(other)) << other;
    EXPECT_FALSE(isDefaultOpenCommand(std::string("\"%1\" %*\0", 8)));
}

TEST(SnapshotLine, OnlyBlanksAtTheEndsAreForgiven) {
    // The profile call drops the blank in front of "(" and blanks at the end.
    EXPECT_FALSE(storedTextChanged(" (C:\\foo.exe)", "(C:\\foo.exe)"));
    EXPECT_FALSE(storedTextChanged(" (C:\\foo.exe)  ", "(C:\\foo.exe)"));
    EXPECT_TRUE(storedTextChanged(" (C:\\foo.exe )", "(C:\\foo.exe)"));
    EXPECT_TRUE(storedTextChanged(" (C:\\FOO.exe)", "(C:\\foo.exe)"));
    EXPECT_TRUE(storedTextChanged(" (\tC:\\foo.exe)", "(C:\\foo.exe)"));
}

TEST(WarningRows, CarryTheGivenTailWhateverTheirRoot) {
    EXPECT_EQ(warningRow("HKEY_LOCAL_MACHINE", keyTail("Software\\Microsoft\\Windows\\CurrentVersion\\Run"), "Foo",
                         " (C:\\foo.exe)", EntryCheck::New),
              "HKEY_LOCAL_MACHINE|Loaded in Run\\Foo (C:\\foo.exe) New Entry!");
    EXPECT_EQ(warningRow("HKEY_CLASSES_ROOT", "", " (x.exe \"%1\" %*)", " (x.exe \"%1\" %*)", EntryCheck::Modified),
              "HKEY_CLASSES_ROOT|Loaded in \\ (x.exe \"%1\" %*) (x.exe \"%1\" %*) Entry Modified!");
    EXPECT_EQ(keyTail("Software\\CLASSES\\exefile\\shell\\open\\command"), "command");
    EXPECT_EQ(valueNodeKey(1, "", " (C:\\foo.exe)"), "#1 (C:\\foo.exe)");
}

}  // namespace
}  // namespace tv
