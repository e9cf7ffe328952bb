; The installer, for the user alone and without administrator rights. scripts/package.sh gives:
;   VERSION    as 3.0.0
;   BITS       32 or 64
;   STAGE      the folder whose files are installed
;   LIST       a file with the macros QM_INSTALL_FILES and QM_DELETE_FILES, which name these files,
;              and QM_SIZE_KB, their size
;   OUT        the installer to make
;   SIGN       a command that signs the file named after it, where there is one
; A silent installation: /S, with /NOASSOC to leave .qmk files alone, and as the last word
; /D=FOLDER, unquoted, for another folder. Exit codes: 0 done, 1 given up by the user, 2 the program
; is running, 3 a file could not be written (which a user is asked about).

Unicode true
ManifestDPIAware true
; A picture of a page would bring along the time at which its file got into this folder.
SetDateSave off
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include x64.nsh
!include "${LIST}"

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Quillmark"
!define CLASSES_KEY "Software\Classes"
!define PROGID "Quillmark.Account"
!define OPEN_COMMAND '"$INSTDIR\quillmark.exe" "%1"'
!define SAMPLE "$INSTDIR\household.qmk"

Name "Quillmark"
OutFile "${OUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Quillmark"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"
SetCompressor /SOLID lzma
BrandingText "Quillmark ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Quillmark"
VIAddVersionKey "CompanyName" "Tarn Software"
VIAddVersionKey "FileDescription" "Quillmark setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "The Quillmark authors"

!ifdef SIGN
!finalize '${SIGN} "%1"' = 0
!uninstfinalize '${SIGN} "%1"' = 0
!endif

!define MUI_ICON "resources/pictures/quillmark.ico"
!define MUI_UNICON "resources/pictures/quillmark.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "resources/pictures/setup_side.bmp"
!define MUI_FINISHPAGE_RUN "$INSTDIR\quillmark.exe"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "Quillmark will be taken off this computer. \
Your accounts (the .qmk files) and your settings stay."
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_LICENSE "LICENSE"
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; What the installer and the uninstaller share; the latter's functions have names with "un.".
!macro QM_SHARED_FUNCTIONS PREFIX

; Sets $0 to 1 while the program is running. The mutex of a running program is named after the class
; of its window, which holds the address that Windows loaded it to. A program without a window yet,
; or on another desktop, is noticed by its file: as long as it runs, opening the file for writing
; gives ERROR_SHARING_VIOLATION. Any other failure has another cause, which closing cannot mend.
Function ${PREFIX}FindRunning
  StrCpy $0 0
  StrCpy $1 "$INSTDIR\quillmark.exe"
  System::Call 'kernel32::CreateFileW(w r1, i 0x40000000, i 7, p 0, i 3, i 0, p 0) i .r2 ?e'
  Pop $3
  ${If} $2 <> -1
    System::Call 'kernel32::CloseHandle(p r2)'
  ${ElseIf} $3 = 32
    StrCpy $0 1
  ${EndIf}
  StrCpy $1 0
  ${Do}
    FindWindow $1 "" "" 0 $1
    ${If} $1 = 0
      ${ExitDo}
    ${EndIf}
    System::Call 'user32::GetClassNameW(p r1, w .r2, i ${NSIS_MAX_STRLEN})'
    StrCpy $3 $2 10
    ${If} $3 == "Quillmark:"
      System::Call 'kernel32::OpenMutexW(i 0x100000, i 0, w "vmutex$2") p .r4 ?e'
      Pop $5
      ${If} $4 P<> 0
        System::Call 'kernel32::CloseHandle(p r4)'
        StrCpy $0 1
      ${ElseIf} $5 = 5
        ; Access is denied: an administrator's program has it.
        StrCpy $0 1
      ${EndIf}
    ${EndIf}
  ${Loop}
FunctionEnd

