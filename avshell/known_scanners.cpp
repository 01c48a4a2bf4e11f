#include "avshell/known_scanners.h"

#include "core/text.h"

namespace tv {

std::string catalogueProgram(std::string_view product) {
    for (const KnownScanner& scanner : kKnownScanners)
        if (product == scanner.product) return scanner.program;
    return {};
}

ScannerFamily scannerFamily(std::string_view programPath) {
    const std::string path = upperCase(programPath);
    if (inStr(1, path, "NAVW") > 0) return ScannerFamily::Norton;
    if (inStr(1, path, "PAVCL") > 0) return ScannerFamily::Panda;
    return ScannerFamily::Other;
}

std::string defaultArguments(ScannerFamily family) {
    switch (family) {
    case ScannerFamily::Norton: return "/HEUR:3";
    case ScannerFamily::Panda: return "/NSB /NOM /AUT";
    case ScannerFamily::Other: break;
    }
    return " ";
}

}  // namespace tv
