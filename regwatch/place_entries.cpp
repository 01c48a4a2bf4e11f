#include "regwatch/place_entries.h"

#include <optional>

namespace tv {
namespace {

constexpr std::size_t kKeyNameChars = 256;

class ReadKey {
public:
    ReadKey(Registry& registry, std::uint32_t hive, const std::string& path, RegView view) : registry_(registry) {
        open_ = registry.openKey(hive, path, view, RegAccess::Read, key_) == 0;
    }
    ~ReadKey() {
        if (open_) registry_.closeKey(key_);
    }
    ReadKey(const ReadKey&) = delete;
    ReadKey& operator=(const ReadKey&) = delete;
    bool open() const { return open_; }

    std::vector<std::string> subKeys() const {
        std::vector<std::string> names;
        for (std::uint32_t index = 0;; ++index) {
            std::string buffer(kKeyNameChars, '\0');
            if (registry_.enumKey(key_, index, buffer) != 0) return names;
            names.push_back(buffer.substr(0, buffer.find('\0')));
        }
    }
    std::vector<RegText> valueNames() const {
        std::vector<RegText> names;
        for (std::uint32_t index = 0;; ++index) {
            RegText name;
            if (registry_.enumValue(key_, index, name) != 0) return names;
            names.push_back(std::move(name));
        }
    }
    std::optional<std::string> text(const RegText& name) const {
        RegValue value;
        if (registry_.queryValue(key_, name, value) != 0) return std::nullopt;
        return placeValueText(value.type, value.bytes);
    }

private:
    Registry& registry_;
    Registry::Key key_ = 0;
    bool open_ = false;
};

class PlaceReader {
public:
    PlaceReader(Registry& registry, std::uint32_t hive, int viewBits, PlaceEntries& out)
        : registry_(registry), hive_(hive), viewBits_(viewBits),
          view_(viewBits == 0 ? RegView::Native : RegView::Other), out_(out) {}

    void read(const AutostartPlace& place) {
        ReadKey key(registry_, hive_, place.keyPath, view_);
        if (!key.open()) return;
        out_.opened = true;
        if (place.reach == Reach::Key) return readKey(place, key, place.keyPath, "");
        for (const std::string& sub : key.subKeys()) {
            const std::string path = std::string(place.keyPath) + "\\" + sub;
            if (place.meaning == ValueMeaning::SubKeyClassId) {
                add(place, RegText(sub), serverOf(sub), EntrySplit::Whole, path, RegText());
                continue;
            }
            const std::string below = *place.subPath ? path + "\\" + place.subPath : path;
            ReadKey subKey(registry_, hive_, below, view_);
            if (subKey.open()) readKey(place, subKey, below, below.substr(std::string(place.keyPath).size() + 1));
        }
    }

private:
    // `prefix` names a sub-key's entries: "explorer.exe", "{id}\InprocServer32".
    void readKey(const AutostartPlace& place, const ReadKey& key, const std::string& path, const std::string& prefix) {
        const auto entryName = [&prefix](const RegText& valueName) {
            if (prefix.empty()) return valueName;
            return RegText(valueName.text.empty() ? prefix : prefix + "\\" + valueName.text);
        };
        if (place.values.empty()) {
            for (const RegText& name : key.valueNames()) {
                const auto text = key.text(name);
                if (!text) continue;
                add(place, entryName(name), place.meaning == ValueMeaning::ClassId ? serverOf(*text) : *text,
                    EntrySplit::Whole, path, name);
            }
            return;
        }
        for (const WatchedValue& watched : place.values) {
            const RegText name(watched.name);
            if (const auto text = key.text(name)) add(place, entryName(name), *text, watched.split, path, name);
        }
    }

    std::string serverOf(const std::string& classId) const {
        const ReadKey server(registry_, hive::LocalMachine, kClassIdKey + classId + kServerKey, view_);
        const auto dll = server.open() ? server.text(RegText()) : std::nullopt;
        return dll && !dll->empty() ? *dll : classId;
    }

    void add(const AutostartPlace& place, RegText name, std::string value, EntrySplit split, const std::string& path,
             RegText valueName) {
        out_.entries.push_back(
            {std::move(name), std::move(value), split, {hive_, path, viewBits_, std::move(valueName), place.removal}});
    }

    Registry& registry_;
    std::uint32_t hive_;
    int viewBits_;
    RegView view_;
    PlaceEntries& out_;
};

}  // namespace

PlaceEntries registryPlaceEntries(Registry& registry, const AutostartGroup& group, std::uint32_t hive, int viewBits) {
    PlaceEntries found;
    PlaceReader reader(registry, hive, viewBits, found);
    for (const AutostartPlace& place : group.places)
        if (place.hive == hive) reader.read(place);
    return found;
}

}  // namespace tv
