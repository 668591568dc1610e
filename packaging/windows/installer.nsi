; The installer for Windows x64. packaging/windows/make calls it with:
;   VERSION, FULL_VERSION  3.0.3 and 3.0.3.2
;   STAGE                  folder with the files of the package
;   WORK                   folder with install.nsh and uninstall.nsh, which put them there and take them away
;   SIZE_KB, OUTPUT        the size of all files; the installer
;
; Options: /S without any window, /D=FOLDER (the last one, without quotes), /PATH puts the programs on
; the PATH of the machine.
;
; Exit codes: 0 done, 1 stopped by the user, 2 not possible.
Unicode true
Target amd64-unicode
Name "tolvex ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\tolvex"
RequestExecutionLevel admin
SetCompressor /SOLID lzma
ShowInstDetails nevershow
ShowUninstDetails nevershow
BrandingText "tolvex ${FULL_VERSION} (x64)"

!include LogicLib.nsh
!include Sections.nsh
!include FileFunc.nsh
!include StrFunc.nsh
${Using:StrFunc} UnStrRep

VIProductVersion "${FULL_VERSION}"
VIAddVersionKey ProductName "tolvex"
VIAddVersionKey CompanyName "tolvex"
VIAddVersionKey FileDescription "Installer of the tolvex device adapter library (x64)"
VIAddVersionKey FileVersion "${FULL_VERSION}"
VIAddVersionKey ProductVersion "${FULL_VERSION}"
VIAddVersionKey LegalCopyright ""

!define LOG_ROOT "c:\VARN"
!define LOG_FOLDER "c:\VARN\Log"
!define ADDRESS_FILE "zelkad_ip_config.ini"
!define LEVELS_FILE "NLog.ini"
; What was laid down, to tell at the end whether somebody has changed it since.
!define ORIGINALS "$INSTDIR\config\installed"
!define OWN_KEY "Software\tolvex"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\tolvex"
!define ENVIRONMENT_KEY "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"

Page components
Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; Lays a settings file down unless there is one already, be it of an earlier version or by hand.
!macro LayDown FILE FOLDER
  ${IfNot} ${FileExists} "${FOLDER}\${FILE}"
    CopyFiles /SILENT "$INSTDIR\config\${FILE}" "${FOLDER}\${FILE}"
    CreateDirectory "${ORIGINALS}"
    CopyFiles /SILENT "$INSTDIR\config\${FILE}" "${ORIGINALS}\${FILE}"
  ${EndIf}
!macroend

