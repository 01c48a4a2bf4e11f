// The places RegWatch watches after the seventeen keys, through the real registry, profile, shortcut and file
// calls, with Startup folders and a Windows folder (its scheduled tasks) of the test's own.
#include <ole2.h>

#include "core/file_utils.h"
#include "tests/win/regwatch_fixture.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

const std::string kNt = "Software\\Microsoft\\Windows NT\\CurrentVersion\\", kCcs = "System\\CurrentControlSet\\";
const std::string kCv = "Software\\Microsoft\\Windows\\CurrentVersion\\", kFiles = "Files|Loaded in ";
const std::string kLm = "HKEY_LOCAL_MACHINE|Loaded in ", kCu = "HKEY_CURRENT_USER|Loaded in ";

// One typical entry of each group: where it is planted (type 0: a string), and its warning row less " New Entry!".
struct Planted { HKEY root; std::string key, name; DWORD type; std::string data, row; };
const Planted kPlanted[] = {
    {LM, kCv + "Policies\\Explorer\\Run", "TvPolicy", 0, "C:\\tv\\policy.exe", kLm + "Policy Run\\TvPolicy (C:\\tv\\policy.exe)"},
    {LM, kNt + "Winlogon", "Userinit", 0, "C:\\WINDOWS\\system32\\userinit.exe,C:\\tv\\ui.exe",
     kLm + "Winlogon\\Userinit (C:\\WINDOWS\\system32\\userinit.exe,C:\\tv\\ui.exe)"},
    {CU, kNt + "Winlogon", "Shell", 0, "C:\\tv\\shell.exe", kCu + "Winlogon\\Shell (C:\\tv\\shell.exe)"},
    {LM, kNt + "Windows", "AppInit_DLLs", 0, "C:\\tv\\a.dll,C:\\tv\\b.dll", kLm + "Windows Load\\AppInit_DLLs (C:\\tv\\a.dll)"},
    {LM, "", "", 0, "", kLm + "Windows Load\\AppInit_DLLs (C:\\tv\\b.dll)"},  // the second DLL's own row
    {CU, kNt + "Windows", "Load", 0, "C:\\tv\\load.exe", kCu + "Windows Load\\Load (C:\\tv\\load.exe)"},
    {LM, kNt + "Image File Execution Options\\explorer.exe", "Debugger", 0, "C:\\tv\\dbg.exe",
     kLm + "Image Hijacks\\explorer.exe\\Debugger (C:\\tv\\dbg.exe)"},
    {LM, kCcs + "Control\\Session Manager", "BootExecute", REG_MULTI_SZ, "C:\\tv\\boot.exe\0\0"s,
     kLm + "BootExecute\\BootExecute (C:\\tv\\boot.exe)"},
    {LM, kCcs + "Services\\TvSvc", "ImagePath", REG_EXPAND_SZ, "%SystemRoot%\\tv\\svc.exe -k\0"s,
     kLm + "Services\\TvSvc\\ImagePath (%SystemRoot%\\tv\\svc.exe -k)"},
    {LM, kCcs + "Services\\TvSvc\\Parameters", "ServiceDll", REG_EXPAND_SZ, "C:\\tv\\svc.dll\0"s,
     kLm + "Services\\TvSvc\\Parameters\\ServiceDll (C:\\tv\\svc.dll)"},
    {LM, "Software\\Microsoft\\Active Setup\\Installed Components\\{Tv}", "StubPath", 0, "C:\\tv\\stub.exe",
     kLm + "Active Setup\\{Tv}\\StubPath (C:\\tv\\stub.exe)"},
    {LM, kCcs + "Control\\Lsa", "Notification Packages", REG_MULTI_SZ, "tvpwd\0\0"s,
     kLm + "LSA and Print Monitors\\Notification Packages (tvpwd)"},
    {LM, kCcs + "Control\\Print\\Monitors\\TvMon", "Driver", 0, "tvmon.dll", kLm + "LSA and Print Monitors\\TvMon\\Driver (tvmon.dll)"},
    {LM, "Software\\Classes\\CLSID\\{Tv}\\InprocServer32", "", 0, "C:\\tv\\ssodl.dll", ""},  // no entry itself
    {LM, kCv + "Explorer\\ShellServiceObjectDelayLoad", "TvObject", 0, "{Tv}", kLm + "Explorer Add-ins\\TvObject (C:\\tv\\ssodl.dll)"},
    {LM, kCv + "Explorer\\Browser Helper Objects\\{Tv}", "", 0, "", kLm + "Explorer Add-ins\\{Tv} (C:\\tv\\ssodl.dll)"},
    {CU, "Software\\Classes\\CLSID\\{TvUser}\\InprocServer32", "", 0, "C:\\tv\\user.dll",
     kCu + "Explorer Add-ins\\{TvUser}\\InprocServer32 (C:\\tv\\user.dll)"},
    {LM, "Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer\\Run", "TvPolicy32", 0,
     "C:\\tv\\policy32.exe", "HKEY_LOCAL_MACHINE (32-bit)|Loaded in Policy Run\\TvPolicy32 (C:\\tv\\policy32.exe)"},
};

