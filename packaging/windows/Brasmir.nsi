; The installer, for the one user who runs it: no administrator's rights, nothing outside of the user's own folders and
; the user's own part of the registry. Made by make-packages, which defines VERSION, SOURCE (the program's folder),
; ICON, OUTPUT, and FILES and REMOVE, the lists of what is installed and how it is removed again.
;
; Brasmir-VERSION-setup.exe /S installs in silence, /D=C:\... (last) somewhere else.

!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Brasmir"
!define SETTINGS_KEY "Software\Orvane\Tidorra"

Unicode true
Target amd64-unicode
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel user
Name "Brasmir"
OutFile "${OUTPUT}"
Icon "${ICON}"
UninstallIcon "${ICON}"
BrandingText "Brasmir ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Tidorra"
; Where an earlier version lies.
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Tidorra"
VIAddVersionKey "FileDescription" "Installs Brasmir"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" ""

!include "LogicLib.nsh"
!include "FileFunc.nsh"
!include "WinMessages.nsh"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; A program that runs can't be written. The scheduler is told to end, by its window, and given time for the file that it
; is at; the main program is the user's to close. $R0 is 1 if the scheduler ran.
!macro RefuseWhileRunning un
Function ${un}RefuseWhileRunning
  StrCpy $R0 0
  FindWindow $0 "Chronel" ""
  ${If} $0 <> 0
    StrCpy $R0 1
    SendMessage $0 ${WM_CLOSE} 0 0 /TIMEOUT=5000
    ${For} $1 1 100
      FindWindow $0 "Chronel" ""
      ${If} $0 = 0
        ${Break}
      ${EndIf}
      Sleep 100
    ${Next}
  ${EndIf}
  again:
  ClearErrors
  ${If} ${FileExists} "$INSTDIR\Brasmir.exe"
    FileOpen $0 "$INSTDIR\Brasmir.exe" a
    ${If} ${Errors}
      MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Brasmir is running. Please close it first." /SD IDCANCEL IDRETRY again
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
FunctionEnd
!macroend
!insertmacro RefuseWhileRunning ""
!insertmacro RefuseWhileRunning "un."

Section
  Call RefuseWhileRunning
  SetOutPath "$INSTDIR"
  !include "${FILES}"
  ; The folders that the program writes into.
  CreateDirectory "$INSTDIR\Temp"
  CreateDirectory "$INSTDIR\Backup"
  CreateDirectory "$INSTDIR\Reports"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  SetOutPath "$INSTDIR"
  CreateDirectory "$SMPROGRAMS\Tidorra"
  CreateShortCut "$SMPROGRAMS\Tidorra\Brasmir.lnk" "$INSTDIR\Brasmir.exe"
  CreateShortCut "$SMPROGRAMS\Tidorra\Help.lnk" "$INSTDIR\Help\Tidorra.chm"
  CreateShortCut "$SMPROGRAMS\Tidorra\Uninstall.lnk" "$INSTDIR\Uninstall.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Brasmir"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Brasmir.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Orvane"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" "$0"
  ${If} $R0 = 1
    Exec '"$INSTDIR\Chronel.exe"'
  ${EndIf}
SectionEnd

; A start entry of the program's, if it starts what lies here.
!macro RemoveStartEntry name program
  ReadRegStr $0 HKCU "${RUN_KEY}" "${name}"
  ${If} $0 == "$INSTDIR\${program}"
    DeleteRegValue HKCU "${RUN_KEY}" "${name}"
  ${EndIf}
!macroend

; File by file, and folders only where nothing of the user's own is left in them: backups, reports, lists and plug-ins
; stay.
Section "Uninstall"
  Call un.RefuseWhileRunning
  !include "${REMOVE}"
  RMDir "$INSTDIR\Temp"
  RMDir "$INSTDIR\Backup"
  RMDir "$INSTDIR\Reports"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
  RMDir "$LOCALAPPDATA\Tidorra\Claims"
  RMDir "$LOCALAPPDATA\Tidorra"
  Delete "$SMPROGRAMS\Tidorra\Brasmir.lnk"
  Delete "$SMPROGRAMS\Tidorra\Help.lnk"
  Delete "$SMPROGRAMS\Tidorra\Uninstall.lnk"
  RMDir "$SMPROGRAMS\Tidorra"
  !insertmacro RemoveStartEntry "Brasmir" "Brasmir.exe"
  !insertmacro RemoveStartEntry "Chronel" "Chronel.exe"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  MessageBox MB_YESNO|MB_DEFBUTTON2|MB_ICONQUESTION "Remove the settings as well?" /SD IDNO IDNO keep
  DeleteRegKey HKCU "${SETTINGS_KEY}"
  DeleteRegKey /ifempty HKCU "Software\Orvane"
  keep:
SectionEnd