Section "Library, programs, documentation" MAIN
  SectionIn RO
  SetShellVarContext all
  SetRegView 64
  ClearErrors

  ; What an earlier version installed goes, its settings and logs stay.
  ReadRegStr $0 HKLM "${OWN_KEY}" "Folder"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\uninstall.exe"
    ExecWait '"$0\uninstall.exe" /S /UPDATE _?=$0' $1
    ${If} $0 != $INSTDIR
      Delete "$0\uninstall.exe"
      RMDir "$0"
    ${EndIf}
  ${EndIf}

  ClearErrors
  !include "${WORK}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    SetErrorLevel 2
    MessageBox MB_OK|MB_ICONSTOP "Not all files could be written to $INSTDIR.$\r$\nEnd the programs that \
use them, and run the installer again." /SD IDOK
    Abort
  ${EndIf}

  ; The library does not make its log folder, and whoever is at the till writes into it.
  ${IfNot} ${FileExists} "${LOG_ROOT}\*.*"
    WriteRegDWORD HKLM "${OWN_KEY}" "MadeLogRoot" 1
  ${EndIf}
  ${IfNot} ${FileExists} "${LOG_FOLDER}\*.*"
    WriteRegDWORD HKLM "${OWN_KEY}" "MadeLogFolder" 1
  ${EndIf}
  CreateDirectory "${LOG_FOLDER}"
  nsExec::Exec '"$SYSDIR\icacls.exe" "${LOG_FOLDER}" /grant *S-1-5-32-545:(OI)(CI)M'
  Pop $0

  !insertmacro LayDown "${ADDRESS_FILE}" "$INSTDIR\bin"
  !insertmacro LayDown "${LEVELS_FILE}" "${LOG_FOLDER}"

  CreateDirectory "$SMPROGRAMS\tolvex"
  SetOutPath "$INSTDIR\bin" ; the working folder of the shortcuts
  CreateShortCut "$SMPROGRAMS\tolvex\Simulator.lnk" "$INSTDIR\bin\zelkad-sim.exe"
  CreateShortCut "$SMPROGRAMS\tolvex\Command prompt.lnk" "$SYSDIR\cmd.exe" '/k tolvexctl.exe --help'
  CreateShortCut "$SMPROGRAMS\tolvex\Documentation.lnk" "$INSTDIR\docs\html\index.html"
  CreateShortCut "$SMPROGRAMS\tolvex\Uninstall.lnk" "$INSTDIR\uninstall.exe"
  SetOutPath "$INSTDIR"

  WriteRegStr HKLM "${OWN_KEY}" "Folder" "$INSTDIR"
  WriteRegStr HKLM "${OWN_KEY}" "Version" "${FULL_VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "tolvex ${VERSION} (x64)"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${FULL_VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "tolvex"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\bin\tolvexctl.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; The machine's PATH into $0. One that does not fit a text of the installer is left alone: what is written
; back would be cut. $1 is "long" then.
!macro ReadPath
  StrCpy $1 ""
  System::Call 'advapi32::RegGetValueW(p 0x80000002, w "${ENVIRONMENT_KEY}", w "Path", i 0x10000006, p 0, p 0, *i 0 .r2) i .r3'
  ReadRegStr $0 HKLM "${ENVIRONMENT_KEY}" "Path"
  StrLen $4 "$INSTDIR\bin;"
  IntOp $4 $4 * 2
  IntOp $4 $4 + $2
  ${If} $4 >= 2040
    StrCpy $1 "long"
  ${EndIf}
!macroend

; Running programs learn of it, such as the desktop that starts others.
!macro WritePath
  WriteRegExpandStr HKLM "${ENVIRONMENT_KEY}" "Path" "$0"
  System::Call 'user32::SendMessageTimeoutW(p 0xffff, i 0x1a, p 0, w "Environment", i 2, i 1000, p 0)'
!macroend

Section /o "Programs on the PATH" ON_PATH
  SetRegView 64
  ReadRegDWORD $5 HKLM "${OWN_KEY}" "OnPath"
  ${If} $5 != 1
    !insertmacro ReadPath
    ${If} $1 == "long"
      MessageBox MB_OK|MB_ICONEXCLAMATION "The PATH of this machine is too long for this installer, and was \
left as it is.$\r$\nPut $INSTDIR\bin there by hand." /SD IDOK
    ${Else}
      ${If} $0 == ""
        StrCpy $0 "$INSTDIR\bin"
      ${Else}
        StrCpy $0 "$0;$INSTDIR\bin"
      ${EndIf}
      !insertmacro WritePath
      WriteRegDWORD HKLM "${OWN_KEY}" "OnPath" 1
    ${EndIf}
  ${EndIf}
SectionEnd

Function .onInit
  SetRegView 64
  ; An update goes where the version before it is, unless told otherwise.
  ReadRegStr $0 HKLM "${OWN_KEY}" "Folder"
  ${If} $0 != ""
  ${AndIf} $INSTDIR == "$PROGRAMFILES64\tolvex"
    StrCpy $INSTDIR $0
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/PATH" $1
  ${IfNot} ${Errors}
    !insertmacro SelectSection ${ON_PATH}
  ${EndIf}
  ClearErrors
FunctionEnd

