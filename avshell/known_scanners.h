// The scanners the program knows by name: the catalogue of products with the
// one file of each package that takes a command line, and the scanners whose
// program path calls for switches of their own. The scanner selection, the
// catalogue and the Setup Wizard all take them from here.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tv {

struct KnownScanner {
    const char* product;  // as the catalogue lists it
    const char* program;  // the file to search for, spelled as the maker spells it
};

// In the order of the catalogue's list.
inline constexpr std::array<KnownScanner, 16> kKnownScanners{{
    {"AVAST 4 (All Operating Systems)", "ashQuick.exe"},
    {"AVAST32 (All Operating Systems)", "quick32.exe"},
    {"AVG (All Operating Systems)", "avgse.exe"},
    {"EZ Anti-Virus (All Operating Systems)", "vet98.exe"},
    {"Fix-It Utilities (All OS)", "AVCmd.exe"},
    {"F-Prot (All Operating Systems)", "fpcmd.exe"},
    {"H+BDEV AntiVir (Personal Edition - All OS)", "avwin.exe"},
    {"Kaspersky 3.0 (All Operating Systems)", "avp32.exe"},
    {"McAfee 5.0 and earlier (All Operating Systems)", "scan32.exe"},
    {"McAfee 6.0 (All Operating Systems)", "scanpm.exe"},
    {"McAfee 6.02 and later (All Operating Systems)", "scan.exe"},
    {"NOD32 (All Operating Systems)", "nod32.exe"},
    {"Norton (2000/NT)", "navwnt.exe"},
    {"Norton (Win95/98/ME/XP)", "navw32.exe"},
    {"Panda 7.0 Platinum (All-OS)", "Pavcl.com"},
    {"Sophos Anti Virus (All-OS)", "sweep.exe"},
}};

// The program file of a catalogue entry, the entry compared exactly; empty
// text for anything that is not an entry.
std::string catalogueProgram(std::string_view product);

// Scanners told apart by a piece of their program's path, wherever it stands
// in the path (a folder counts as much as the file name): Norton by "NAVW",
// Panda by "PAVCL", in any case. Norton wins when both stand in the path.
enum class ScannerFamily { Norton, Panda, Other };
ScannerFamily scannerFamily(std::string_view programPath);

// The arguments a new scanner of the family gets: "/HEUR:3", "/NSB /NOM /AUT",
// or one blank for any other scanner.
std::string defaultArguments(ScannerFamily family);
inline std::string defaultArguments(std::string_view programPath) {
    return defaultArguments(scannerFamily(programPath));
}

}  // namespace tv
