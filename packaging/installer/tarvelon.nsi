; The Tarvelon installer. Built by tools/make-release.sh with:
;   /DVERSION=<x.y.z> /DARCH=<x64|x86> /DPROGRAM=<TarvelonLow.exe> /DHELP=<help folder>
;   /DICON=<icon> /DOUTFILE=<installer>
; It installs the program file and its Help folder, makes Data\ writable for the
; machine's users (the program keeps its baselines and reports there), adds a
; Start menu folder, and registers its uninstaller with Add/Remove Programs. The
; program itself keeps no registry key; these are the installer's.

Unicode true
!if ${ARCH} == "x64"
  Target amd64-unicode
  !define PROGRAMS_FOLDER "$PROGRAMFILES64"
!else
  Target x86-unicode
  !define PROGRAMS_FOLDER "$PROGRAMFILES"
!endif

!define PRODUCT "Tarvelon"
!define MAKER "Quillfen Software"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvelon"
!define USERS_SID "*S-1-5-32-545"

Name "${PRODUCT} ${VERSION}"
OutFile "${OUTFILE}"
InstallDir "${PROGRAMS_FOLDER}\${PRODUCT}"
RequestExecutionLevel admin
; Sharp text at any display scale: the setup's pages follow the system's scale.
ManifestDPIAware true
SetCompressor /SOLID lzma
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1033 "CompanyName" "${MAKER}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "${MAKER}"
VIAddVersionKey /LANG=1033 "FileDescription" "${PRODUCT} ${VERSION} Setup (${ARCH})"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"

!include "MUI2.nsh"
!include "LogicLib.nsh"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\Help\first-steps.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Show the first steps"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section "Tarvelon"
  SetShellVarContext all
  SetOutPath "$INSTDIR"
  File "/oname=TarvelonLow.exe" "${PROGRAM}"
  SetOutPath "$INSTDIR\Help"
  File /r "${HELP}\*.*"
  SetOutPath "$INSTDIR"

  ; The program writes its settings, baselines, registry snapshot and reports
  ; beside itself, so every user of the machine may change Data\.
  CreateDirectory "$INSTDIR\Data"
  CreateDirectory "$INSTDIR\Data\Log"
  nsExec::Exec '"$SYSDIR\icacls.exe" "$INSTDIR\Data" /grant ${USERS_SID}:(OI)(CI)M /T /Q'
  Pop $0
  ${If} $0 != 0
    ; Windows XP has no icacls; its cacls names the group.
    nsExec::Exec '"$SYSDIR\cmd.exe" /c echo Y| "$SYSDIR\cacls.exe" "$INSTDIR\Data" /T /E /G Users:C'
    Pop $0
  ${EndIf}

  WriteUninstaller "$INSTDIR\Uninstall.exe"

  CreateDirectory "$SMPROGRAMS\${PRODUCT}"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Tarvelon.lnk" "$INSTDIR\TarvelonLow.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Secure Shut Down.lnk" "$INSTDIR\TarvelonLow.exe" "/s"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Help.lnk" "$INSTDIR\Help\index.html"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}\Uninstall Tarvelon.lnk" "$INSTDIR\Uninstall.exe"

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${MAKER}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\TarvelonLow.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  SetShellVarContext all
  Delete "$INSTDIR\TarvelonLow.exe"
  RMDir /r "$INSTDIR\Help"
  Delete "$INSTDIR\Uninstall.exe"

  ; The shortcuts the program itself may have made: Auto-Load in the Startup
  ; folder, Secure Shut Down on a Desktop or in the program folder.
  Delete "$SMSTARTUP\Tarvelon.lnk"
  Delete "$DESKTOP\SecureShutDown.lnk"
  Delete "$INSTDIR\SecureShutDown.lnk"
  SetShellVarContext current
  Delete "$SMSTARTUP\Tarvelon.lnk"
  Delete "$DESKTOP\SecureShutDown.lnk"
  SetShellVarContext all

  RMDir /r "$SMPROGRAMS\${PRODUCT}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"

  ; Baselines and reports are the user's: asked for, and kept when silent.
  IfFileExists "$INSTDIR\Data\*.*" 0 done
  MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
    "Also remove your Tarvelon data: the settings, the baselines, the registry snapshot and the reports in$\r$\n$INSTDIR\Data?" \
    /SD IDNO IDNO done
  RMDir /r "$INSTDIR\Data"
done:
  RMDir "$INSTDIR"
SectionEnd
