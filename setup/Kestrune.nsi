; The setup of Kestrune Link, for the 64-bit and the 32-bit host: scripts/make-setup.sh compiles it, with VERSION, X64 and X86
; (the two Kestrune.dll), HELP and OUTPUT.
;   /S          silent
;   /ALLUSERS   for the machine, as an administrator; otherwise for the user, without any rights
;   /D=folder   where to; the last argument, without quotation marks
; Exit status: 0 done, 1 given up by the user, 2 refused or failed. Then nothing has changed, and the reason stands in a
; message or, where it is silent, in KestruneLink-setup.log in the temporary folder.
Unicode true
Target amd64-unicode
; What is not the same in each build: the files' times.
SetDateSave off
SetCompressor /SOLID lzma
SetOverwrite try
RequestExecutionLevel user
AllowSkipFiles off

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define TITLE "Kestrune Link"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\KestruneLink"
!define LOG "$TEMP\KestruneLink-setup.log"

Name "${TITLE} ${VERSION}"
Caption "${TITLE} ${VERSION} Setup"
BrandingText "${TITLE} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir ""
ShowInstDetails show
ShowUninstDetails show
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${TITLE}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Setup of ${TITLE}"
VIAddVersionKey CompanyName "Brannock Works"
VIAddVersionKey LegalCopyright "Brannock Works"

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

Var Audience    ; what regsvr32 is told: user or machine
Var Regsvr32    ; the 32-bit one; "" where the system runs no 32-bit programs
Var Reason      ; of the last failure; "" while there is none
Var HadOlder    ; "1" when files of an earlier setup were put aside

!macro Common un

; Ends the setup or its removal with status 2, telling why.
Function ${un}Refuse
  DetailPrint "$Reason"
  FileOpen $9 "${LOG}" w
  FileWriteUTF16LE /BOM $9 "$Reason$\r$\n"
  FileClose $9
  MessageBox MB_OK|MB_ICONSTOP "$Reason" /SD IDOK
  SetErrorLevel 2
  Quit
FunctionEnd

Function ${un}FindRegsvr32
  StrCpy $Regsvr32 "$WINDIR\SysWOW64\regsvr32.exe"
  ${IfNot} ${FileExists} "$Regsvr32"
    StrCpy $Regsvr32 ""
  ${EndIf}
FunctionEnd

; Whether the host has loaded one of the files, or somebody reads the help: such a file cannot be written to. Then Reason is
; set.
Function ${un}CheckUse
  StrCpy $8 "$INSTDIR\Kestrune.dll"
  Call ${un}CheckUseOf8
  StrCpy $8 "$INSTDIR\ORIMDOORS.chm"
  Call ${un}CheckUseOf8
  StrCpy $8 "$INSTDIR\x86\Kestrune.dll"
  Call ${un}CheckUseOf8
  StrCpy $8 "$INSTDIR\x86\ORIMDOORS.chm"
  Call ${un}CheckUseOf8
FunctionEnd

Function ${un}CheckUseOf8
  ${If} ${FileExists} "$8"
    ClearErrors
    FileOpen $9 "$8" a
    ${If} ${Errors}
      StrCpy $Reason "$8 is in use. Close Orim Studio and its help, and try again. Nothing was changed."
    ${Else}
      FileClose $9
    ${EndIf}
  ${EndIf}
FunctionEnd

; Registers both files, or unregisters them ($7 = "/u"). Sets Reason when one cannot be registered.
Function ${un}Register
  StrCpy $8 "$INSTDIR\Kestrune.dll"
  ExecWait '"$SYSDIR\regsvr32.exe" /s $7 /n /i:$Audience "$8"' $9
  Call ${un}JudgeRegistration
  ${If} $Regsvr32 != ""
    StrCpy $8 "$INSTDIR\x86\Kestrune.dll"
    ExecWait '"$Regsvr32" /s $7 /n /i:$Audience "$8"' $9
    Call ${un}JudgeRegistration
  ${EndIf}
FunctionEnd

Function ${un}JudgeRegistration
  ${If} $9 == 0
    Return
  ${ElseIf} $9 == 3
    StrCpy $Reason "$8 cannot be loaded on this machine (regsvr32: 3)."
  ${Else}
    StrCpy $Reason "$8 cannot be registered: the registry cannot be written (regsvr32: $9)."
  ${EndIf}
