!insertmacro endWhileOrvaneRuns
!insertmacro removeFileType .bnk Orvane.Bank
!insertmacro removeFileType .prg Orvane.Program
!insertmacro announceFileTypes
