!insertmacro endWhileOrvaneRuns
; What an older version has and this one has not goes with it.
IfFileExists "$INSTDIR\Uninstall.exe" 0 +2
ExecWait '"$INSTDIR\Uninstall.exe" /S _?=$INSTDIR' $0
