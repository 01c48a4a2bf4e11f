#include "tests/win/regwatch_fixture.h"

namespace tv::test {

void deleteKeyTree(HKEY parent, const std::string& subKey) {
    HKEY key = nullptr;
    if (::RegOpenKeyExA(parent, subKey.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) return;
    char child[256];
    while (::RegEnumKeyA(key, 0, child, sizeof child) == ERROR_SUCCESS) deleteKeyTree(key, child);
    ::RegCloseKey(key);
    ::RegDeleteKeyA(parent, subKey.c_str());
}

RegWatchTest::RegWatchTest(bool realScanners)
    : ctx({files, profiles, shell, boxes, realScanners ? static_cast<Processes&>(realProcesses) : processes, loop,
           renderer, registry, clock, windows, power, shortcuts}) {
    ctx.autoLogging = &main.settings.Check7;
    main.settings.Check7.setValue(1);
    ctx.appPath = path("");
    ctx.settFile = path("Data\\Tarvelon.dat");
    ctx.regFile = path("Data\\Registry.dat");
    files.makeFolder(path("Data"));
    files.makeFolder(path("Data\\Log"));
}

RegWatchTest::~RegWatchTest() {
    for (auto value = values_.rbegin(); value != values_.rend(); ++value) {
        if (!value->existed) {
            remove(value->root, value->key, value->name);
            continue;
        }
        HKEY opened = nullptr;
        if (::RegOpenKeyExA(value->root, value->key.c_str(), 0, KEY_ALL_ACCESS, &opened) != ERROR_SUCCESS) continue;
        ::RegSetValueExA(opened, value->name.c_str(), 0, value->type,
                         reinterpret_cast<const BYTE*>(value->bytes.data()), static_cast<DWORD>(value->bytes.size()));
        ::RegCloseKey(opened);
    }
    for (auto made = madeKeys_.rbegin(); made != madeKeys_.rend(); ++made) deleteKeyTree(made->first, made->second);
}

void RegWatchTest::put(HKEY root, const std::string& key, const std::string& name, DWORD type,
                       const std::string& bytes) {
    // The uppermost missing key of the path is the one to delete afterwards.
    for (std::size_t end = key.find('\\'); ; end = key.find('\\', end + 1)) {
        const std::string upper = key.substr(0, end);
        HKEY probe = nullptr;
        if (::RegOpenKeyExA(root, upper.c_str(), 0, KEY_READ, &probe) != ERROR_SUCCESS) {
            madeKeys_.emplace_back(root, upper);
            break;
        }
        ::RegCloseKey(probe);
        if (end == std::string::npos) break;
    }
    HKEY opened = nullptr;
    ASSERT_EQ(::RegCreateKeyExA(root, key.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &opened, nullptr),
              ERROR_SUCCESS);
    Put before{root, key, name, false, 0, {}};
    DWORD size = 0;
    if (::RegQueryValueExA(opened, name.c_str(), nullptr, &before.type, nullptr, &size) == ERROR_SUCCESS) {
        before.existed = true;
        before.bytes.resize(size);
        ::RegQueryValueExA(opened, name.c_str(), nullptr, &before.type, reinterpret_cast<BYTE*>(before.bytes.data()),
                           &size);
    }
    values_.push_back(std::move(before));
    ASSERT_EQ(::RegSetValueExA(opened, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                               static_cast<DWORD>(bytes.size())),
              ERROR_SUCCESS);
    ::RegCloseKey(opened);
}

void RegWatchTest::remove(HKEY root, const std::string& key, const std::string& name) {
    HKEY opened = nullptr;
    if (::RegOpenKeyExA(root, key.c_str(), 0, KEY_ALL_ACCESS, &opened) != ERROR_SUCCESS) return;
    ::RegDeleteValueA(opened, name.c_str());
    ::RegCloseKey(opened);
}

void RegWatchTest::useFakeScanners() {
    const std::string fake = fakeScannerPath();
    ASSERT_TRUE(files.canRead(fake)) << fake;
    writeFile("Data\\Tarvelon.dat", "[Tarvelon]\r\nantivirus=" + fake + "|/x\r\nav2=" + fake + "| /y \r\n");
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
}

std::vector<std::string> RegWatchTest::reports() {
    std::vector<std::string> found;
    for (std::string name = files.firstName(path("Data\\Log\\")); !name.empty(); name = files.nextName())
        if (name != "." && name != "..") found.push_back(readFile("Data\\Log\\" + name));
    return found;
}

std::vector<std::string> RegWatchTest::scannedLines(std::size_t count) {
    std::vector<std::string> lines;
    const DWORD start = ::GetTickCount();
    do {
        lines.clear();
        const std::string log = files.readAll(path("scans.log")).value_or("");
        for (std::size_t from = 0, end; (end = log.find("\r\n", from)) != std::string::npos; from = end + 2)
            lines.push_back(log.substr(from, end - from));
        if (lines.size() >= count) break;
        ::Sleep(20);
    } while (::GetTickCount() - start < 20000);
    return lines;
}

bool RegWatchTest::valueThere(HKEY root, const std::string& key, const std::string& name) const {
    HKEY opened = nullptr;
    if (::RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
    const bool there = ::RegQueryValueExA(opened, name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
    ::RegCloseKey(opened);
    return there;
}

}  // namespace tv::test
