#include "regwatch/autostart_groups.h"

namespace tv {
namespace {

using enum Reach;
using enum Removal;
constexpr std::uint32_t LM = hive::LocalMachine, CU = hive::CurrentUser;

constexpr std::span<const WatchedValue> kAll{};

constexpr WatchedValue kMachineShell[] = {{"Shell"}, {"Userinit"}}, kTaskman[] = {{"Taskman"}},
                       kUserShell[] = {{"Shell"}}, kDllName[] = {{"DllName"}};
constexpr WatchedValue kAppInit[] = {{"AppInit_DLLs", EntrySplit::BlankOrComma}, {"LoadAppInit_DLLs"}},
                       kUserLoad[] = {{"Load"}, {"Run"}};
constexpr WatchedValue kDebugger[] = {{"Debugger"}}, kMonitorProcess[] = {{"MonitorProcess"}};
constexpr WatchedValue kBootExecute[] = {{"BootExecute", EntrySplit::StringList}};
constexpr WatchedValue kImagePath[] = {{"ImagePath"}}, kServiceDll[] = {{"ServiceDll"}};
constexpr WatchedValue kStubPath[] = {{"StubPath"}};
constexpr WatchedValue kLsaPackages[] = {{"Authentication Packages", EntrySplit::StringList},
                                         {"Notification Packages", EntrySplit::StringList},
                                         {"Security Packages", EntrySplit::StringList}};
constexpr WatchedValue kDriver[] = {{"Driver"}}, kDefault[] = {{""}};

constexpr AutostartPlace kPolicyRun[] = {
    {LM, "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer\\Run", Key, "", kAll, DeleteValue},
    {CU, "Software\\Microsoft\\Windows\\CurrentVersion\\Policies\\Explorer\\Run", Key, "", kAll, DeleteValue},
};
// Without the machine's Shell and Userinit nobody can log on; the user's
// own Shell only stands in front of the machine's.
constexpr AutostartPlace kWinlogon[] = {
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", Key, "", kMachineShell, EditByHand},
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", Key, "", kTaskman, DeleteValue},
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon\\Notify", EachSubKey, "", kDllName, EditByHand},
    {CU, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Winlogon", Key, "", kUserShell, DeleteValue},
};
constexpr AutostartPlace kWindowsLoad[] = {
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows", Key, "", kAppInit, DeleteValue},
    {CU, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows", Key, "", kUserLoad, DeleteValue},
};
constexpr AutostartPlace kImageHijacks[] = {
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options", EachSubKey, "", kDebugger,
     DeleteValue},
    {LM, "Software\\Microsoft\\Windows NT\\CurrentVersion\\SilentProcessExit", EachSubKey, "", kMonitorProcess,
     DeleteValue},
};
constexpr AutostartPlace kBoot[] = {
    {LM, "System\\CurrentControlSet\\Control\\Session Manager", Key, "", kBootExecute, EditByHand},
};
// A driver Windows needs to start is one the registry editor should change,
// knowingly, not a button.
constexpr AutostartPlace kServices[] = {
    {LM, "System\\CurrentControlSet\\Services", EachSubKey, "", kImagePath, EditByHand},
    {LM, "System\\CurrentControlSet\\Services", EachSubKey, "Parameters", kServiceDll, EditByHand},
};
constexpr AutostartPlace kActiveSetup[] = {
    {LM, "Software\\Microsoft\\Active Setup\\Installed Components", EachSubKey, "", kStubPath, DeleteValue},
};
constexpr AutostartPlace kLsaAndMonitors[] = {
    {LM, "System\\CurrentControlSet\\Control\\Lsa", Key, "", kLsaPackages, EditByHand},
    {LM, "System\\CurrentControlSet\\Control\\Print\\Monitors", EachSubKey, "", kDriver, EditByHand},
};
// A browser helper is a key named by its class id, not a value.
constexpr AutostartPlace kAddIns[] = {
    {LM, "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ShellServiceObjectDelayLoad", Key, "", kAll,
     DeleteValue, ValueMeaning::ClassId},
    {LM, "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Browser Helper Objects", EachSubKey, "", kAll,
     EditByHand, ValueMeaning::SubKeyClassId},
    {CU, "Software\\Classes\\CLSID", EachSubKey, "InprocServer32", kDefault, DeleteValue},
};

constexpr AutostartGroup kGroups[] = {
    {"Loaded in Policy Run", "PR", kPolicyRun},
    {"Loaded in Winlogon", "WL", kWinlogon},
    {"Loaded in Windows Load", "WI", kWindowsLoad},
    {"Loaded in Image Hijacks", "IH", kImageHijacks},
    {"Loaded in BootExecute", "BE", kBoot},
    {"Loaded in Services", "SV", kServices},
    {"Loaded in Active Setup", "AS", kActiveSetup},
    {"Loaded in LSA and Print Monitors", "LP", kLsaAndMonitors},
    {"Loaded in Explorer Add-ins", "AD", kAddIns},
};

}  // namespace

std::span<const AutostartGroup> autostartGroups() { return kGroups; }

bool reaches(const AutostartGroup& group, std::uint32_t hive) {
    for (const AutostartPlace& place : group.places)
        if (place.hive == hive) return true;
    return false;
}

std::string groupSection(const AutostartGroup& group, std::uint32_t hive, int viewBits) {
    return std::string(hive == hive::LocalMachine ? "LM/" : "CU/") + group.code + viewSuffix(viewBits);
}

std::vector<std::string> placeSections(int otherView) {
    std::vector<std::string> sections;
    for (const int view : otherView == 0 ? std::vector{0} : std::vector{0, otherView})
        for (const AutostartGroup& group : kGroups)
            for (const WatchedRoot& root : kWatchedRoots)
                if (reaches(group, root.hive)) sections.push_back(groupSection(group, root.hive, view));
    for (const FileGroup& group : kFileGroups) sections.emplace_back(group.section);
    return sections;
}

std::string newPlacesSnapshotText(int otherView) {
    std::string text;
    for (const std::string& section : placeSections(otherView)) text += "[" + section + "]\r\n\r\n";
    return text;
}

}  // namespace tv
