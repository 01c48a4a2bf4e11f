#include "core/settings_store.h"
#include "core/settings_text.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

class SettingsFile : public WinTest {
protected:
    SettingsFile() {
        ctx.appPath = path("");
        ctx.settFile = path("Tarvelon.dat");
    }
    AppContext ctx{set()};
};

TEST_F(SettingsFile, LockedFileKeepsItsContentAndCannotBeRead) {
    writeFile("Tarvelon.dat", "[Tarvelon]\r\nalgo=md5\r\n");
    {
        FileLock lock(ctx.settFile);
        ASSERT_TRUE(lock.held());
        EXPECT_FALSE(checkSettFile(ctx));
        EXPECT_EQ(getSetting(ctx, "ALGO"), std::nullopt);
    }
    EXPECT_EQ(readFile("Tarvelon.dat"), "[Tarvelon]\r\nalgo=md5\r\n");
}

TEST_F(SettingsFile, NewKeyLandsInsideItsSectionAndIsReadBack) {
    checkSettFile(ctx);
    EXPECT_EQ(writeEntry(ctx, ctx.settFile, "settings2", "1,1,1,0,1,1", "Tarvelon"),
              WriteOutcome::WrittenToDisk);
    const std::string text = readFile("Tarvelon.dat");
    EXPECT_LT(text.find("settings2=1,1,1,0,1,1\r\n"), text.find("[1]"));
    EXPECT_EQ(getSetting(ctx, "GETSETT2"), "1,1,1,0,1,1");
    writeEntry(ctx, ctx.settFile, "path", "C:\\Docs\\", "3");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "PATH", 3), "C:\\Docs\\");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "nokey", 3), "");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "path", 21), "");
}

TEST_F(SettingsFile, LongValuesAreCutToTheReadBuffer) {
    writeFile("Tarvelon.dat", "[1]\r\npath=" + std::string(300, 'x') + "\r\n");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "path", 1), std::string(249, 'x'));
}

TEST_F(SettingsFile, WriterChoosesDiskOrMemoryByFileAndRunState) {
    ctx.section.name[0] = "DLL";
    ctx.section.text[0] = BaselineBlock("[DLL]\r\nNULL*E\r\n");
    const std::string snapshot = path("data\\registry.dat");
    files.makeFolder(path("data"));
    EXPECT_EQ(writeEntry(ctx, snapshot, "Run", "x", "HKLM"), WriteOutcome::WrittenToDisk);
    EXPECT_EQ(readIni(ctx, path("DATA\\REGISTRY.DAT"), "run", "hklm"), "x");

    const std::string baseline = path("Integrity.dat");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.DLL", "1*E", "DLL"), WriteOutcome::StoredInMemory);
    EXPECT_FALSE(files.canRead(baseline));
    EXPECT_EQ(ctx.section.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.EXE", "1*E", "EXE"), WriteOutcome::NoSuchSection);

    ctx.primaryScan = true;
    EXPECT_EQ(writeEntry(ctx, baseline, "B.DLL", "2*E", "DLL"), WriteOutcome::WrittenToDisk);
    EXPECT_EQ(readIni(ctx, baseline, "B.DLL", "DLL"), "2*E");
}

}  // namespace
}  // namespace tv::test
