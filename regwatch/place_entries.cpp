#include "regwatch/place_entries.h"

#include <optional>

namespace tv {
namespace {

class ReadKey {
public:
    ReadKey(Registry& registry, std::uint32_t hive, const RegText& path, RegView view) : registry_(registry) {
        open_ = registry.openKey(hive, path, view, RegAccess::Read, key_) == 0;
    }
    ~ReadKey() {
        if (open_) registry_.closeKey(key_);
    }
    ReadKey(const ReadKey&) = delete;
    ReadKey& operator=(const ReadKey&) = delete;
    bool open() const { return open_; }

    // Sub-keys and values by their exact names: a name the code page cannot
    // spell must neither hide an entry nor point at another key.
    std::vector<RegText> subKeys() const { return names(&Registry::enumKey); }
    std::vector<RegText> valueNames() const { return names(&Registry::enumValue); }
    std::optional<std::string> text(const RegText& name) const {
        RegValue value;
        if (registry_.queryValue(key_, name, value) != 0) return std::nullopt;
        return placeValueText(value.type, value.bytes);
    }

private:
    std::vector<RegText> names(long (Registry::*list)(Registry::Key, std::uint32_t, RegText&)) const {
        std::vector<RegText> names;
        for (std::uint32_t index = 0;; ++index) {
            RegText name;
            if ((registry_.*list)(key_, index, name) != 0) return names;
            names.push_back(std::move(name));
        }
    }

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
        const RegText keyPath(place.keyPath);
        ReadKey key(registry_, hive_, keyPath, view_);
        if (!key.open()) return;
        out_.opened = true;
        if (place.reach == Reach::Key) return readKey(place, key, keyPath, RegText());
        for (const RegText& sub : key.subKeys()) {
            const RegText path = joinedRegText(keyPath, "\\", sub);
            if (place.meaning == ValueMeaning::SubKeyClassId) {
                add(place, sub, serverOf(sub), EntrySplit::Whole, path, RegText());
                continue;
            }
            // "explorer.exe", "{id}\InprocServer32": the sub-key and the path below it.
            const RegText prefix = *place.subPath ? joinedRegText(sub, "\\", RegText(place.subPath)) : sub;
            const RegText below = joinedRegText(keyPath, "\\", prefix);
            ReadKey subKey(registry_, hive_, below, view_);
            if (subKey.open()) readKey(place, subKey, below, prefix);
        }
    }

private:
    // `prefix` names a sub-key's entries.
    void readKey(const AutostartPlace& place, const ReadKey& key, const RegText& path, const RegText& prefix) {
        const auto entryName = [&prefix](const RegText& valueName) {
            if (prefix.empty()) return valueName;
            return valueName.empty() ? prefix : joinedRegText(prefix, "\\", valueName);
        };
        if (place.values.empty()) {
            for (const RegText& name : key.valueNames()) {
                const auto text = key.text(name);
                if (!text) continue;
                add(place, entryName(name), place.meaning == ValueMeaning::ClassId ? serverOf(RegText(*text)) : *text,
                    EntrySplit::Whole, path, name);
            }
            return;
        }
        for (const WatchedValue& watched : place.values) {
            const RegText name(watched.name);
            if (const auto text = key.text(name)) add(place, entryName(name), *text, watched.split, path, name);
        }
    }

    std::string serverOf(const RegText& classId) const {
        const RegText path = joinedRegText(joinedRegText(RegText(kClassIdKey), "", classId), "", RegText(kServerKey));
        const ReadKey server(registry_, hive::LocalMachine, path, view_);
        const auto dll = server.open() ? server.text(RegText()) : std::nullopt;
        return dll && !dll->empty() ? *dll : classId.text;
    }

    void add(const AutostartPlace& place, RegText name, std::string value, EntrySplit split, const RegText& path,
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
