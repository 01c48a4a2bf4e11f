// The settings file as text: the content of a new file, and the whole-file
// search by which the main keys are read.
#pragma once

#include <string>
#include <string_view>

namespace tv {

// The complete text of a new settings file, CR LF after every line.
std::string newSettingsFileText();

// The key line prefix ("settings=", "algo=", ...) that a request word searches
// for, compared after upper-casing the word. Empty for "CHECKPW" and for words
// the program does not know.
std::string_view settingSearchKey(std::string_view request);

// The value of a request found anywhere in the file text (first hit, without
// regard to case, up to the next CR LF). Values of fewer than two characters,
// and values on a last line without line end, read as nothing (empty).
std::string settingFromText(std::string_view fileText, std::string_view request);

}  // namespace tv
