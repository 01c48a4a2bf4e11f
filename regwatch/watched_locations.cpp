#include "regwatch/watched_locations.h"

namespace tv {

std::string newSnapshotText(int otherViewBits) {
    std::string text;
    const auto addSections = [&text](int viewBits) {
        for (const WatchedLocation& location : kWatchedLocations)
            text += "[" + sectionOf(location, viewBits) + "]\r\n\r\n";
    };
    addSections(0);
    if (otherViewBits != 0) addSections(otherViewBits);
    return text;
}

std::string viewSuffix(int viewBits) { return viewBits == 0 ? std::string() : "/" + std::to_string(viewBits); }

std::string sectionOf(const WatchedLocation& location, int viewBits) {
    return location.section + viewSuffix(viewBits);
}

std::string rootTextOf(const WatchedRoot& root, int viewBits) {
    return viewBits == 0 ? std::string(root.text) : std::string(root.text) + " (" + std::to_string(viewBits) + "-bit)";
}

}  // namespace tv
