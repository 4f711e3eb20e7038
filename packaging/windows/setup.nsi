; The installer: makensis -DVERSION= -DFOLDER= -DFILES= -DSETUP= setup.nsi
; It installs for one person, into a folder where that person may write: the specifications of the dialog stand beside
; the module and are changed by its user. No rights of an administrator are asked for.
Target amd64-unicode
Unicode true
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include "${FILES}"

!define TYPE "KIV.Specification"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\KIV"
!define CLASSES "Software\Classes"

Name "KIV 図面変換"
OutFile "${SETUP}"
InstallDir "$LOCALAPPDATA\Programs\KIV"
InstallDirRegKey HKCU "Software\KIV" "Folder"
BrandingText "KIV ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1041 "ProductName" "KIV"
VIAddVersionKey /LANG=1041 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1041 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1041 "FileDescription" "KIV 図面変換のインストーラ"
VIAddVersionKey /LANG=1041 "LegalCopyright" "KIV"

!define MUI_ICON "..\..\cadhost\cadhost.ico"
!define MUI_UNICON "..\..\cadhost\cadhost.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${NSISDIR}/Contrib/Graphics/Wizard/nsis3-metro.bmp"
!define MUI_WELCOMEPAGE_TEXT "KIV 図面変換を、現在の利用者にインストールします。管理者の権限は必要ありません。$\r$\n$\r$\nKIV 図面ビューアと、モジュールを読み込んでいる CAD を終了してから、「次へ」をクリックしてください。"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\cadhost.exe"
!define MUI_FINISHPAGE_RUN_TEXT "KIV 図面ビューアを起動する"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\guide\install.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "使い方を表示する"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_COMPONENTSPAGE_NODESC

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Japanese"
SetFont /LANG=1041 "Yu Gothic UI" 9

!include refusals.nsh

; SameFiles: pops two paths; pushes 1 when the files hold the same bytes, else 0.
!macro SameFiles of
Function ${of}SameFiles
  Exch $0
  Exch
  Exch $1
  Push $2
  Push $3
  Push $4
  StrCpy $4 0
  ClearErrors
  FileOpen $0 $0 r
  FileOpen $1 $1 r
  ${IfNot} ${Errors}
    ${Do}
      ClearErrors
      FileReadByte $0 $2
      ${If} ${Errors}
        StrCpy $2 end
      ${EndIf}
      ClearErrors
      FileReadByte $1 $3
      ${If} ${Errors}
        StrCpy $3 end
      ${EndIf}
      ${If} $2 != $3
        ${ExitDo}
      ${EndIf}
      ${If} $2 == end
        StrCpy $4 1
        ${ExitDo}
      ${EndIf}
    ${Loop}
  ${EndIf}
  FileClose $0
  FileClose $1
  ClearErrors
  StrCpy $0 $4
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd
!macroend
!insertmacro SameFiles ""
!insertmacro SameFiles "un."

; What stands in CFG as an older version brought it is renewed; what its user has changed, or deleted, stays so.
!macro NoteSample name
  Push "$INSTDIR\samples\${name}"
  Push "$INSTDIR\CFG\${name}"
  Call SameFiles
  Pop $0
  WriteINIStr "$PLUGINSDIR\samples.ini" "Unchanged" "${name}" "$0"
!macroend
!macro RenewSample name
  ReadINIStr $0 "$PLUGINSDIR\samples.ini" "Unchanged" "${name}"
  ${If} $0 == 1
    File "${FOLDER}\samples\${name}"
  ${EndIf}
!macroend

; The uninstaller of the older version has deleted it unless it was changed.
!macro BringOriginal path
  ${IfNot} ${FileExists} "$INSTDIR\${path}"
    File "/oname=$INSTDIR\${path}" "${FOLDER}\original\${path}"
  ${EndIf}
!macroend