FunctionEnd

!macroend
!insertmacro Common ""
!insertmacro Common "un."

!macro UseAudience audience
  StrCpy $Audience ${audience}
  SetRegView 64
  !if "${audience}" == "machine"
    SetShellVarContext all
  !else
    SetShellVarContext current
  !endif
!macroend

Function .onInit
  Call FindRegsvr32
  Delete "${LOG}"
  !insertmacro UseAudience user
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/ALLUSERS" $1
  ${IfNot} ${Errors}
    !insertmacro UseAudience machine
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 != "Admin"
      StrCpy $Reason "Setting up ${TITLE} for all users takes an administrator. Start the setup from a prompt that runs as administrator."
      Call Refuse
    ${EndIf}
  ${EndIf}
  ; A folder that cannot be, such as one below a file, has been dropped silently.
  System::Call 'kernel32::GetCommandLine() t .r0'
  ClearErrors
  ${GetOptions} $0 "/D=" $1
  ${IfNot} ${Errors}
  ${AndIf} $INSTDIR == ""
    StrCpy $Reason "The folder $1 cannot be made. Choose another one. Nothing was changed."
    Call Refuse
  ${EndIf}
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR SHCTX "${ENTRY}" InstallLocation
  ${EndIf}
  ${If} $INSTDIR == ""
    ${If} $Audience == machine
      StrCpy $INSTDIR "$PROGRAMFILES64\${TITLE}"
    ${Else}
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${TITLE}"
    ${EndIf}
  ${EndIf}
FunctionEnd

; Where the files of one host lie. The help file is looked for beside the DLL.
!macro PutFiles folder dll
  CreateDirectory "${folder}"
  SetOutPath "${folder}"
  File "/oname=Kestrune.dll" "${dll}"
  File "/oname=ORIMDOORS.chm" "${HELP}"
!macroend

!macro RemoveFiles folder
  Delete "${folder}\Kestrune.dll"
  Delete "${folder}\ORIMDOORS.chm"
  RMDir "${folder}"
!macroend

!macro MoveFiles from to
  CreateDirectory "${to}\x86"
  Rename "${from}\Kestrune.dll" "${to}\Kestrune.dll"
  Rename "${from}\ORIMDOORS.chm" "${to}\ORIMDOORS.chm"
  Rename "${from}\x86\Kestrune.dll" "${to}\x86\Kestrune.dll"
  Rename "${from}\x86\ORIMDOORS.chm" "${to}\x86\ORIMDOORS.chm"
  RMDir "${from}\x86"
!macroend

; Sets Reason unless the file $8 is for the machine whose number begins with the byte $7. regsvr32 would hand it on to the
; other regsvr32, and say that all is well.
Function CheckKind
  FileOpen $9 "$8" r
  FileSeek $9 60  ; where the file says where its header is
  FileReadByte $9 $0
  FileReadByte $9 $1
  IntOp $1 $1 << 8
  IntOp $0 $0 + $1
  IntOp $0 $0 + 4
  FileSeek $9 $0
  FileReadByte $9 $0
  FileClose $9
  ${If} $0 != $7
    StrCpy $Reason "$8 cannot be loaded on this machine: it is of the wrong bitness. Nothing was changed."
  ${EndIf}
FunctionEnd

Function RemoveNew
  SetOutPath "$TEMP"  ; a program's own folder cannot be removed
  !insertmacro RemoveFiles "$INSTDIR\new\x86"
  !insertmacro RemoveFiles "$INSTDIR\new"
FunctionEnd

