// Answers the system's open-file dialog the way a user does: the file's name
// typed into the dialog's name box, then Open pressed (or Cancel). Works on a
// dialog of this process or of another one. Used by tarvauto.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <string>

namespace tv::testing {

// The name box: the combo box of the Explorer-style dialog (cmb13), or the
// edit box (edt1) of the dialogs that have none.
inline HWND fileNameBox(HWND dialog) {
    if (HWND combo = ::GetDlgItem(dialog, 0x47C)) return combo;
    return ::GetDlgItem(dialog, 0x480);
}

// Types `file` and presses Open; an empty `file` presses Cancel. False when
// the dialog has no name box.
inline bool answerFileDialog(HWND dialog, const std::string& file) {
    if (file.empty()) {
        ::PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED),
                       reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDCANCEL)));
        return true;
    }
    HWND box = fileNameBox(dialog);
    if (!box) return false;
    DWORD_PTR ignored = 0;
    ::SendMessageTimeoutA(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.c_str()), SMTO_ABORTIFHUNG, 20000,
                          &ignored);
    ::PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(::GetDlgItem(dialog, IDOK)));
    return true;
}

}  // namespace tv::testing
