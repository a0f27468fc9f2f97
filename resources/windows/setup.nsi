; The setup program, made by scripts/windows/package.sh, which defines
;   VERSION  as 1.0.0.0
;   STAGE    the folder with all that is installed
;   LISTS    the folder with install.nsh and remove.nsh, which name each file of STAGE
;   SIZE     the size of all files in KiB
;   OUTPUT   the file to make
;
; Switches: /S silent, /D=FOLDER (last), /AllUsers, /Desktop with an icon there; of uninstall.exe: /S, /Settings takes
; this user's settings and log away, too. How it ends: 0 done, 1 cancelled, 2 failed, 3 the program is running,
; 4 an administrator is needed. At 3 and 4 nothing has been changed.

; A 64-bit program: on another Windows it does not start, and the system says why.
Target amd64-unicode
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include nsDialogs.nsh

!define PRODUCT Kestrum
!define PUBLISHER "The Kestrum authors"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PRODUCT}"
; What the program itself leaves in the user's part of the registry.
!define ENTRIES_KEY "Software\Classes\*\shell"
!define ENTRY "{6D0C2B1E-94A7-4F53-8E21-7B5A90C3D4F8}"
!define SETTINGS_KEY "Software\Quillon.example"

!define RUNNING 3
!define NEEDS_ADMINISTRATOR 4

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
VIProductVersion ${VERSION}
VIAddVersionKey ProductName "${PRODUCT}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${PRODUCT} setup"
VIAddVersionKey CompanyName "Quillon.example"
VIAddVersionKey LegalCopyright "Copyright (C) 2026 ${PUBLISHER}"

!define MUI_ICON "kestrum.ico"
!define MUI_UNICON "kestrum.ico"
!define MUI_COMPONENTSPAGE_NODESC
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION startProgram

Var forAll
Var forAllButton

!insertmacro MUI_PAGE_LICENSE "${STAGE}/licences/Kestrum.txt"
Page custom askForWhom takeForWhom
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES

; The first one is taken where the user's is not among them.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE German
!insertmacro MUI_LANGUAGE French
!insertmacro MUI_LANGUAGE Spanish
!insertmacro MUI_LANGUAGE Italian
!insertmacro MUI_LANGUAGE Portuguese
!insertmacro MUI_LANGUAGE Russian
!insertmacro MUI_LANGUAGE Greek
!include /CHARSET=UTF8 setup-texts.nsh

; Ends with this number, after these words, unless it was told to be silent.
!macro stop number words
    MessageBox MB_OK|MB_ICONSTOP "${words}" /SD IDOK
    SetErrorLevel ${number}
    Quit
!macroend

!macro needAdministrator un
Function ${un}needAdministrator
    UserInfo::GetAccountType
    Pop $0
    ${If} $0 == "Admin"
        Return
    ${EndIf}
    ; In a window the system is asked for the rights, and the setup starts anew with them.
    ${IfNot} ${Silent}
        !if "${un}" == ""
            ExecShell runas "$EXEPATH" "/AllUsers"
        !else
            ExecShell runas "$INSTDIR\uninstall.exe"
        !endif
    ${EndIf}
    SetErrorLevel ${NEEDS_ADMINISTRATOR}
    Quit
FunctionEnd
!macroend
!insertmacro needAdministrator ""
!insertmacro needAdministrator "un."

; A file of a running program cannot be opened for writing.
!macro needEnd un
Function ${un}needEnd
    again:
    ${IfNot} ${FileExists} "$INSTDIR\kestrum.exe"
        Return
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\kestrum.exe" a
    ${IfNot} ${Errors}
        FileClose $0
        Return
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(textRunning)" /SD IDCANCEL IDRETRY again
    SetErrorLevel ${RUNNING}
    Quit
FunctionEnd
!macroend
!insertmacro needEnd ""
!insertmacro needEnd "un."

; Where it goes, unless the user has said so: to where it is, or to the usual place.
Function chooseFolder
    SetShellVarContext current
    ${If} $forAll = 1
        SetShellVarContext all
    ${EndIf}
    ${IfNot} $INSTDIR == ""
        Return
    ${EndIf}
    ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" InstallLocation
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR "$LOCALAPPDATA\Programs\${PRODUCT}"
        ${If} $forAll = 1
            StrCpy $INSTDIR "$PROGRAMFILES64\${PRODUCT}"
        ${EndIf}
    ${EndIf}
FunctionEnd

