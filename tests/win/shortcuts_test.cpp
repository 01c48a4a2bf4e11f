// The program's shortcuts made through the system's shell-link object and the
// scripting host, read back through the shell-link object as Windows reads them.
#include "platform/win32/win32_base.h"

#include <objbase.h>
#include <ole2.h>
#include <shlobj.h>

#include "core/text.h"
#include "tests/win/win_fixture.h"
#include "ui/shortcut_maker.h"

namespace tv::test {
namespace {

struct LinkParts {
    std::string target, arguments, description, workDir, iconFile;
    int iconIndex = -1;
    int showCommand = -1;
};

// What a shortcut file holds, as the shell reads it; nullopt when it is none.
std::optional<LinkParts> readLink(const std::string& file) {
    IShellLinkA* link = nullptr;
    if (FAILED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                  reinterpret_cast<void**>(&link))))
        return std::nullopt;
    IPersistFile* persist = nullptr;
    std::optional<LinkParts> parts;
    const std::wstring wide(file.begin(), file.end());
    if (SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist))) &&
        SUCCEEDED(persist->Load(wide.c_str(), STGM_READ))) {
        char text[1024];
        LinkParts p;
        if (SUCCEEDED(link->GetPath(text, sizeof text, nullptr, SLGP_RAWPATH))) p.target = text;
        if (SUCCEEDED(link->GetArguments(text, sizeof text))) p.arguments = text;
        if (SUCCEEDED(link->GetDescription(text, sizeof text))) p.description = text;
        if (SUCCEEDED(link->GetWorkingDirectory(text, sizeof text))) p.workDir = text;
        if (SUCCEEDED(link->GetIconLocation(text, sizeof text, &p.iconIndex))) p.iconFile = text;
        link->GetShowCmd(&p.showCommand);
        parts = p;
    }
    if (persist) persist->Release();
    link->Release();
    return parts;
}

class ShortcutFiles : public WinTest {
protected:
    ShortcutFiles() {
        ::OleInitialize(nullptr);
        ctx.appPath = path("");
        processes.path = path("TarvelonLow.exe");
        program = path("TarvelonLow.exe");
        writeFile("TarvelonLow.exe", "MZ");
    }
    ~ShortcutFiles() override { ::OleUninitialize(); }

    AppContext ctx{set()};
    std::string program;
};

TEST_F(ShortcutFiles, ShellLinkWayHoldsEveryPart) {
    const std::string link = path("Tarvelon.lnk");
    createAutoLoad(ctx, link);
    const auto parts = readLink(link);
    ASSERT_TRUE(parts);
    EXPECT_TRUE(sameText(parts->target, program)) << parts->target;
    EXPECT_EQ(parts->arguments, " /r");
    EXPECT_EQ(parts->description, "Access Shortcut");
    EXPECT_EQ(parts->workDir, "");
    EXPECT_TRUE(sameText(parts->iconFile, program)) << parts->iconFile;
    EXPECT_EQ(parts->iconIndex, 0);
    EXPECT_EQ(parts->showCommand, SW_SHOWNORMAL);
}

TEST_F(ShortcutFiles, ScriptingWayHoldsItsOwnArgumentsAndDescription) {
    ctx.useWsh = 1;
    writeFile("Tarvelon.lnk", "not a shortcut");  // the scripting way writes over it
    createAutoLoad(ctx, path("Tarvelon.lnk"));
    const auto parts = readLink(path("Tarvelon.lnk"));
    ASSERT_TRUE(parts);
    EXPECT_TRUE(sameText(parts->target, program)) << parts->target;
    EXPECT_EQ(parts->arguments, "/r");
    EXPECT_EQ(parts->description, "Tarvelon");

    EXPECT_TRUE(makeShortcutWsh(ctx, path("Scan.url"), "d", program, "/s"));
    EXPECT_TRUE(files.canRead(path("Scan.url")));
    EXPECT_FALSE(files.canRead(path("Scan.url.lnk")));
}

TEST_F(ShortcutFiles, FolderThatIsMissingGetsNoShortcutFromEitherWay) {
    const std::string link = path("Gone\\Tarvelon.lnk");
    EXPECT_FALSE(makeShortcut(ctx, link, program, "", " /r", program, 0, 5));
    EXPECT_FALSE(makeShortcutWsh(ctx, link, "Tarvelon", program, "/r"));
    EXPECT_FALSE(files.canRead(link));
}

}  // namespace
}  // namespace tv::test
