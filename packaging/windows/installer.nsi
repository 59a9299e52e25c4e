; Velarda, a card game of the Scopa family.
; SPDX-License-Identifier: MIT
;
; The installer, for one user, who needs no rights beyond his own. packaging/windows/build makes it
; and defines: VERSION, FOLDER (what is installed), LISTS (folder of the two lists of its files),
; ICON, OUTPUT.

Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user
Name "Velarda"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Velarda"
BrandingText "Velarda ${VERSION}"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velarda"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
!include FileFunc.nsh
!include LogicLib.nsh
!include WinVer.nsh

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\velarda.exe"
!include MUI2.nsh
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Velarda"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installer of Velarda"
VIAddVersionKey "CompanyName" "The Velarda developers"
VIAddVersionKey "LegalCopyright" "2026 The Velarda developers, MIT licence"

; A program that runs cannot be replaced or taken away.
!macro WaitForEnd
    ${While} ${FileExists} "$INSTDIR\velarda.exe"
        ClearErrors
        FileOpen $0 "$INSTDIR\velarda.exe" a
        ${IfNot} ${Errors}
            FileClose $0
            ${Break}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Velarda is running. Please close it first." \
            /SD IDCANCEL IDRETRY +3
        SetErrorLevel 2
        Quit
    ${EndWhile}
!macroend

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_ICONSTOP "Velarda needs Windows 10 or later." /SD IDOK
        SetErrorLevel 3
        Quit
    ${EndIf}
FunctionEnd

Section
    !insertmacro WaitForEnd
    ; An earlier version may have had other files.
    ${If} ${FileExists} "$INSTDIR\uninstall.exe"
        ExecWait '"$INSTDIR\uninstall.exe" /S /KEEP _?=$INSTDIR'
    ${EndIf}
    !include "${LISTS}/install.nsh"
    SetOutPath "$INSTDIR"
    SetOverwrite off
    File "${FOLDER}/config.crv"
    SetOverwrite on
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Velarda.lnk" "$INSTDIR\velarda.exe"

    WriteRegStr HKCU "${ENTRY}" "DisplayName" "Velarda"
    WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\velarda.exe"
    WriteRegStr HKCU "${ENTRY}" "Publisher" "The Velarda developers"
    WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
    WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $0
    WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    !insertmacro WaitForEnd
    ; /KEEP leaves the settings and does not ask: a later version takes the place of this one.
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/KEEP" $1
    ${If} ${Errors}
        MessageBox MB_YESNO|MB_ICONQUESTION "Keep your choice of speed and music for another time?" \
            /SD IDNO IDYES kept
        Delete "$INSTDIR\config.crv"
        Delete "$INSTDIR\config.crv.new"
        Delete "$LOCALAPPDATA\velarda\config.crv"
        Delete "$LOCALAPPDATA\velarda\config.crv.new"
        RMDir "$LOCALAPPDATA\velarda"
        kept:
    ${EndIf}
    !include "${LISTS}/remove.nsh"
    Delete "$INSTDIR\uninstall.exe"
    Delete "$SMPROGRAMS\Velarda.lnk"
    DeleteRegKey HKCU "${ENTRY}"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs"
SectionEnd