Function askForWhom
    !insertmacro MUI_HEADER_TEXT "$(textForWhom)" ""
    nsDialogs::Create 1018
    Pop $0
    ${NSD_CreateRadioButton} 0 20u 100% 12u "$(textForMe)"
    Pop $1
    ${NSD_CreateRadioButton} 0 40u 100% 12u "$(textForAll)"
    Pop $forAllButton
    ${If} $forAll = 1
        StrCpy $1 $forAllButton
    ${EndIf}
    ${NSD_Check} $1
    nsDialogs::Show
FunctionEnd

Function takeForWhom
    ${NSD_GetState} $forAllButton $0
    ${If} $0 = ${BST_CHECKED}
        ${If} $forAll <> 1
            StrCpy $INSTDIR ""
        ${EndIf}
        StrCpy $forAll 1
        Call needAdministrator
    ${Else}
        ${If} $forAll = 1
            StrCpy $INSTDIR ""
        ${EndIf}
        StrCpy $forAll 0
    ${EndIf}
    Call chooseFolder
FunctionEnd

; By way of the user's own shell, as the setup may have more rights than the user.
Function startProgram
    Exec '"$WINDIR\explorer.exe" "$INSTDIR\kestrum.exe"'
FunctionEnd

; The older version knows its own files, of which the new one may lack some.
Function removeOlder
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == ""
    ${OrIfNot} ${FileExists} "$0\uninstall.exe"
        Return
    ${EndIf}
    ExecWait '"$0\uninstall.exe" /S /Upgrade _?=$0' $1
    ${If} $1 <> 0
        !insertmacro stop $1 "$(textRunning)"
    ${EndIf}
    Delete "$0\uninstall.exe"
    RMDir "$0"
FunctionEnd

Section "${PRODUCT}"
    SectionIn RO
    Call needEnd
    Call removeOlder
    !include "${LISTS}/install.nsh"
    SetOutPath $INSTDIR
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\kestrum.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayName "${PRODUCT}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\kestrum.exe"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" Publisher "${PUBLISHER}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" URLInfoAbout "https://kestrum.quillon.example/"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" EstimatedSize ${SIZE}
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" NoRepair 1
SectionEnd

Section /o "$(textDesktop)" desktop
    CreateShortcut "$DESKTOP\${PRODUCT}.lnk" "$INSTDIR\kestrum.exe"
SectionEnd

; One that is there already shall lead to the new place.
Section -renewDesktop
    ${If} ${FileExists} "$DESKTOP\${PRODUCT}.lnk"
        CreateShortcut "$DESKTOP\${PRODUCT}.lnk" "$INSTDIR\kestrum.exe"
    ${EndIf}
SectionEnd

Function .onInit
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/AllUsers" $1
    ${IfNot} ${Errors}
        StrCpy $forAll 1
        Call needAdministrator
    ${EndIf}
    ClearErrors
    ${GetOptions} $0 "/Desktop" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${desktop}
    ${EndIf}
    ${If} ${Silent}
        Call chooseFolder
        Call needEnd
    ${EndIf}
FunctionEnd

Section "un.${PRODUCT}"
    SectionIn RO
    ${If} $forAll = 1
        SetShellVarContext all
    ${EndIf}
    !include "${LISTS}/remove.nsh"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    ${If} $forAll <> 1
        RMDir "$LOCALAPPDATA\Programs"
    ${EndIf}
    Delete "$SMPROGRAMS\${PRODUCT}.lnk"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"

    ; A newer version keeps the rest.
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/Upgrade" $1
    ${If} ${Errors}
        Delete "$DESKTOP\${PRODUCT}.lnk"
        SetShellVarContext current
        Delete "$SENDTO\${PRODUCT}.lnk"
        DeleteRegKey HKCU "${ENTRIES_KEY}\${ENTRY}"
        DeleteRegKey /ifempty HKCU "${ENTRIES_KEY}"
        DeleteRegKey /ifempty HKCU "Software\Classes\*"
    ${EndIf}
SectionEnd

Section /o "un.$(textSettings)" settings
    SetShellVarContext current
    DeleteRegKey HKCU "${SETTINGS_KEY}\${PRODUCT}"
    DeleteRegKey /ifempty HKCU "${SETTINGS_KEY}"
    Delete "$APPDATA\Quillon.example\${PRODUCT}\kestrum.log"
    RMDir "$APPDATA\Quillon.example\${PRODUCT}"
    RMDir "$APPDATA\Quillon.example"
SectionEnd

Function un.onInit
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 == $INSTDIR
        StrCpy $forAll 1
        Call un.needAdministrator
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/Settings" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${settings}
    ${EndIf}
    Call un.needEnd
FunctionEnd
