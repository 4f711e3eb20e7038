; What the installer and the uninstaller look at before they change anything, and how they tell why they do not.

!define LOG "$TEMP\kiv-setup.log"

; Tell TEXT: who asked for no windows finds the exit status, and the reason in a file.
!macro Tell text
  SetErrorLevel 2
  ${If} ${Silent}
    FileOpen $9 "${LOG}" w
    FileWriteUTF16LE /BOM $9 "${text}$\r$\n"
    FileClose $9
  ${Else}
    MessageBox MB_OK|MB_ICONSTOP "${text}"
  ${EndIf}
!macroend
!macro Refuse text
  !insertmacro Tell "${text}"
  Abort
!macroend

; RefuseWhileUsed FILE: a program or module that runs cannot be replaced, and would be left half old, half new.
!macro RefuseWhileUsed file
  ${If} ${FileExists} "$INSTDIR\${file}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${file}" a
    ${If} ${Errors}
      !insertmacro Refuse "$INSTDIR\${file} は使用中か、書き込みができません。KIV 図面ビューアと、モジュールを読み込んでいる CAD を終了してから、もう一度実行してください。"
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

!macro RefuseWhileInUse
  !insertmacro RefuseWhileUsed "cadhost.exe"
  !insertmacro RefuseWhileUsed "kivcvt.exe"
  !insertmacro RefuseWhileUsed "KIVGUI.ARX"
!macroend

; One person has one installation: the entries of the menu and of the registry name one folder.
!macro RefuseSecondFolder
  ReadRegStr $0 HKCU "Software\KIV" "Folder"
  ${If} $0 != ""
  ${AndIf} $0 != $INSTDIR
  ${AndIf} ${FileExists} "$0\uninstall.exe"
    !insertmacro Refuse "KIV は $0 にインストールされています。別のフォルダに移すときは、先にアンインストールしてください。変更した変換指定は $0\CFG に残るので、新しいフォルダの CFG に複写できます。"
  ${EndIf}
!macroend

; What a newer version has saved may hold lines that an older one drops.
!macro AskBeforeDowngrade
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "DisplayVersion"
  ${VersionCompare} "$0" "${VERSION}" $1
  ${If} $1 == 1
  ${AndIf} ${FileExists} "$INSTDIR\uninstall.exe"
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/DOWNGRADE" $2
    ${If} ${Errors}
      ${If} ${Silent}
        !insertmacro Refuse "$INSTDIR には新しいバージョン $0 があります。古いバージョン ${VERSION} に戻すには、/DOWNGRADE を付けて実行してください。"
      ${ElseIf} ${Cmd} `MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "$INSTDIR には新しいバージョン $0 があります。古いバージョン ${VERSION} に戻しますか?$\r$\n$\r$\n新しいバージョンで保存した変換指定には、古いバージョンで読み捨てられる行があるかもしれません。" IDNO`
        SetErrorLevel 2
        Abort
      ${EndIf}
    ${EndIf}
  ${EndIf}
!macroend

; Before anything of an older version is taken away.
!macro RefuseUnwritableFolder
  CreateDirectory "$INSTDIR"
  ClearErrors
  FileOpen $0 "$INSTDIR\kiv-setup.tmp" w
  ${If} ${Errors}
    !insertmacro Refuse "$INSTDIR に書き込めません。利用者が書き込めるフォルダを選んで、もう一度実行してください。"
  ${EndIf}
  FileClose $0
  Delete "$INSTDIR\kiv-setup.tmp"
!macroend