class AutostartPlacesTest : public RegWatchTest {
protected:
    AutostartPlacesTest() {
        ::OleInitialize(nullptr);  // the shell-link object
        for (const char* folder : {"Startup", "Common", "win", "win\\System32", "win\\System32\\Tasks",
                                   "win\\System32\\Tasks\\Tv", "win\\Tasks"})
            files.makeFolder(path(folder));
        ownShell.windows = path("win");
        ownShell.special = {{kUserStartupFolder, path("Startup")}, {kCommonStartupFolder, path("Common")}};
    }
    // A shortcut in the user's Startup folder, a batch file in everybody's, a task of the Task Scheduler.
    void plantFiles() {
        writeFile("start.exe", "MZ");
        ASSERT_TRUE(shortcuts.makeShellLink(path("Startup\\Tv.lnk"), {path("start.exe"), {}, "/min"s}));
        writeFile("Common\\tv.bat", "@echo off\r\n");
        writeFile("win\\System32\\Tasks\\Tv\\Updater",
                  "<?xml version=\"1.0\"?><Task><Actions><Exec><Command>C:\\tv\\update.exe</Command>"
                  "<Arguments>/quiet &amp; /now</Arguments></Exec></Actions></Task>");
    }
    void plantAll() {
        for (const Planted& p : kPlanted)
            if (!p.key.empty()) p.type ? put(p.root, p.key, p.name, p.type, p.data) : putText(p.root, p.key, p.name, p.data);
        plantFiles();
    }
    Texts fileRows() const {
        return {kFiles + "Startup Folder\\Tv.lnk (" + path("start.exe") + " /min) New Entry!",
                kFiles + "Common Startup Folder\\tv.bat (" + path("Common\\tv.bat") + ") New Entry!",
                kFiles + "Scheduled Tasks\\Tv\\Updater (C:\\tv\\update.exe /quiet & /now) New Entry!"};
    }
};

