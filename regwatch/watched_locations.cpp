#include "regwatch/watched_locations.h"

namespace tv {

std::string newSnapshotText() {
    std::string text;
    for (const WatchedLocation& location : kWatchedLocations) {
        text += '[';
        text += location.section;
        text += "]\r\n\r\n";
    }
    return text;
}

}  // namespace tv