; Takes back what was installed, and puts what was there before in its place again.
Function RollBack
  StrCpy $6 "$Reason"
  StrCpy $7 "/u"
  Call Register
  !insertmacro RemoveFiles "$INSTDIR\x86"
  !insertmacro RemoveFiles "$INSTDIR"
  ${If} $HadOlder == "1"
    !insertmacro MoveFiles "$INSTDIR\old" "$INSTDIR"
    RMDir "$INSTDIR\old"
    StrCpy $7 ""
    Call Register
  ${ElseIf} $Audience == machine
    ReadRegStr $0 HKCU "${ENTRY}" InstallLocation
    ${If} $0 != ""  ; what the user alone had, and what has made way
      StrCpy $5 "$INSTDIR"
      StrCpy $INSTDIR "$0"
      StrCpy $Audience user
      StrCpy $7 ""
      Call Register
      StrCpy $INSTDIR "$5"
    ${EndIf}
  ${EndIf}
  StrCpy $Reason "$6 Everything is as it was before."
FunctionEnd

Section
  Call CheckUse
  ${If} $Reason != ""
    Call Refuse
  ${EndIf}

  ; All new files are there before an old one is touched.
  ClearErrors
  CreateDirectory "$INSTDIR"
  !insertmacro PutFiles "$INSTDIR\new" "${X64}"
  !insertmacro PutFiles "$INSTDIR\new\x86" "${X86}"
  ${If} ${Errors}
    Call RemoveNew
    RMDir "$INSTDIR"
    StrCpy $Reason "The folder $INSTDIR cannot be written to. Choose another one, or ask for the right to write there. Nothing was changed."
    Call Refuse
  ${EndIf}
  StrCpy $7 100  ; 0x8664, x86_64
  StrCpy $8 "$INSTDIR\new\Kestrune.dll"
  Call CheckKind
  StrCpy $7 76  ; 0x014c, i386
  StrCpy $8 "$INSTDIR\new\x86\Kestrune.dll"
  Call CheckKind
  ${If} $Reason != ""
    Call RemoveNew
    RMDir "$INSTDIR"
    Call Refuse
  ${EndIf}
  SetOutPath "$INSTDIR"
  ${If} ${FileExists} "$INSTDIR\Kestrune.dll"
    StrCpy $HadOlder "1"
    !insertmacro MoveFiles "$INSTDIR" "$INSTDIR\old"
  ${EndIf}
  ClearErrors
  !insertmacro MoveFiles "$INSTDIR\new" "$INSTDIR"
  ${If} ${Errors}
    StrCpy $Reason "The files in $INSTDIR cannot be replaced."
  ${EndIf}
  Call RemoveNew
  ${If} $Reason == ""
    DetailPrint "Registering for the $Audience"
    StrCpy $7 ""
    Call Register
  ${EndIf}
  ${If} $Reason != ""
    Call RollBack
    RMDir "$INSTDIR"
    Call Refuse
  ${EndIf}
  !insertmacro RemoveFiles "$INSTDIR\old\x86"
  !insertmacro RemoveFiles "$INSTDIR\old"

  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${ENTRY}" DisplayName "${TITLE}"
  WriteRegStr SHCTX "${ENTRY}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${ENTRY}" Publisher "Brannock Works"
  WriteRegStr SHCTX "${ENTRY}" DisplayIcon "$INSTDIR\Kestrune.dll,0"
  WriteRegStr SHCTX "${ENTRY}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${ENTRY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${ENTRY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${ENTRY}" NoModify 1
  WriteRegDWORD SHCTX "${ENTRY}" NoRepair 1
  SectionGetSize 0 $0
  WriteRegDWORD SHCTX "${ENTRY}" EstimatedSize $0
SectionEnd

Function un.onInit
  Call un.FindRegsvr32
  Delete "${LOG}"
  !insertmacro UseAudience machine
  ReadRegStr $0 SHCTX "${ENTRY}" InstallLocation
  ${If} $0 != $INSTDIR
    !insertmacro UseAudience user
  ${EndIf}
FunctionEnd

; Links and models are the user's: nothing outside the folder is looked at.
Section Uninstall
  Call un.CheckUse
  ${If} $Reason != ""
    Call un.Refuse
  ${EndIf}
  StrCpy $7 "/u"
  Call un.Register
  ${If} $Reason != ""
    Call un.Refuse
  ${EndIf}
  SetOutPath "$TEMP"
  !insertmacro RemoveFiles "$INSTDIR\x86"
  Delete "$INSTDIR\uninstall.exe"
  !insertmacro RemoveFiles "$INSTDIR"
  DeleteRegKey SHCTX "${ENTRY}"
SectionEnd
