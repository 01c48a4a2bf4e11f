#include <gtest/gtest.h>

#include "regwatch/registry_text.h"
#include "regwatch/watched_locations.h"

namespace tv {
namespace {

constexpr std::uint32_t kExpandSz = 2, kDword = 4, kMultiSz = 7;

// A query's buffer: the value's bytes over 256 blanks.
std::string queried(const std::string& bytes) { return bytes + std::string(256 - bytes.size(), ' '); }

TEST(RegistryValueText, StringsLoseTheirEndAndBinaryBytesReadAsUnpaddedHex) {
    EXPECT_EQ(renderRegistryValue(regtype::Sz, queried(std::string("C:\\x.exe\0", 9)), 9), "C:\\x.exe");
    EXPECT_EQ(renderRegistryValue(regtype::Sz, queried(std::string(1, '\0')), 1), "");
    EXPECT_EQ(renderRegistryValue(regtype::Sz, queried(""), 0), "");
    EXPECT_EQ(renderRegistryValue(regtype::Sz, queried(std::string(255, 'w') + '\0'), 256), std::string(255, 'w'));
    // The "00" format pads only what reads as a number; the last byte is dropped.
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried("\x0A\x10\x99"), 3), "A 10 ");
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried(std::string("\x05\x1F\x00\x09\xFF\xA0\x0F\xEE", 8)), 8),
              "05 1F 00 09 FF A0 F ");
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried("\x01"), 1), "");
    EXPECT_EQ(renderRegistryValue(regtype::Binary, queried(""), 0), "");
}

TEST(RegistryValueText, OtherTypesKeepTheWholeBufferWithNulsAndBlanks) {
    const std::string dword = queried(std::string("\x01\x00\x00\x00", 4));
    EXPECT_EQ(renderRegistryValue(kDword, dword, 4), dword);
    const std::string multi = queried(std::string("a\0b\0\0", 5));
    EXPECT_EQ(renderRegistryValue(kMultiSz, multi, 5), multi);
    EXPECT_EQ(renderRegistryValue(kExpandSz, queried(""), 0).size(), 256u);
}

TEST(SnapshotLine, StoredTextIsCutAtItsFirstNulAndNamesLoseTheirEquals) {
    const std::string expand = renderRegistryValue(kExpandSz, queried(std::string("%windir%\\x.exe\0", 15)), 15);
    EXPECT_EQ(cutAtNul(storedTextOf(expand)), " (%windir%\\x.exe");  // the ")" goes with the NULs
    EXPECT_EQ(cutAtNul(storedTextOf("C:\\a=b.exe")), " (C:\\a=b.exe)");
    EXPECT_EQ(cutAtNul(storedTextOf(queried(std::string("\0\0\0\0", 4)))), " (");
    EXPECT_EQ(snapshotKey("A=B", " (x)"), "A-B");
    EXPECT_EQ(snapshotKey("==", " (x)"), "--");
    // The default value is named by its stored text, blank and all.
    EXPECT_EQ(snapshotKey("", " (launcher.exe \"%1\" %*)"), " (launcher.exe \"%1\" %*)");
    EXPECT_EQ(snapshotKey("", " (a=b)"), " (a-b)");
    EXPECT_EQ(snapshotKey(" [x];y ", " (z)"), " [x];y ");
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
    EXPECT_EQ(warningRow("HKEY_CURRENT_USER", "", "Foo", " (C:\\foo.exe)", EntryCheck::New),
              "HKEY_CURRENT_USER|Loaded in \\Foo (C:\\foo.exe) New Entry!");
    EXPECT_EQ(warningRow("HKEY_CLASSES_ROOT", "", " (x.exe \"%1\" %*)", " (x.exe \"%1\" %*)", EntryCheck::Modified),
              "HKEY_CLASSES_ROOT|Loaded in \\ (x.exe \"%1\" %*) (x.exe \"%1\" %*) Entry Modified!");
    EXPECT_EQ(keyTail("Software\\CLASSES\\exefile\\shell\\open\\command"), "command");
    EXPECT_EQ(valueNodeKey(1, " (C:\\foo.exe)"), "#1 (C:\\foo.exe)");
}

TEST(SnapshotFile, NewFileHasTheSeventeenSectionsInTheirOrder) {
    EXPECT_EQ(newSnapshotText(),
              "[LM/R]\r\n\r\n[LM/RO]\r\n\r\n[LM/ROX]\r\n\r\n[LM/RS]\r\n\r\n[LM/RSO]\r\n\r\n[LM/SE]\r\n\r\n"
              "[LM/SC]\r\n\r\n[LM/SB]\r\n\r\n[LM/SH]\r\n\r\n[LM/SP]\r\n\r\n[CU/R]\r\n\r\n[CU/RO]\r\n\r\n"
              "[CR/SE]\r\n\r\n[CR/SC]\r\n\r\n[CR/SB]\r\n\r\n[CR/SH]\r\n\r\n[CR/SP]\r\n\r\n");
}

}  // namespace
}  // namespace tv
