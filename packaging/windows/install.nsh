!insertmacro addFileType .bnk Orvane.Bank "Orvane bank"
!insertmacro addFileType .prg Orvane.Program "Orvane program"
!insertmacro announceFileTypes
${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
WriteRegDWORD SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall\Orvane 3 Setup" "EstimatedSize" $0
