; The installer of Tavix. ./release builds it and defines VERSION, FILES, OUTPUT, SITE, SIZE (in KB), and SIGN, the
; program that signs a file, if the release is signed.
;
; The installer asks for a language, shows itself in it and puts its catalogues beside the program.
; /Language=en or /Language=de chooses it, and a silent installer asks nothing: it takes the language of the
; installation that it replaces, or else that of the user.
;
; /S makes installer and uninstaller silent. The uninstaller never removes the backup folder, and removes the
; settings only if the user says so or /RemoveSettings is given. Exit status 2: Tavix is running, nothing was done.
; NSIS makes no installer of ARM64 code. Windows 11 on ARM64 runs this one, and a Tavix for x64 too.
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off
ManifestDPIAware true
RequestExecutionLevel admin

!include "MUI2.nsh"
!include "FileFunc.nsh"
!include "LogicLib.nsh"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tavix"
!define DATA "C:\MORVDataPath\TVX"

Name "Tavix"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\Tavix"
BrandingText "Tavix ${VERSION}"
!ifdef SIGN
  !finalize '"${SIGN}" "%1"' = 0
  !uninstfinalize '"${SIGN}" "%1"' = 0
!endif
VIProductVersion "${VERSION}.0"

!define MUI_ICON "${FILES}\..\icon.ico"
!define MUI_UNICON "${FILES}\..\icon.ico"
!define MUI_ABORTWARNING
!insertmacro MUI_PAGE_LICENSE "${FILES}\LICENSE.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_RESERVEFILE_LANGDLL

VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductName" "Tavix"
VIAddVersionKey /LANG=${LANG_ENGLISH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_ENGLISH} "FileDescription" "Installer of Tavix"
VIAddVersionKey /LANG=${LANG_ENGLISH} "CompanyName" "the makers of Tavix"
VIAddVersionKey /LANG=${LANG_ENGLISH} "LegalCopyright" "Copyright (C) 2026 the makers of Tavix"

LangString RUNS ${LANG_ENGLISH} "Tavix is running. Please close it, then press Retry."
LangString RUNS ${LANG_GERMAN} "Tavix läuft gerade. Bitte schließen Sie es und klicken Sie dann auf Wiederholen."
LangString NOT_WRITTEN ${LANG_ENGLISH} "Some files could not be written. Tavix is not installed."
LangString NOT_WRITTEN ${LANG_GERMAN} \
  "Einige Dateien konnten nicht geschrieben werden. Tavix ist nicht installiert."
LangString HELP_NAME ${LANG_ENGLISH} "Tavix Help"
LangString HELP_NAME ${LANG_GERMAN} "Tavix Hilfe (englisch)"
LangString REMOVE_SETTINGS ${LANG_ENGLISH} \
  "Remove your settings and junk types as well?$\r$\n$\r$\nThe backup folder stays in any case."
LangString REMOVE_SETTINGS ${LANG_GERMAN} \
  "Auch Ihre Einstellungen und Dateitypen entfernen?$\r$\n$\r$\nDer Ordner mit Sicherungen bleibt auf jeden Fall."

; Waits until Tavix isn't running: files of a running program can't be replaced.
!macro StopWhileItRuns
  StrCpy $1 0
  ${Do}
    FindWindow $0 "TavixMainWindow"
    ${If} $0 == 0
      ${Break}
    ${EndIf}
    ; Wait two seconds first: the program may have been asked to close just now.
    ${If} $1 < 20
      IntOp $1 $1 + 1
      Sleep 100
    ${ElseIf} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(RUNS)" /SD IDCANCEL IDCANCEL`
      SetErrorLevel 2
      Quit
    ${EndIf}
  ${Loop}
!macroend

; Puts the access list of the data folders into $R0: full control for the system, the administrators and the
; installing user, read access for all others, nothing inherited from the parent folder. Without it any user could
; change the data that the program of an administrator follows later.
Function AccessList
  StrCpy $R0 ""
  System::Call 'advapi32::OpenProcessToken(p -1, i 8, *p .r0) i .r1'
  ${If} $1 <> 0
    System::Alloc 256
    Pop $2
    System::Call 'advapi32::GetTokenInformation(p r0, i 1, p r2, i 256, *i .r3) i .r1'
    ${If} $1 <> 0
      System::Call '*$2(p .r3)'
      System::Call 'advapi32::ConvertSidToStringSidW(p r3, *p .r4) i .r1'
      ${If} $1 <> 0
        System::Call 'kernel32::lstrcpynW(w .r5, p r4, i 200)'
        System::Call 'kernel32::LocalFree(p r4)'
        StrCpy $R0 "(A;OICI;FA;;;$5)"
      ${EndIf}
    ${EndIf}
    System::Free $2
    System::Call 'kernel32::CloseHandle(p r0)'
  ${EndIf}
  StrCpy $R0 "D:P(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)$R0(A;OICI;0x1200a9;;;BU)"