; For a folder that cannot be, or stands in quotes, the installer's own code takes the usual one.
Function .onInit
  Delete "${LOG}"
  System::Call 'kernel32::GetCommandLine() t.r0'
  ClearErrors
  ${WordFind} "$0" "/D=" "E+1}" $1
  ${IfNot} ${Errors}
    ${Do}
      StrCpy $2 $1 1 -1
      ${If} $2 != "\"
      ${AndIf} $2 != " "
        ${ExitDo}
      ${EndIf}
      StrCpy $1 $1 -1
    ${Loop}
    ${If} $1 != $INSTDIR
      !insertmacro Refuse "/D=$1 はフォルダの指定として使えません。/D= は最後に、絶対パスで、引用符を付けずに指定してください。"
    ${EndIf}
  ${EndIf}
FunctionEnd

Section "KIV"
  SetShellVarContext current
  !insertmacro RefuseSecondFolder
  !insertmacro AskBeforeDowngrade
  !insertmacro RefuseUnwritableFolder
  !insertmacro RefuseWhileInUse

  InitPluginsDir
  StrCpy $1 0
  ${If} ${FileExists} "$INSTDIR\CFG\*.*"
    StrCpy $1 1
    !insertmacro NoteSamples
  ${EndIf}
  ; What another version brought and this one has no longer.
  ${If} ${FileExists} "$INSTDIR\uninstall.exe"
    ClearErrors
    ExecWait '"$INSTDIR\uninstall.exe" /S /UPDATE _?=$INSTDIR' $0
    ${If} ${Errors}
    ${OrIf} $0 != 0
      !insertmacro Refuse "$INSTDIR にあるバージョンを取り除けませんでした。アンインストールしてから、もう一度実行してください。"
    ${EndIf}
  ${EndIf}

  ClearErrors
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}\*"
  CreateDirectory "$INSTDIR\examples"
  CreateDirectory "$INSTDIR\settings"
  CreateDirectory "$INSTDIR\support"
  !insertmacro BringOriginals
  ; The specifications of the dialog are the user's. They come once.
  SetOutPath "$INSTDIR\CFG"
  ${If} $1 == 0
    File "${FOLDER}\samples\*"
  ${Else}
    !insertmacro RenewSamples
  ${EndIf}
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro Refuse "$INSTDIR に書き込めないファイルがあります。書き込みのできるフォルダと空き容量を確認してから、もう一度実行してください。"
  ${EndIf}

  CreateDirectory "$SMPROGRAMS\KIV"
  SetOutPath "$DOCUMENTS"  ; where what is started from the menu begins
  CreateShortCut "$SMPROGRAMS\KIV\KIV 図面ビューア.lnk" "$INSTDIR\cadhost.exe"
  CreateShortCut "$SMPROGRAMS\KIV\KIV の使い方.lnk" "$INSTDIR\guide\install.html"
  CreateShortCut "$SMPROGRAMS\KIV\変換指定のフォルダ.lnk" "$INSTDIR\CFG"
  CreateShortCut "$SMPROGRAMS\KIV\kivcvt コマンドプロンプト.lnk" "$SYSDIR\cmd.exe" '/k set "PATH=$INSTDIR;%PATH%"' "$INSTDIR\kivcvt.exe"
  CreateShortCut "$SMPROGRAMS\KIV\アンインストール.lnk" "$INSTDIR\uninstall.exe"

  ; A type that another program has for these files stays; ours is then one that may be chosen.
  WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "KIV 変換指定"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "$INSTDIR\cadhost.exe,0"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell" "" "open"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open" "" "メモ帳で開く"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"$SYSDIR\notepad.exe" "%1"'
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\check" "" "KIV で内容を検査"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\check\command" "" '"$SYSDIR\cmd.exe" /d /k ""$INSTDIR\kivcvt.exe" check "%1""'
  WriteRegStr HKCU "${CLASSES}\.cvt\OpenWithProgids" "${TYPE}" ""
  ReadRegStr $0 HKCU "${CLASSES}\.cvt" ""
  ReadRegStr $1 HKLM "${CLASSES}\.cvt" ""  ; of a program that all users have
  ${If} "$0$1" == ""
    WriteRegStr HKCU "${CLASSES}\.cvt" "" "${TYPE}"
  ${EndIf}
  ${RefreshShellIcons}

  WriteRegStr HKCU "Software\KIV" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "KIV 図面変換"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\cadhost.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" "$0"
SectionEnd

