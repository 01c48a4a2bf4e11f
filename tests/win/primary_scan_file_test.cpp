// The primary full scan's entries against the system's profile writer: after
// the scan's end, and after a scan cut off at any entry (the process gone) and
// checked at the next start, the data file holds byte for byte what one system
// write per entry leaves, and the journal beside it is gone.
#include <span>

#include "core/primary_scan_file.h"
#include "core/settings_store.h"
#include "integrity/baseline_build.h"
#include "integrity/check_int_file.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

struct Entry {
    const char *section, *key, *value;
};

// In the order a scan writes them, with the shapes that leave the usual way.
constexpr Entry kEntries[] = {
    {"DLL", "a.dll", "1A2B*E"},
    {"DLL", "B.dll", "0*E"},     // the comma below made a second line that the system finds as well
    {"DLL", "a,b.dll", "77*E"},  // the build split its name at the comma: a line of its own, at the end
    {"DRV", "x.drv", "FFFFFFFF*E"}, {"SYS", "y.sys", "12*E"}, {"386", "z.386", "34*E"},
    {"SYS", "Y.SYS", "99*E"},  // another letter case finds y.sys's line
    {"EXE", "Two Words.EXE", "1011121314*E"},
    {"EXE", "late.exe", "5*E"},  // came after the build
    {"COM", "c.com", "AB*E"}, {"SCR", "s.scr", "C*E"}, {"PIF", "p.pif", "D*E"},
};
constexpr std::size_t kCount = std::size(kEntries);

// The build's file for the names the listing gave, section by section.
std::string blank() {
    return blankDataFileText({"a.dll,B.dll,a,b.dll,", "x.drv,", "z.386,", "y.sys,", "", "Two Words.EXE,", "c.com,",
                              "p.pif,", "s.scr,"});
}

class PrimaryScanFile : public WinTest {
protected:
    PrimaryScanFile() {
        files.makeFolder(path("Data"));
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.algoName = "crc32";
        checkSettFile(ctx);
    }
    AppContext ctx{set()};
    RecordingHost host;
};

TEST_F(PrimaryScanFile, EntriesAreWhatTheSystemWritesAfterAnyEntryAndAfterTheEnd) {
    for (std::size_t cut = 0; cut <= kCount; ++cut) {
        const std::string reference = "ref" + std::to_string(cut) + ".dat", scan = "scan" + std::to_string(cut) + ".dat";
        writeFile(reference, blank());
        writeFile(scan, blank());
        ctx.intFile = path(scan);
        ctx.primaryScan = true;
        for (const auto& [section, key, value] : std::span(kEntries, cut)) {
            profiles.put(section, key, value, path(reference));
            EXPECT_EQ(writeEntry(ctx, ctx.intFile, key, value, section), WriteOutcome::WrittenToDisk);
        }
        if (cut == kCount) finishPrimaryScanWrites(ctx);
        ctx.primaryScanFile.reset();  // the process ends here, however it ends
        ctx.primaryScan = false;
        checkIntFile(ctx, host);  // the next start's check

        EXPECT_EQ(readFile(scan), readFile(reference)) << "after " << cut;
        EXPECT_FALSE(files.canRead(journalName(ctx.intFile))) << "after " << cut;
    }
}

}  // namespace
}  // namespace tv::test
