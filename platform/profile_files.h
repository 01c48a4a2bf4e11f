// The system's initialisation-file calls. Section and key match without regard to
// case; a write replaces the key's line where it stands, adds a missing key at the
// end of its section and a missing section at the end of the file, and leaves
// every other line as it found it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tv {

class ProfileFiles {
public:
    virtual ~ProfileFiles() = default;

    // Reads one value. Missing file, section or key: empty text. At most
    // charCount - 1 characters come back; longer values are cut, as the system cuts them.
    virtual std::string get(const std::string& section, const std::string& key,
                            std::size_t charCount, const std::string& file) const = 0;

    // Writes one value; true when the system reports success.
    virtual bool put(const std::string& section, const std::string& key, const std::string& value,
                     const std::string& file) = 0;

    // The names of the file's sections, in their order; none for a missing file.
    virtual std::vector<std::string> sectionNames(const std::string& file) const = 0;

    // Adds an empty section at the end of the file; true when the system
    // reports success. For a section that is not there yet.
    virtual bool addSection(const std::string& section, const std::string& file) = 0;
};

}  // namespace tv