; What its user has changed has become the user's.
!macro DeleteUnchanged brought used
  Push "$INSTDIR\${brought}"
  Push "$INSTDIR\${used}"
  Call un.SameFiles
  Pop $0
  ${If} $0 == 1
    Delete "$INSTDIR\${used}"
  ${EndIf}
!macroend

; Pushes 1 when CFG holds a file beside the name of the first specification.
Function un.HasSpecifications
  Push $0
  Push $1
  Push $2
  StrCpy $2 0
  FindFirst $0 $1 "$INSTDIR\CFG\*.*"
  ${DoWhile} $1 != ""
    ${If} $1 != "."
    ${AndIf} $1 != ".."
    ${AndIf} $1 != "KivCvtInit.dat"
      StrCpy $2 1
    ${EndIf}
    FindNext $0 $1
  ${Loop}
  FindClose $0
  StrCpy $0 $2
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

Var Updates  ; 1: another version comes into the same folder

Function un.onInit
  StrCpy $Updates 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/UPDATE" $1
  ${IfNot} ${Errors}
    StrCpy $Updates 1
  ${EndIf}
FunctionEnd

Section "un.プログラム"
  SectionIn RO
  SetShellVarContext current
  Delete "${LOG}"
  !insertmacro RefuseWhileInUse
  !insertmacro DeleteUnchangedSamples
  !insertmacro DeleteUnchangedOriginals
  ${If} $Updates == 0
    Delete "$INSTDIR\CFG\ﾌｧｲﾙ変換_作業用(削除可).$$cvt$$"
    Call un.HasSpecifications
    Pop $0
    ${If} $0 == 0
      Delete "$INSTDIR\CFG\KivCvtInit.dat"
    ${EndIf}
    RMDir "$INSTDIR\CFG"
  ${EndIf}
  ClearErrors
  !insertmacro DeleteFiles
  ${If} ${Errors}
  ${AndIf} $Updates == 0
    !insertmacro Tell "$INSTDIR に削除できないファイルがあります。使用しているプログラムを終了してから、手で削除してください。"
  ${EndIf}
  !insertmacro DeleteFolders
  !insertmacro DeleteFoldersOfOriginals
  ${If} $Updates == 0
    Delete "$INSTDIR\uninstall.exe"
  ${EndIf}
  SetOutPath "$TEMP"  ; a folder that is current cannot go
  RMDir "$INSTDIR"

  ; The entries are those of the folder that was installed last: a copy of it that goes leaves them.
  ReadRegStr $0 HKCU "Software\KIV" "Folder"
  ${If} $0 == $INSTDIR
  ${OrIfNot} ${FileExists} "$0\uninstall.exe"
    Delete "$SMPROGRAMS\KIV\KIV 図面ビューア.lnk"
    Delete "$SMPROGRAMS\KIV\KIV の使い方.lnk"
    Delete "$SMPROGRAMS\KIV\変換指定のフォルダ.lnk"
    Delete "$SMPROGRAMS\KIV\kivcvt コマンドプロンプト.lnk"
    Delete "$SMPROGRAMS\KIV\アンインストール.lnk"
    RMDir "$SMPROGRAMS\KIV"

    ReadRegStr $0 HKCU "${CLASSES}\.cvt" ""
    ${If} $0 == "${TYPE}"
      DeleteRegValue HKCU "${CLASSES}\.cvt" ""
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\.cvt\OpenWithProgids" "${TYPE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.cvt\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.cvt"
    DeleteRegKey HKCU "${CLASSES}\${TYPE}"
    ${RefreshShellIcons}
    ; While another version comes these tell where, should it not get to its end.
    ${If} $Updates == 0
      DeleteRegKey HKCU "Software\KIV"
      DeleteRegKey HKCU "${UNINSTALL_KEY}"
    ${EndIf}
  ${EndIf}
SectionEnd

Section "un.ダイアログの設定"
  SetShellVarContext current
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/KEEPSETTINGS" $1
  ${If} ${Errors}
  ${AndIf} $Updates == 0
    Delete "$APPDATA\Kiv\common.cfg"
    Delete "$APPDATA\Kiv\common.cfg.lock"
    RMDir "$APPDATA\Kiv"
    Delete "$TEMP\DWGOPEN.SCR"  ; the drawings of the last batch
  ${EndIf}
SectionEnd