TEST_F(AutostartPlacesTest, EachGroupWarnsOfItsTypicalEntryUntilScanAndUpdateAcceptsIt) {
    // A snapshot from before the places: the first pass records them silently, keeps the seventeen, says so once.
    std::string old = newSnapshotText(0), seventeen;
    old.replace(old.find("[CU/R]\r\n") + 8, 0, "TvRun= (C:\\tv\\run.exe)\r\n");
    writeFile("Data\\Registry.dat", old);
    putText(CU, kRun, "TvRun", "C:\\tv\\run.exe");
    putText(LM, "Software\\Microsoft\\Active Setup\\Installed Components\\{TvOld}", "StubPath", "C:\\tv\\old.exe");
    pass.checkRegFile();  // there: left as it is
    pass.setReg();
    EXPECT_TRUE(warnings() == noWarnings && page.Label18.visible());
    for (const WatchedLocation& l : kWatchedLocations)  // as the profile writer leaves them: no empty lines
        seventeen += "[" + std::string(l.section) + "]\r\n" + (l.section == "CU/R"s ? "TvRun=(C:\\tv\\run.exe)\r\n" : "");
    EXPECT_EQ(readFile("Data\\Registry.dat").substr(0, seventeen.size()), seventeen);

    plantAll();
    pass.setReg();
    Texts expected;
    for (const Planted& p : kPlanted)
        if (!p.row.empty()) expected.push_back(p.row + " New Entry!");
    for (const std::string& row : fileRows()) expected.push_back(row);
    EXPECT_TRUE(warnings() == expected && !page.Label18.visible());
    EXPECT_EQ(page.TreeView1.nodes()[node("!LSV")].children, 2u);  // both values of the service
    EXPECT_EQ(page.TreeView1.fullPath(node("!FST") + 1),
              "Files\\Loaded in Scheduled Tasks\\Tv\\Updater (C:\\tv\\update.exe /quiet & /now)");

    page.List5.userSetValue(static_cast<int>(expected.size()));  // a file's row: Delete Key does not apply
    EXPECT_TRUE(page.Command11.enabled() && !page.Command3.enabled());

    // Scan && Update hands every entry's file to the scanner and accepts them; the next pass is silent.
    boxes.answers.assign(20, box::Ok);  // the files that cannot be found, told one by one
    page.cScnUpd.userClick();
    for (const std::string file : {"C:\\tv\\dbg.exe", "C:\\tv\\b.dll", "C:\\tv\\update.exe", "start.exe"})
        EXPECT_NE(processes.started.back().first.find(file), std::string::npos) << file;
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);

    // A list of several entries names what came and what went.
    put(LM, kNt + "Windows", "AppInit_DLLs", REG_SZ, "C:\\tv\\b.dll C:\\tv\\c.dll\0"s);
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{kLm + "Windows Load\\AppInit_DLLs (C:\\tv\\c.dll) New Entry!",
                                 kLm + "Windows Load\\AppInit_DLLs (C:\\tv\\a.dll) Entry Removed!"}));
}

TEST_F(AutostartPlacesTest, SubKeysTheCodePageCannotSpellHideNothingAndAreDeletedExactly) {
    // Two programs' sub-keys that both read "Tv?.exe" in any code page, a service of such a name, and one whose
    // path is longer than MAX_PATH.
    const std::wstring hijacks = L"Software\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options\\";
    const auto putWide = [](const std::wstring& key, const wchar_t* name, const std::wstring& data) {
        HKEY made = nullptr;
        ASSERT_EQ(::RegCreateKeyExW(LM, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &made,
                                    nullptr), 0);
        ::RegSetValueExW(made, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                         static_cast<DWORD>((data.size() + 1) * 2));
        ::RegCloseKey(made);
    };
    const auto debugger = [&](const wchar_t* program) {
        HKEY key = nullptr;
        if (::RegOpenKeyExW(LM, (hijacks + program).c_str(), 0, KEY_READ, &key) != 0) return false;
        const bool found = ::RegQueryValueExW(key, L"Debugger", nullptr, nullptr, nullptr, nullptr) == 0;
        ::RegCloseKey(key);
        return found;
    };
    putWide(hijacks + L"Tv\u0F40.exe", L"Debugger", L"C:\\tv\\one.exe");
    putWide(hijacks + L"Tv\u0F41.exe", L"Debugger", L"C:\\tv\\two.exe");
    putWide(L"System\\CurrentControlSet\\Services\\Tv\u0F40", L"ImagePath", L"C:\\tv\\svc.exe");
    const std::string longName = "Tv" + std::string(240, 'l');
    putWide(L"System\\CurrentControlSet\\Services\\" + std::wstring(longName.begin(), longName.end()), L"ImagePath",
            L"C:\\tv\\long.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{kLm + "Image Hijacks\\%Tv%u0F40.exe\\Debugger (C:\\tv\\one.exe) New Entry!",
                                 kLm + "Image Hijacks\\%Tv%u0F41.exe\\Debugger (C:\\tv\\two.exe) New Entry!",
                                 kLm + "Services\\" + longName + "\\ImagePath (C:\\tv\\long.exe) New Entry!",
                                 kLm + "Services\\%Tv%u0F40\\ImagePath (C:\\tv\\svc.exe) New Entry!"}));
    EXPECT_EQ(deleteRow(2),
              question("Debugger", "HKEY_LOCAL_MACHINE\\" + kNt + "Image File Execution Options\\Tv?.exe"));
    EXPECT_TRUE(!debugger(L"Tv\u0F41.exe") && debugger(L"Tv\u0F40.exe"));
}