FunctionEnd

; Creates the folder $R1 with the access list $R0, or sets the list of an existing folder. A link and its target
; keep their own lists. Failures are ignored: the program tries again at its start.
Function ProtectFolder
  System::Call 'advapi32::ConvertStringSecurityDescriptorToSecurityDescriptorW(w R0, i 1, *p .r0, p 0) i .r1'
  ${If} $1 = 0
    Return
  ${EndIf}
  ; A SECURITY_ATTRIBUTES: its size, the descriptor, bInheritHandle = FALSE, each in eight bytes.
  System::Call '*(l 24, p r0, l 0) p .r2'
  System::Call 'kernel32::CreateDirectoryW(w R1, p r2) i .r3'
  System::Free $2
  ${If} $3 = 0
    ; READ_CONTROL, WRITE_DAC, FILE_READ_ATTRIBUTES; opens a link itself, not its target.
    System::Call 'kernel32::CreateFileW(w R1, i 0x60080, i 7, p 0, i 3, i 0x02200000, p 0) p .r4'
    ${If} $4 P<> -1
      System::Alloc 64
      Pop $5
      System::Call 'kernel32::GetFileInformationByHandle(p r4, p r5) i .r6'
      System::Call '*$5(i .r7)'
      System::Free $5
      IntOp $7 $7 & 0x410
      ; Some systems open the target all the same. So the attributes of the path are tested as well.
      System::Call 'kernel32::GetFileAttributesW(w R1) i .r8'
      IntOp $8 $8 & 0x410
      ${If} $6 <> 0
      ${AndIf} $7 = 0x10
      ${AndIf} $8 = 0x10
        System::Call 'advapi32::SetKernelObjectSecurity(p r4, i 0x80000004, p r0)'
      ${EndIf}
      System::Call 'kernel32::CloseHandle(p r4)'
    ${EndIf}
  ${EndIf}
  System::Call 'kernel32::LocalFree(p r0)'
FunctionEnd

; Puts the language of the installation that is there into $LANGUAGE, if there is one.
!macro TakeInstalledLanguage
  ReadRegStr $0 HKLM "${UNINSTALL}" "Installer Language"
  ${If} $0 == ${LANG_ENGLISH}
  ${OrIf} $0 == ${LANG_GERMAN}
    StrCpy $LANGUAGE $0
  ${EndIf}
!macroend

; Settles $LANGUAGE. It begins as the language of the user, or English if that has no texts here.
Function ChooseLanguage
  !insertmacro TakeInstalledLanguage
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/Language=" $1
  ${If} $1 == "en"
    StrCpy $LANGUAGE ${LANG_ENGLISH}
  ${ElseIf} $1 == "de"
    StrCpy $LANGUAGE ${LANG_GERMAN}
  ${ElseIfNot} ${Silent}
    LangDLL::LangDialog "Tavix" "Please choose a language.$\r$\nBitte wählen Sie eine Sprache." \
      A "English" ${LANG_ENGLISH} "Deutsch" ${LANG_GERMAN} ""
    Pop $0
    ${If} $0 == "cancel"
      Abort
    ${EndIf}
    StrCpy $LANGUAGE $0
  ${EndIf}
FunctionEnd

Function .onInit
  SetRegView 64
  SetShellVarContext all
  Call ChooseLanguage
  ; Install over an existing installation, unless /D= names another folder.
  ReadRegStr $0 HKLM "${UNINSTALL}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} $INSTDIR == "$PROGRAMFILES64\Tavix"
    StrCpy $INSTDIR $0
  ${EndIf}
  !insertmacro StopWhileItRuns
FunctionEnd

; The shortcut to the help has another name in each language.
!macro RemoveHelpShortcuts
  Delete "$SMPROGRAMS\Tavix\Tavix Help.lnk"
  Delete "$SMPROGRAMS\Tavix\Tavix Hilfe (englisch).lnk"
!macroend