Function ${PREFIX}WaitUntilClosed
  ${Do}
    Call ${PREFIX}FindRunning
    ${If} $0 = 0
      ${ExitDo}
    ${EndIf}
    ${If} ${Silent}
      SetErrorLevel 2
      Quit
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
      "Quillmark is running. Save your accounts, close it, and choose Retry." IDCANCEL`
      SetErrorLevel 1
      Quit
    ${EndIf}
  ${Loop}
FunctionEnd

; Sets $0 to the time of the sample, and to nothing where there is none.
Function ${PREFIX}ReadSampleTime
  StrCpy $0 ""
  ${If} ${FileExists} "${SAMPLE}"
    GetFileTime "${SAMPLE}" $1 $2
    StrCpy $0 "$1 $2"
  ${EndIf}
FunctionEnd

; Sets $0 to 1 where the sample is the user's: it was saved since it was installed, or did not come
; from here.
Function ${PREFIX}IsSampleChanged
  Call ${PREFIX}ReadSampleTime
  ReadRegStr $1 HKCU "${UNINSTALL_KEY}" "SampleTime"
  ${If} $0 == ""
  ${OrIf} $0 == $1
    StrCpy $0 0
  ${Else}
    StrCpy $0 1
  ${EndIf}
FunctionEnd
!macroend
!insertmacro QM_SHARED_FUNCTIONS ""
!insertmacro QM_SHARED_FUNCTIONS "un."

; A silent installation has no user who was asked and chose to ignore it.
Function GiveUpOnErrors
  ${If} ${Errors}
  ${AndIf} ${Silent}
    SetErrorLevel 3
    Quit
  ${EndIf}
FunctionEnd

Section "Quillmark" SectionProgram
  SectionIn RO
  Call WaitUntilClosed
  SetOutPath "$INSTDIR"
  SetOverwrite on
  SetDateSave on
  ClearErrors
  !insertmacro QM_INSTALL_FILES
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call GiveUpOnErrors
  Call IsSampleChanged
  ${If} $0 = 0
    ClearErrors
    File "${STAGE}/household.qmk"
    Call GiveUpOnErrors
    Call ReadSampleTime
    WriteRegStr HKCU "${UNINSTALL_KEY}" "SampleTime" "$0"
  ${EndIf}
  CreateShortcut "$SMPROGRAMS\Quillmark.lnk" "$INSTDIR\quillmark.exe"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Quillmark"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\quillmark.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Tarn Software"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${QM_SIZE_KB}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Open .qmk files with Quillmark" SectionAssociation
  WriteRegStr HKCU "${CLASSES_KEY}\${PROGID}" "" "Quillmark Account"
  WriteRegStr HKCU "${CLASSES_KEY}\${PROGID}\DefaultIcon" "" "$INSTDIR\quillmark.exe,1"
  WriteRegStr HKCU "${CLASSES_KEY}\${PROGID}\shell\open\command" "" '${OPEN_COMMAND}'
  ; What the extension belonged to before comes back when the program goes.
  ReadRegStr $0 HKCU "${CLASSES_KEY}\.qmk" ""
  ${If} $0 != "${PROGID}"
  ${AndIf} $0 != ""
    WriteRegStr HKCU "${CLASSES_KEY}\${PROGID}" "Before" "$0"
  ${EndIf}
  WriteRegStr HKCU "${CLASSES_KEY}\.qmk" "" "${PROGID}"
  ${RefreshShellIcons}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionProgram} "The program, its help and a sample account."
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionAssociation} \
    "A double click on an account opens it in Quillmark."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

Function .onInit
  !if ${BITS} == 64
    ${IfNot} ${RunningX64}
      MessageBox MB_ICONSTOP \
        "This is Quillmark for 64-bit Windows. Take the other one for this computer." /SD IDOK
      SetErrorLevel 1
      Quit
    ${EndIf}
  !endif
  ; An update leaves the files of accounts alone where the installation before it did.
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ReadRegStr $1 HKCU "${CLASSES_KEY}\${PROGID}\shell\open\command" ""
  ${If} $0 != ""
  ${AndIf} $1 == ""
    SectionSetFlags ${SectionAssociation} 0
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/NOASSOC" $1
  ${IfNot} ${Errors}
    SectionSetFlags ${SectionAssociation} 0
  ${EndIf}
FunctionEnd

; What belongs to another program by now, or to an installation in another folder, stays.
Function un.RemoveAssociation
  ReadRegStr $0 HKCU "${CLASSES_KEY}\${PROGID}\shell\open\command" ""
  ${If} $0 != '${OPEN_COMMAND}'
    Return
  ${EndIf}
  ReadRegStr $0 HKCU "${CLASSES_KEY}\.qmk" ""
  ${If} $0 == "${PROGID}"
    ReadRegStr $1 HKCU "${CLASSES_KEY}\${PROGID}" "Before"
    ${If} $1 != ""
      WriteRegStr HKCU "${CLASSES_KEY}\.qmk" "" "$1"
    ${Else}
      DeleteRegValue HKCU "${CLASSES_KEY}\.qmk" ""
      DeleteRegKey /ifempty HKCU "${CLASSES_KEY}\.qmk"
    ${EndIf}
  ${EndIf}
  DeleteRegKey HKCU "${CLASSES_KEY}\${PROGID}"
  ${un.RefreshShellIcons}
FunctionEnd

Section "Uninstall"
  Call un.WaitUntilClosed
  Call un.RemoveAssociation
  Delete "$SMPROGRAMS\Quillmark.lnk"
  !insertmacro QM_DELETE_FILES
  Call un.IsSampleChanged
  ${If} $0 = 0
    Delete "${SAMPLE}"
  ${EndIf}
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  Delete "$INSTDIR\uninstall.exe"
  ; What the user put there stays, and the folder with it.
  RMDir "$INSTDIR"
SectionEnd
