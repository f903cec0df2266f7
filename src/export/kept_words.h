#pragma once

#include "text/text.h"

namespace tavix::exporting {

// The words that a masked export keeps, separated by blanks: names of folders, files, keys and values by
// which the program finds its way through Windows, and endings of file names that it tells apart. Without one
// of them the program finds nothing at that place.
inline constexpr TextView kKeptWords =
    // The program's own data.
    u"morvdatapath tvx tvxbak tvx dupefiles scanned compared defjunk userjunk tips menus std auto big small "
    u"modified name size data folder please do not delete it aside delete "
    // Folders and files of Windows.
    u"windows winnt system system32 syswow64 sysnative systemtemp program programs programdata files common "
    u"x86 users "
    u"user public default all appdata local locallow roaming microsoft internet explorer quick launch start "
    u"menu "
    u"startup desktop documents settings and recent cookies history temporary content ie5 index dat "
    u"inetcache "
    u"inetcookies temp tmp prefetch fonts installer config msi found debug help csc inf tasks tracing "
    u"schcache "
    u"softwaredistribution download logfiles wmi rtbackup regback spool printers drivers livekernelreports "
    u"modemlogs "
    u"perflogs inetpub recovery recycle recycled recycler bin onedrivetemp wsl vss ssh usoprivate usoshared "
    u"winreagent "
    u"wer reportarchive reportqueue memory ntuninstall chklist mscreate imagedb errorlog thumbs windir "
    u"systemroot "
    u"systemdrive programfiles programw6432 commonprogramfiles allusersprofile userprofile homepath "
    u"homedrive username "
    // Programs that command lines begin with.
    u"rundll32 regsvr32 msiexec regedit explorer genuinst shell32 inetcpl clearmytracksbyprocess control "
    // Keys and values of the registry.
    u"hkey classes root current user machine currentversion software wow6432node nt app paths apppaths "
    u"applications "
    u"application applets acmru appearance schemes assistant clsid comdlg32 command country lists list "
    u"cursors panel html "
    u"iconstreams inprocserver32 localserver32 installproperties interface lastkey lastvisitedmru "
    u"localpackage menu2 "
    u"menuorder muicache opensavemru pasticonsstream patches products recentdocs run runonce runmru search "
    u"shareddlls "
    u"shell shellnoroam shellex streammru telephony time zones traynotify typedurls typelib uninstall "
    u"uninstallstring "
    u"userassist userdata folders locations sharedlibs fileexts open edit print play win32 win64 helpdir "
    u"flags "
    u"defaulticon progid appid localizedstring displayname nodisplay path order mru mrulist mrulistex url1 "
    // Endings of names.
    u"exe dll ocx sys cpl drv scr com bat cmd vbs js lnk url pif ico cur ani ttf ttc otf fon hlp chm log txt "
    u"ini inf cfg "
    u"xml htm html mht chk dmp pf tmp bak old prv syd sik cdr diz err xlk ftg fts dir aid ilk aps ncb mch "
    u"nch db pch fnd "
    u"detmp gid wbk spc lo gs dd mp res gif bmp zip rar 7z jpg pdf doc xls ppt avi wmv mp3 mpg mpeg mp4 rm "
    u"rmvb mov vob "
    u"flv tlb olb etl evtx wav sms";

}  // namespace tavix::exporting