Section
  SetOutPath "$INSTDIR"
  SetOverwrite on
  ClearErrors
  File "${FILES}\tavix.exe"
  File "${FILES}\Help.chm"
  File "${FILES}\LICENSE.txt"
  File "${FILES}\NOTICES.txt"
  ; The catalogues beside the program are those that it shows.
  ${If} $LANGUAGE == ${LANG_GERMAN}
    File "${FILES}\lang\de\tips.dll"
    File "${FILES}\lang\de\menus.dll"
  ${Else}
    File "${FILES}\lang\en\tips.dll"
    File "${FILES}\lang\en\menus.dll"
  ${EndIf}
  SetOutPath "$INSTDIR\lang\en"
  File "${FILES}\lang\en\tips.dll"
  File "${FILES}\lang\en\menus.dll"
  SetOutPath "$INSTDIR\res"
  File "${FILES}\res\scan.htm"
  File "${FILES}\res\scan.gif"
  SetOutPath "$INSTDIR\lang\de"
  File "${FILES}\lang\de\tips.dll"
  File "${FILES}\lang\de\menus.dll"
  SetOutPath "$INSTDIR"
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "$(NOT_WRITTEN)" /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
  WriteUninstaller "$INSTDIR\uninstall.exe"

  Call AccessList
  StrCpy $R1 "C:\MORVDataPath"
  Call ProtectFolder
  ; If this folder is a link, the data folder in it is somebody else's. FILE_ATTRIBUTE_REPARSE_POINT is 0x400.
  System::Call 'kernel32::GetFileAttributesW(w R1) i .r8'
  IntOp $8 $8 & 0x400
  ${If} $8 = 0
    StrCpy $R1 "${DATA}"
    Call ProtectFolder
  ${EndIf}
  StrCpy $R1 "C:\TVXBak"
  Call ProtectFolder

  CreateDirectory "$SMPROGRAMS\Tavix"
  CreateShortcut "$SMPROGRAMS\Tavix\Tavix.lnk" "$INSTDIR\tavix.exe"
  !insertmacro RemoveHelpShortcuts
  CreateShortcut "$SMPROGRAMS\Tavix\$(HELP_NAME).lnk" "$INSTDIR\Help.chm"

  WriteRegStr HKLM "${UNINSTALL}" "DisplayName" "Tavix"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL}" "DisplayIcon" "$INSTDIR\tavix.exe"
  WriteRegStr HKLM "${UNINSTALL}" "Publisher" "the makers of Tavix"
  WriteRegStr HKLM "${UNINSTALL}" "URLInfoAbout" "${SITE}"
  WriteRegStr HKLM "${UNINSTALL}" "Installer Language" "$LANGUAGE"
  WriteRegStr HKLM "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKLM "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL}" "NoRepair" 1
SectionEnd

Function un.onInit
  SetRegView 64
  SetShellVarContext all
  !insertmacro TakeInstalledLanguage
  !insertmacro StopWhileItRuns
FunctionEnd

; Files are removed by name and folders only if they are empty, so that files of others stay.
!macro RemoveBuckets STORE
  ${For} $0 65 90
    IntFmt $1 "%c" $0
    RMDir "${DATA}\DupeFiles\${STORE}\$1"
  ${Next}
  RMDir "${DATA}\DupeFiles\${STORE}\other"
  RMDir "${DATA}\DupeFiles\${STORE}"
!macroend

Function un.RemoveSettings
  Delete "${DATA}\tvx.dll"
  Delete "${DATA}\defjunk.dll"
  Delete "${DATA}\userjunk.dll"
  Delete "${DATA}\TVX data folder, please do not delete it"
  !insertmacro RemoveBuckets "scanned"
  !insertmacro RemoveBuckets "compared"
  RMDir "${DATA}\DupeFiles"
  RMDir "${DATA}"
  RMDir "C:\MORVDataPath"
FunctionEnd

Section "Uninstall"
  Delete "$INSTDIR\tavix.exe"
  Delete "$INSTDIR\Help.chm"
  Delete "$INSTDIR\Help.chw"
  Delete "$INSTDIR\LICENSE.txt"
  Delete "$INSTDIR\NOTICES.txt"
  Delete "$INSTDIR\tips.dll"
  Delete "$INSTDIR\menus.dll"
  Delete "$INSTDIR\res\scan.htm"
  Delete "$INSTDIR\res\scan.gif"
  Delete "$INSTDIR\lang\en\tips.dll"
  Delete "$INSTDIR\lang\en\menus.dll"
  Delete "$INSTDIR\lang\de\tips.dll"
  Delete "$INSTDIR\lang\de\menus.dll"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR\lang\en"
  RMDir "$INSTDIR\lang\de"
  RMDir "$INSTDIR\lang"
  RMDir "$INSTDIR\res"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\Tavix\Tavix.lnk"
  !insertmacro RemoveHelpShortcuts
  RMDir "$SMPROGRAMS\Tavix"
  DeleteRegKey HKLM "${UNINSTALL}"

  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/RemoveSettings" $1
  ${IfNot} ${Errors}
    Call un.RemoveSettings
  ${ElseIf} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(REMOVE_SETTINGS)" /SD IDNO IDYES`
    Call un.RemoveSettings
  ${EndIf}
SectionEnd