// Names with a NUL, which the Win32 calls cut short: planted through the system's counted names.
TEST_F(AutostartPlacesTest, NamesHoldingANulHideNothingAndAreDeletedExactly) {
    struct Counted { USHORT length, maximum; const wchar_t* text; };
    struct Where { ULONG size; HANDLE root; const Counted* name; ULONG attributes; void *sd, *qos; };
    const auto ntdll = ::GetModuleHandleA("ntdll.dll");
    using CreateKey = LONG(WINAPI*)(HANDLE*, ACCESS_MASK, const Where*, ULONG, void*, ULONG, ULONG*);
    const auto createKey = reinterpret_cast<CreateKey>(reinterpret_cast<void*>(::GetProcAddress(ntdll, "NtCreateKey")));
    const auto setValue = reinterpret_cast<LONG(WINAPI*)(HANDLE, const Counted*, ULONG, ULONG, const void*, ULONG)>(
        reinterpret_cast<void*>(::GetProcAddress(ntdll, "NtSetValueKey")));
    const auto counted = [](const std::wstring& text) {
        return Counted{USHORT(text.size() * 2), USHORT(text.size() * 2), text.c_str()};
    };
    const auto plant = [&](HKEY root, const std::string& key, const std::wstring& sub, const std::wstring& name,
                           const std::wstring& data) {
        HANDLE made = makeKey(root, key);
        if (!sub.empty()) {
            const Counted subName = counted(sub);
            const Where where{sizeof(Where), made, &subName, 0x40, nullptr, nullptr};
            HANDLE parent = std::exchange(made, nullptr);
            ASSERT_EQ(createKey(&made, KEY_ALL_ACCESS, &where, 0, nullptr, REG_OPTION_VOLATILE, nullptr), 0);
            ::RegCloseKey(static_cast<HKEY>(parent));
        }
        const Counted valueName = counted(name);
        ASSERT_EQ(setValue(made, &valueName, 0, REG_SZ, data.c_str(), ULONG((data.size() + 1) * 2)), 0);
        ::RegCloseKey(static_cast<HKEY>(made));
    };
    plant(CU, kRun, L"", std::wstring(L"TvRun\0Hidden", 12), L"C:\\tv\\run.exe");
    putText(CU, kRun, "TvRun", "C:\\tv\\twin.exe");  // what the name reads as, cut at its NUL
    plant(LM, kCcs + "Services", std::wstring(L"TvSvc\0Hidden", 12), L"ImagePath", L"C:\\tv\\svc.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_CURRENT_USER|Loaded in \\TvRun (C:\\tv\\twin.exe) New Entry!",
                                 "HKEY_CURRENT_USER|Loaded in \\%TvRun%00Hidden (C:\\tv\\run.exe) New Entry!",
                                 kLm + "Services\\%TvSvc%00Hidden\\ImagePath (C:\\tv\\svc.exe) New Entry!"}));
    EXPECT_EQ(page.TreeView1.fullPath(node("!LSV") + 1),
              "HKEY_LOCAL_MACHINE\\Loaded in Services\\TvSvc%00Hidden\\ImagePath (C:\\tv\\svc.exe)");
    EXPECT_EQ(deleteRow(2), question("TvRun%00Hidden", "HKEY_CURRENT_USER\\" + kRun));
    RegClass run(registry);
    EXPECT_TRUE(run.openRegistry(hive::CurrentUser, kRun) && run.getAllValues() == std::vector{RegText("TvRun")});
}

}  // namespace
}  // namespace tv::test