; $2 becomes "same" if the two files $0 and $1 hold the same bytes. A file that is missing equals none.
Function un.Compare
  StrCpy $2 "different"
  ClearErrors
  FileOpen $3 $0 r
  ${If} ${Errors}
    Return
  ${EndIf}
  FileOpen $4 $1 r
  ${If} ${Errors}
    FileClose $3
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileReadByte $3 $5
    ${If} ${Errors}
      StrCpy $5 "end"
    ${EndIf}
    ClearErrors
    FileReadByte $4 $6
    ${If} ${Errors}
      StrCpy $6 "end"
    ${EndIf}
    ${If} $5 != $6
      ${Break}
    ${EndIf}
    ${If} $5 == "end"
      StrCpy $2 "same"
      ${Break}
    ${EndIf}
  ${Loop}
  FileClose $3
  FileClose $4
  ClearErrors
FunctionEnd

; Takes a settings file away unless somebody has changed it.
!macro TakeAway FILE FOLDER
  StrCpy $0 "${ORIGINALS}\${FILE}"
  StrCpy $1 "${FOLDER}\${FILE}"
  Call un.Compare
  ${If} $2 == "same"
    Delete "${FOLDER}\${FILE}"
  ${EndIf}
  Delete "${ORIGINALS}\${FILE}"
!macroend

; Takes the programs off the PATH.
Function un.LeavePath
  ReadRegDWORD $5 HKLM "${OWN_KEY}" "OnPath"
  ${If} $5 != 1
    Return
  ${EndIf}
  !insertmacro ReadPath
  ${If} $1 == "long"
    MessageBox MB_OK|MB_ICONEXCLAMATION "The PATH of this machine is too long for this program, and was left \
as it is.$\r$\nTake $INSTDIR\bin out by hand." /SD IDOK
    Return
  ${EndIf}
  ${If} $0 == "$INSTDIR\bin"
    StrCpy $0 ""
  ${Else}
    ${UnStrRep} $0 "$0" ";$INSTDIR\bin" ""
  ${EndIf}
  !insertmacro WritePath
FunctionEnd

Function un.onInit
  SetRegView 64
  ; With /UPDATE the next version follows: settings, logs, folders and the PATH stay.
  ${GetParameters} $0
  ClearErrors
  StrCpy $R9 "no"
  ${GetOptions} $0 "/UPDATE" $1
  ${IfNot} ${Errors}
    StrCpy $R9 "yes"
  ${EndIf}
  ClearErrors
FunctionEnd

Section "Uninstall"
  SetShellVarContext all
  SetRegView 64

  ${If} $R9 == "no"
    !insertmacro TakeAway "${ADDRESS_FILE}" "$INSTDIR\bin"
    !insertmacro TakeAway "${LEVELS_FILE}" "${LOG_FOLDER}"
    RMDir "${ORIGINALS}"
    Call un.LeavePath
  ${EndIf}

  !include "${WORK}/uninstall.nsh"
  Delete "$SMPROGRAMS\tolvex\Simulator.lnk"
  Delete "$SMPROGRAMS\tolvex\Command prompt.lnk"
  Delete "$SMPROGRAMS\tolvex\Documentation.lnk"
  Delete "$SMPROGRAMS\tolvex\Uninstall.lnk"
  RMDir "$SMPROGRAMS\tolvex"

  ${If} $R9 == "no"
    ; Folders go only when nothing is left in them, and only those that the installer made.
    ReadRegDWORD $0 HKLM "${OWN_KEY}" "MadeLogFolder"
    ${If} $0 = 1
      RMDir "${LOG_FOLDER}"
    ${EndIf}
    ReadRegDWORD $0 HKLM "${OWN_KEY}" "MadeLogRoot"
    ${If} $0 = 1
      RMDir "${LOG_ROOT}"
    ${EndIf}
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
    DeleteRegKey HKLM "${OWN_KEY}"
    SetOutPath "$TEMP" ; lest the folder is in use
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
  ${EndIf}
SectionEnd
