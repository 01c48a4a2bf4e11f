// The six passes of a scan, in their order: the labels that show each on the
// scan window, the extensions it takes, and its captions.
#pragma once

#include <array>

#include "core/scan_run_state.h"

namespace tv {

struct ScanPass {
    const char* titleLabel;    // control names on intCheck
    const char* fileLabel;
    const char* percentLabel;
    const char* designTitle;   // title before any plan
    const char* plannedTitle;  // title set by the plan
    const char* notWanted;     // title of a pass that does not run
    const char* ext1;          // upper-case extensions with their dots;
    const char* ext2;          // "..." stands for none: no four-character tail equals it
    const char* planned;       // what the plan's extension list takes for it
};

inline constexpr std::array<ScanPass, kPassCount> kScanPasses{{
    {"l_dll2", "l_dll", "l_sdll", "DLL Scan", "DLL Scan", "DLL Scan --- Not Scanning", ".DLL", "...", ".dll"},
    {"l_drv2", "l_drv", "l_sdrv", "Driver Scan", "Driver Scan", "Driver Scan --- Not Scanning", ".DRV", "...",
     ".drv"},
    {"l_sys2", "l_sys", "l_ssys", "System Files", "System Files Scan", "System Files --- Not Scanning", ".SYS",
     ".386", ".sys.386"},
    {"l_ocx2", "l_ocx", "l_socx", "OCX Scan", "OCX Scan", "OCX Scan --- Not Scanning", ".OCX", "...", ".ocx"},
    {"l_exe2", "l_exe", "l_sexe", "Executable Scan", "Executable Scan", "Executable Scan --- Not Scanning", ".EXE",
     ".COM", ".exe.com"},
    {"l_2exe2", "l_2exe", "l_2sexe", "Commonly Exploited Executable Scan", "Commonly Exploited Executable Scan",
     "Commonly Exploited Executables --- Not Scanning", ".PIF", ".SCR", ".pif.scr"},
}};

}  // namespace tv
