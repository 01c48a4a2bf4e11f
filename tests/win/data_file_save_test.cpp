// A crash or a power loss in the middle of saving a baseline, at each of the
// save's steps in turn: a Files over the real disk stops for good at its n-th
// change and leaves that change half done. Every start afterwards loads a
// whole baseline, the former or the new one, and asks nothing: neither to
// restore the backup nor to scan the system anew.
#include <functional>

#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "integrity/data_file_text.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

class CrashingFiles final : public Files {
public:
    CrashingFiles(Files& disk, int crashAt) : disk_(disk), crashAt_(crashAt) {}
    bool crashed() const { return crashed_; }

    bool canRead(const std::string& path) const override { return disk_.canRead(path); }
    bool isFolder(const std::string& path) const override { return disk_.isFolder(path); }
    std::optional<std::string> readAll(const std::string& path) const override { return disk_.readAll(path); }
    std::unique_ptr<FileReader> openReader(const std::string& path) const override { return disk_.openReader(path); }
    std::optional<std::uint64_t> length(const std::string& path) const override { return disk_.length(path); }
    std::string firstName(const std::string& folder) override { return disk_.firstName(folder); }
    std::string nextName() override { return disk_.nextName(); }

    bool writeAll(const std::string& path, std::string_view bytes) override {
        return change([&] { return disk_.writeAll(path, bytes); }, [&] { disk_.writeAll(path, half(bytes)); });
    }
    bool writeThrough(const std::string& path, std::string_view bytes) override {
        return change([&] { return disk_.writeThrough(path, bytes); }, [&] { disk_.writeAll(path, half(bytes)); });
    }
    bool append(const std::string& path, std::string_view bytes) override {
        return change([&] { return disk_.append(path, bytes); }, [&] { disk_.append(path, half(bytes)); });
    }
    bool createNew(const std::string& path, std::string_view bytes) override {
        return change([&] { return disk_.createNew(path, bytes); }, [&] { disk_.createNew(path, half(bytes)); });
    }
    bool copy(const std::string& from, const std::string& to) override {
        return change([&] { return disk_.copy(from, to); }, [&] {
            if (const auto text = disk_.readAll(from)) disk_.writeAll(to, half(*text));
        });
    }
    // One step each: done, or not done at all.
    bool makeFolder(const std::string& path) override {
        return change([&] { return disk_.makeFolder(path); }, [] {});
    }
    bool remove(const std::string& path) override {
        return change([&] { return disk_.remove(path); }, [] {});
    }
    bool moveOver(const std::string& from, const std::string& to) override {
        return change([&] { return disk_.moveOver(from, to); }, [] {});
    }

private:
    static std::string_view half(std::string_view bytes) { return bytes.substr(0, bytes.size() / 2); }
    bool change(const std::function<bool()>& whole, const std::function<void()>& halfDone) {
        if (crashed_) return false;
        if (++changes_ < crashAt_) return whole();
        halfDone();
        crashed_ = true;
        return false;
    }

    Files& disk_;
    int crashAt_;
    int changes_ = 0;
    bool crashed_ = false;
};

constexpr const char* kOlder = "[DLL]\r\nA.DLL=0*E\r\nNULL*E\r\n[EXE]\r\nNULL*E\r\n";
constexpr const char* kBefore = "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n[EXE]\r\nNULL*E\r\n";

class CrashDuringSave : public WinTest {
protected:
    // Saves `kBefore` with one entry more through files that crash at each
    // change in turn, then loads as a start would; returns the number of
    // changes the save makes.
    int crashAtEveryStep(const std::string& dataFile, const std::function<bool(AppContext&)>& save,
                         const std::function<void(AppContext&)>& start) {
        const std::string before = std::string(kDataFileHeader) + kBefore;
        for (int crashAt = 1; crashAt < 20; ++crashAt) {
            const std::string folder = "run" + std::to_string(crashAt) + "\\";
            files.makeFolder(path(folder));
            files.makeFolder(path(folder + "Data"));
            writeFile(folder + "Data\\" + dataFile, before);
            writeFile(folder + "Data\\" + backupName(dataFile), std::string(kDataFileHeader) + kOlder);

            CrashingFiles crashing(files, crashAt);
            AppContext saving({crashing, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows,
                               power, shortcuts});
            prepare(saving, folder);
            saving.section = saving.custom = splitDataFile(before).blocks;
            writeEntryToBlocks(saving.section, "EXE", "B.EXE", "2*E");
            writeEntryToBlocks(saving.custom, "EXE", "B.EXE", "2*E");
            const std::string after = dataFileText(saving.section);
            const bool saved = save(saving);

            AppContext starting(set());
            prepare(starting, folder);
            start(starting);
            const std::string loaded = dataFileText(dataFile == "Integrity.dat" ? starting.section : starting.custom);
            EXPECT_TRUE(loaded == before || loaded == after) << "crash at change " << crashAt << ":\n" << loaded;
            EXPECT_TRUE(boxes.shown.empty()) << "crash at change " << crashAt;
            boxes.shown.clear();
            if (!crashing.crashed()) {
                EXPECT_TRUE(saved);
                EXPECT_EQ(loaded, after);
                EXPECT_FALSE(files.length(path(folder + "Data\\" + pendingName(dataFile))));
                return crashAt - 1;
            }
        }
        ADD_FAILURE() << "the save never ended";
        return 0;
    }
    void prepare(AppContext& ctx, const std::string& folder) {
        ctx.appPath = path(folder);
        ctx.intFile = ctx.appPath + "Data\\Integrity.dat";
        ctx.settFile = ctx.appPath + "Data\\Tarvelon.dat";
    }

    RecordingHost host;
};

TEST_F(CrashDuringSave, SystemBaselineIsWholeAfterACrashAtAnyStep) {
    const int steps = crashAtEveryStep(
        "Integrity.dat", [](AppContext& ctx) { return saveIntFile(ctx); },
        [this](AppContext& ctx) {
            checkIntFile(ctx, host);
            loadIntFile(ctx, ctx.intFile);
        });
    EXPECT_EQ(steps, 3);  // the backup, the new text beside the file, its move into place
}

TEST_F(CrashDuringSave, CustomBaselineIsWholeAfterACrashAtAnyStep) {
    const int steps = crashAtEveryStep(
        "7-md5.dat", [](AppContext& ctx) { return saveCustomDat(ctx, ctx.appPath + "Data\\7-md5.dat"); },
        [this](AppContext& ctx) { loadCustomDat(ctx, host, ctx.appPath + "Data\\7-md5.dat"); });
    EXPECT_EQ(steps, 3);
}

}  // namespace
}  // namespace tv::test
