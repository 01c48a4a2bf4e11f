; The Tarvelon setup. Built by tools/make-release.sh with:
;   /DVERSION=<x.y.z> /DARCH=<x64|x86> /DPROGRAM=<TarvelonLow.exe> /DHELP=<help folder>
;   /DICON=<icon> /DDOCS=<folder with LICENSE.txt, NOTICES.txt, CHANGELOG.md> /DOUTFILE=<setup>
; and optionally /DPICTURE=<164x314 bitmap> and /DSTUB=<NSIS target> (the 32-bit one unless told).
;
; Tarvelon decides which programs start at log-on and what counts as unchanged,
; from the files in Data\ beside it, so nobody but the account it serves and
; the administrators may change that folder or the program:
; - for the current user (the default, no administrator rights): into the
;   user's own programs folder, the folder's rights given to that user, the
;   administrators and the system only;
; - for all users (an administrator's choice, /AllUsers): into Program Files,
;   where users may read and run it, and only administrators change it.
; The 64-bit and the 32-bit setup are two products with their own folders,
; Start menu folders and entries among the installed programs. An upgrade goes
; where Tarvelon is installed already, in the same way, and nothing is replaced
; while Tarvelon runs. The program itself keeps no registry key; these are the
; setup's.

Unicode true
!ifdef STUB
  Target ${STUB}
!else
  Target x86-unicode
!endif

!define MAKER "Quillfen Software"
!define WEB_PAGE "https://www.quillfen.com/"
!if ${ARCH} == "x64"
  !define PRODUCT "Tarvelon"
  !define BITS "64-bit"
  !define ALL_USERS_FOLDER "$PROGRAMFILES64\Tarvelon"
  !define OWN_FOLDER "$LOCALAPPDATA\Programs\Tarvelon"
  !define REG_VIEW "SetRegView 64"  ; the 64-bit program's view, where it looks
!else
  !define PRODUCT "Tarvelon (32-bit)"
  !define BITS "32-bit"
  !define ALL_USERS_FOLDER "$PROGRAMFILES32\Tarvelon"
  !define OWN_FOLDER "$LOCALAPPDATA\Programs\Tarvelon (32-bit)"
  !define REG_VIEW ""  ; the 32-bit setup's own view, on any Windows
  ; Earlier 32-bit setups registered the program under the plain name.
  !define LEGACY_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvelon"
!endif
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
!define ADMINS "*S-1-5-32-544:(OI)(CI)F"
!define SYSTEM "*S-1-5-18:(OI)(CI)F"
!define USERS_READ "*S-1-5-32-545:(OI)(CI)RX"

Name "${PRODUCT} ${VERSION}"
Caption "${PRODUCT} ${VERSION} Setup"
UninstallCaption "${PRODUCT} ${VERSION} Uninstall"
BrandingText "${PRODUCT} ${VERSION} - ${MAKER}"
OutFile "${OUTFILE}"
RequestExecutionLevel user
; Sharp text at any display scale: the setup's pages follow the system's scale.
ManifestDPIAware true
SetCompressor /SOLID lzma
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1033 "CompanyName" "${MAKER}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "${MAKER}"
VIAddVersionKey /LANG=1033 "FileDescription" "${PRODUCT} ${VERSION} Setup and Uninstall (${BITS} Windows)"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"

!include "MUI2.nsh"
!include "LogicLib.nsh"
!include "FileFunc.nsh"
!include "nsDialogs.nsh"
!include "x64.nsh"

Var AllUsers   ; 1: installed for all users
Var Upgrade    ; 1: an installation was found, and this setup brings it up to date
Var DirGiven   ; the folder named with /D= on the command line
Var IsAdmin    ; 1: the setup runs with an administrator's rights
Var RadioOwn
Var RadioAll
Var DataNote   ; what the uninstaller did with the data folder

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!ifdef PICTURE  ; the tall picture of the first and last pages
  !define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
  !define MUI_UNWELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!endif
!define MUI_WELCOMEPAGE_TITLE "Welcome to ${PRODUCT} ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "This setup installs ${PRODUCT} ${VERSION}, the security companion that checks your system files, the registry's start-up places and the files Windows will change at its next start.$\r$\n$\r$\nClose Tarvelon before you go on, if it is running.$\r$\n$\r$\nClick Next to continue."
!insertmacro MUI_PAGE_WELCOME
Page custom WhoPage WhoPageLeave
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipOnUpgrade
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "${PRODUCT} ${VERSION} is installed"
!define MUI_FINISHPAGE_TEXT "Tarvelon is in $INSTDIR.$\r$\n$\r$\nOn its first start it asks to record the Windows system directory: answer Yes when you are sure the computer is clean."
!define MUI_FINISHPAGE_TEXT_LARGE
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\Help\first-steps.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the first steps"
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_TOP "${PRODUCT} ${VERSION} will be removed from $INSTDIR. You are asked whether your settings, baselines and reports in Data\ go as well."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!define MUI_FINISHPAGE_TITLE "${PRODUCT} ${VERSION} is removed"
!define MUI_FINISHPAGE_TEXT "$DataNote"
!insertmacro MUI_UNPAGE_FINISH
!insertmacro MUI_LANGUAGE "English"

; The account's rights, as the setup runs: administrators only while elevated.
!macro FindRights
  StrCpy $IsAdmin 0
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    StrCpy $IsAdmin 1
  ${EndIf}
!macroend

; Ends the setup with `code`, after `text` (not shown when silent).
!macro Refuse text code
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${code}
  Quit
!macroend

Function .onInit
  !if ${ARCH} == "x64"
    ${IfNot} ${RunningX64}
      !insertmacro Refuse "This setup installs Tarvelon for 64-bit Windows, and this Windows is 32-bit. Please use Tarvelon-${VERSION}-setup-x86.exe." 4
    ${EndIf}
  !endif
  StrCpy $DirGiven $INSTDIR
  ${REG_VIEW}
  !insertmacro FindRights
  StrCpy $AllUsers 0
  StrCpy $Upgrade 0
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == ""
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    !ifdef LEGACY_KEY
      ${If} $0 == ""
        ReadRegStr $0 HKLM "${LEGACY_KEY}" "InstallLocation"
      ${EndIf}
    !endif
    ${If} $0 != ""
      StrCpy $AllUsers 1
    ${EndIf}
  ${EndIf}
  ${If} $0 != ""
    ; An upgrade goes where Tarvelon is, in the same way: no second copy.
    StrCpy $Upgrade 1
    StrCpy $INSTDIR $0
  ${Else}
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/AllUsers" $2
    ${IfNot} ${Errors}
      StrCpy $AllUsers 1
    ${EndIf}
  ${EndIf}
  ${If} $AllUsers == 1
  ${AndIf} $IsAdmin != 1
    ${If} $Upgrade == 1
      !insertmacro Refuse "Tarvelon is installed for all users in $INSTDIR. Only an administrator can bring it up to date: start this setup again with $\"Run as administrator$\"." 5
    ${EndIf}
    !insertmacro Refuse "Only an administrator can install Tarvelon for all users: start this setup with $\"Run as administrator$\", or leave out /AllUsers to install it for yourself." 5
  ${EndIf}
  Call TakeMode
FunctionEnd

; The shell's folders of the chosen way, and its folder unless /D= named one
; or an installation was found.
Function TakeMode
  ${If} $AllUsers == 1
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
  ${If} $Upgrade != 1
  ${AndIf} $DirGiven == ""
    StrCpy $INSTDIR "${OWN_FOLDER}"
    ${If} $AllUsers == 1
      StrCpy $INSTDIR "${ALL_USERS_FOLDER}"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function SkipOnUpgrade
  ${If} $Upgrade == 1
    Abort
  ${EndIf}
FunctionEnd

Function WhoPage
  ${If} $Upgrade == 1
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "Who uses Tarvelon?" "Tarvelon keeps its settings, baselines and reports beside the program."
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 0 100% 12u "Only &me (recommended)"
  Pop $RadioOwn
  ${NSD_CreateLabel} 12u 13u 95% 26u "No administrator rights are needed. Tarvelon goes into your own programs folder, and only you and the administrators can change what it trusts and which scanners it starts."
  Pop $0
  ${NSD_CreateRadioButton} 0 46u 100% 12u "&Anyone who uses this computer"
  Pop $RadioAll
  ${NSD_CreateLabel} 12u 59u 95% 26u "Tarvelon goes into Program Files. Everybody may run it, but only administrators can change its settings and baselines, so an administrator makes its first scan."
  Pop $0
  ${If} $IsAdmin != 1
    EnableWindow $RadioAll 0
    ${NSD_CreateLabel} 12u 90u 95% 18u "To install Tarvelon for everybody, close this setup and start it again with $\"Run as administrator$\"."
    Pop $0
  ${EndIf}
  ${If} $AllUsers == 1
    ${NSD_Check} $RadioAll
  ${Else}
    ${NSD_Check} $RadioOwn
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function WhoPageLeave
  ${NSD_GetState} $RadioAll $0
  StrCpy $AllUsers 0
  ${If} $0 == ${BST_CHECKED}
    StrCpy $AllUsers 1
  ${EndIf}
  Call TakeMode
FunctionEnd

; A running Tarvelon keeps its program file open: nothing is replaced or
; removed while it runs. Interactively the user closes it and retries; a
; silent run ends with exit code 3 and leaves everything as it was.
!macro RefuseWhileRunning un
Function ${un}RefuseWhileRunning
  retry:
  IfFileExists "$INSTDIR\TarvelonLow.exe" 0 free
  ClearErrors
  FileOpen $0 "$INSTDIR\TarvelonLow.exe" a
  IfErrors 0 close
  MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Tarvelon is running from $INSTDIR.$\r$\n$\r$\nClose it (also a check at log-on or Secure Shut Down that is under way), then click Retry." /SD IDCANCEL IDRETRY retry
  SetErrorLevel 3
  Quit
  close:
  FileClose $0
  free:
FunctionEnd
!macroend
!insertmacro RefuseWhileRunning ""
!insertmacro RefuseWhileRunning "un."

; The SID of the account the setup runs for, as text, in $0.
Function CurrentUserSid
  StrCpy $0 ""
  System::Call "kernel32::GetCurrentProcess() p .r1"
  System::Call "advapi32::OpenProcessToken(p r1, i 8, *p .r1) i .r2"
  ${If} $2 != 0
    System::Alloc 512
    Pop $3
    System::Call "advapi32::GetTokenInformation(p r1, i 1, p r3, i 512, *i .r4) i .r2"
    ${If} $2 != 0
      System::Call "*$3(p .r4)"
      System::Call "advapi32::ConvertSidToStringSid(p r4, *p .r5) i .r2"
      ${If} $2 != 0
        System::Call "*$5(&t256 .r0)"
        System::Call "kernel32::LocalFree(p r5)"
      ${EndIf}
    ${EndIf}
    System::Free $3
    System::Call "kernel32::CloseHandle(p r1)"
  ${EndIf}
FunctionEnd

; The folder's rights: its own list, inherited by everything in it, and
; whatever an earlier setup granted (Data\ modifiable by every user) gone.
Function ProtectFolder
  ${If} $AllUsers == 1
    StrCpy $1 "${ADMINS} ${SYSTEM} ${USERS_READ}"
  ${Else}
    Call CurrentUserSid
    StrCpy $1 "*$0:(OI)(CI)F ${ADMINS} ${SYSTEM}"
  ${EndIf}
  DetailPrint "Rights of $INSTDIR: $1"
  nsExec::Exec '"$SYSDIR\icacls.exe" "$INSTDIR" /reset /T /C /Q'
  Pop $0
  nsExec::Exec '"$SYSDIR\icacls.exe" "$INSTDIR" /inheritance:r /grant:r $1 /C /Q'
  Pop $0
  ${If} $0 != 0
    ; Windows XP has no icacls: its cacls takes back the grant to all users.
    nsExec::Exec '"$SYSDIR\cmd.exe" /c echo Y| "$SYSDIR\cacls.exe" "$INSTDIR\Data" /T /E /R Users'
    Pop $0
  ${EndIf}
FunctionEnd

Section "Tarvelon"
  Call RefuseWhileRunning
  ${If} $Upgrade == 1
    DetailPrint "Bringing Tarvelon in $INSTDIR up to ${VERSION}"
  ${EndIf}
  RMDir /r "$INSTDIR\Help"
  SetOutPath "$INSTDIR"
  File "/oname=TarvelonLow.exe" "${PROGRAM}"
  File "${DOCS}\LICENSE.txt"
  File "${DOCS}\NOTICES.txt"
  File "${DOCS}\CHANGELOG.md"
  SetOutPath "$INSTDIR\Help"
  File /r "${HELP}\*.*"
  SetOutPath "$INSTDIR"
  CreateDirectory "$INSTDIR\Data"
  CreateDirectory "$INSTDIR\Data\Log"
  Call ProtectFolder

  WriteUninstaller "$INSTDIR\Uninstall.exe"
  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Tarvelon.lnk" "$INSTDIR\TarvelonLow.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Secure Shut Down.lnk" "$INSTDIR\TarvelonLow.exe" "/s"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Help.lnk" "$INSTDIR\Help\index.html"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Uninstall Tarvelon.lnk" "$INSTDIR\Uninstall.exe"

  ; SHCTX: the user's own list of programs, or the machine's.
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "${MAKER}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TarvelonLow.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "HelpLink" "${WEB_PAGE}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "URLInfoAbout" "${WEB_PAGE}"
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  !ifdef LEGACY_KEY
    ReadRegStr $0 HKLM "${LEGACY_KEY}" "InstallLocation"
    ${If} $0 == $INSTDIR
      DeleteRegKey HKLM "${LEGACY_KEY}"
    ${EndIf}
  !endif
SectionEnd

Function un.onInit
  ${REG_VIEW}
  !insertmacro FindRights
  StrCpy $AllUsers 1
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    StrCpy $AllUsers 0
    SetShellVarContext current
  ${ElseIf} $IsAdmin != 1
    !insertmacro Refuse "Tarvelon is installed for all users in $INSTDIR. Only an administrator can remove it: start Uninstall with $\"Run as administrator$\"." 5
  ${Else}
    SetShellVarContext all
  ${EndIf}
FunctionEnd

; Deletes the shortcut `path` when it starts this copy of Tarvelon: one that
; starts another copy is that copy's.
Function un.RemoveOwnShortcut
  Exch $R0
  Push $R1
  Push $R2
  Push $R3
  Push $R4
  IfFileExists $R0 0 done
  StrCpy $R4 "$INSTDIR\TarvelonLow.exe"
  System::Call "ole32::CoCreateInstance(g '{00021401-0000-0000-C000-000000000046}', p 0, i 1, g '{000214F9-0000-0000-C000-000000000046}', *p .R1) i .R3"
  IntCmp $R3 0 0 done done
  System::Call "$R1->0(g '{0000010b-0000-0000-C000-000000000046}', *p .R2) i .R3"
  ${If} $R3 == 0
    System::Call "$R2->5(w R0, i 0) i .R3"
    ${If} $R3 == 0
      ; The path as stored (SLGP_RAWPATH): resolved, the 32-bit uninstaller
      ; would be shown the 64-bit Program Files as the 32-bit one.
      System::Call "$R1->3(w .R3, i ${NSIS_MAX_STRLEN}, p 0, i 4)"
      ${If} $R3 == $R4
        Delete $R0
        DetailPrint "Removed $R0"
      ${EndIf}
    ${EndIf}
    System::Call "$R2->2()"
  ${EndIf}
  System::Call "$R1->2()"
  done:
  Pop $R4
  Pop $R3
  Pop $R2
  Pop $R1
  Pop $R0
FunctionEnd

!macro RemoveOwnShortcuts
  Push "$SMSTARTUP\Tarvelon.lnk"
  Call un.RemoveOwnShortcut
  Push "$DESKTOP\SecureShutDown.lnk"
  Call un.RemoveOwnShortcut
!macroend

Section "Uninstall"
  Call un.RefuseWhileRunning
  Delete "$INSTDIR\TarvelonLow.exe"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\NOTICES.txt"
  Delete "$INSTDIR\CHANGELOG.md"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir /r "$INSTDIR\Help"
  Delete "$INSTDIR\SecureShutDown.lnk"
  RMDir /r "$SMPROGRAMS\${PRODUCT}"

  ; The shortcuts the program made (Auto-Load in a Startup folder, Secure
  ; Shut Down on a Desktop), in the user's and in all users' folders.
  SetShellVarContext current
  !insertmacro RemoveOwnShortcuts
  SetShellVarContext all
  !insertmacro RemoveOwnShortcuts
  ${If} $AllUsers != 1
    SetShellVarContext current
  ${EndIf}

  ; Baselines and reports are the user's: asked for, and kept when silent.
  StrCpy $DataNote "Tarvelon has been removed from your computer."
  IfFileExists "$INSTDIR\Data\*.*" 0 entry
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
    "Also remove your Tarvelon data: the settings, the baselines, the registry snapshot and the reports in$\r$\n$INSTDIR\Data?" \
    /SD IDNO IDNO kept
  RMDir /r "$INSTDIR\Data"
  Goto entry
kept:
  StrCpy $DataNote "$DataNote$\r$\n$\r$\nYour settings, baselines, registry snapshot and reports were kept in $INSTDIR\Data. A new installation into $INSTDIR goes on with them; delete the folder when you no longer need them."
  DetailPrint "Kept your Tarvelon data in $INSTDIR\Data"
entry:
  ; The entry goes last: once it is gone, so is everything else.
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  RMDir "$INSTDIR"
SectionEnd
