!include FileFunc.nsh

!macro endWhileOrvaneRuns
  ; Windows writes to no library that a program has loaded.
  IfFileExists "$INSTDIR\bin\Orv3_32.dll" 0 isNotRunning
  ClearErrors
  FileOpen $0 "$INSTDIR\bin\Orv3_32.dll" a
  IfErrors 0 wasClosed
  MessageBox MB_OK|MB_ICONSTOP "Orvane is running. Close it, and start this again; nothing was changed." /SD IDOK
  SetErrorLevel 2
  Quit
wasClosed:
  FileClose $0
isNotRunning:
!macroend

; A file type that no other program has taken
!macro addFileType extension type description
  WriteRegStr SHCTX "Software\Classes\${type}" "" "${description}"
  WriteRegStr SHCTX "Software\Classes\${type}\DefaultIcon" "" "$INSTDIR\bin\orvanew.exe,0"
  WriteRegStr SHCTX "Software\Classes\${type}\shell\open\command" "" '"$INSTDIR\bin\orvanew.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\${extension}\OpenWithProgids" "${type}" ""
  ReadRegStr $0 SHCTX "Software\Classes\${extension}" ""
  StrCmp $0 "" 0 +2
  WriteRegStr SHCTX "Software\Classes\${extension}" "" "${type}"
!macroend

!macro removeFileType extension type
  DeleteRegKey SHCTX "Software\Classes\${type}"
  DeleteRegValue SHCTX "Software\Classes\${extension}\OpenWithProgids" "${type}"
  ReadRegStr $0 SHCTX "Software\Classes\${extension}" ""
  StrCmp $0 "${type}" 0 +2
  DeleteRegValue SHCTX "Software\Classes\${extension}" ""
  DeleteRegKey /ifempty SHCTX "Software\Classes\${extension}\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\${extension}"
!macroend

; Has the desktop read the file types again.
!macro announceFileTypes
  System::Call "shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)"
!macroend
