// The checksum text of a file under the algorithm in algoName, and the names of
// the data files that hold those texts.
#pragma once

#include <string>

#include "core/app_context.h"

namespace tv::hash {

struct FileFeed;

// CRC-32 ("CRC32" in any case, or an empty name): upper-case hexadecimal without
// leading zeros, "0" for an empty or unreadable file. "MD4", "MD5", "SHA1": each
// digest byte as decimal digits, "" for an empty or unreadable file. Any other
// name (also one with blanks around it) gives "".
std::string getChecksum(AppContext& ctx, const std::string& path);

// The same text of a file read as `how` says, on any thread: the engines are
// made for this file alone.
std::string checksumText(const std::string& algoName, const FileFeed& how, const std::string& path);

// intFile after algoName: "Data\Integrity.dat" for CRC-32, else
// "Data\Integrity-<name trimmed, lower case>.dat".
void setDatName(AppContext& ctx);

// The data file of custom folder `number`, named the same way.
std::string getCustomDat(const AppContext& ctx, int number);

std::string hexText(std::uint32_t value);  // upper case, no leading zeros

}  // namespace tv::hash
