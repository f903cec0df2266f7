#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A junk type that comes with the program.
struct BuiltInJunkType {
  TextView description;
  TextView pattern;
  TextView flags;  // "recommended" and "enabled", each Y or N, with a tab between them
};

constexpr BuiltInJunkType kBuiltInJunkTypes[] = {
    {u"Backup Files", u"*.old", u"Y\tY"},
    {u"Backup Files", u"*.bak", u"N\tN"},
    {u"Backup Files", u"*.prv", u"Y\tY"},
    {u"Backup Files", u"*.syd", u"N\tN"},
    {u"Backup Files", u"*.sik", u"N\tN"},
    {u"CorelDraw Backup Files", u"*.cdr_", u"N\tN"},
    {u"Description for Zip Files", u"*.diz", u"N\tN"},
    {u"Error Log Files", u"*.err", u"Y\tY"},
    {u"Error Log Files", u"*errorlog.txt", u"Y\tY"},
    {u"Excel Backup Files", u"*.xlk", u"N\tN"},
    {u"File Fragments", u"file0*.chk", u"Y\tY"},
    {u"File Fragments", u"chklist.m*", u"Y\tY"},
    {u"File Fragments", u"file????._dd", u"Y\tN"},
    {u"Full Text Group Files", u"*.ftg", u"Y\tY"},
    {u"Full Text Search Files", u"*.fts", u"Y\tY"},
    {u"Installer Temporary Files", u"*.%%%", u"Y\tN"},
    {u"Installer Temporary Files", u"*.@@@", u"Y\tY"},
    {u"Installer Temporary Files", u"*.$$$", u"Y\tY"},
    {u"Installer Temporary Files", u"mscreate.dir", u"Y\tY"},
    {u"Installer Temporary Files", u"imagedb.aid", u"Y\tY"},
    {u"Intermediate Files", u"*.ilk", u"N\tN"},
    {u"Intermediate Files", u"*.aps", u"N\tN"},
    {u"Intermediate Files", u"*.ncb", u"N\tN"},
    {u"Log Files", u"*.log", u"Y\tY"},
    {u"Log Files", u"*log.txt", u"N\tN"},
    {u"Log Files", u"log*.txt", u"N\tN"},
    {u"Log Files", u"*.log?", u"N\tY"},
    {u"Mac Photoshop to Windows Temporary Files", u"*.#res", u"Y\tN"},
    {u"MacroMedia Xtra Cache Files", u"*.mch", u"Y\tY"},
    {u"Memory Dump Files", u"*.dmp", u"Y\tY"},
    {u"Newsgroup Temporary Files", u"0???????.nch", u"Y\tY"},
    {u"Pictures Preview Index Files", u"thumbs.db", u"Y\tY"},
    {u"Precompiled Header Files", u"*.pch", u"N\tN"},
    {u"Prefetch Files", u"*exe-*.pf", u"N\tN"},
    {u"Search Temporary Files", u"*.fnd", u"Y\tY"},
    {u"Temporary Files", u"*.~*", u"Y\tY"},
    {u"Temporary Files", u"~*.*", u"Y\tY"},
    {u"Temporary Files", u"*.---", u"Y\tY"},
    {u"Temporary Files", u"*.^*", u"N\tY"},
    {u"Temporary Files", u"*.??~", u"N\tY"},
    {u"Temporary Files", u"*.??$", u"Y\tY"},
    {u"Temporary Files", u"*.tmp", u"Y\tY"},
    {u"Temporary Files", u"*._mp", u"Y\tY"},
    {u"Temporary Files", u"*.$*", u"Y\tY"},
    {u"Temporary Files", u"*.temp", u"N\tY"},
    {u"Temporary Files", u"*.___", u"N\tY"},
    {u"Temporary Files", u"*.~mp", u"N\tY"},
    {u"Temporary Files", u"*.$db", u"N\tY"},
    {u"Temporary Files", u"*.?$?", u"N\tY"},
    {u"Temporary Files", u"*.?~?", u"N\tY"},
    {u"Temporary Files", u"*.db$", u"N\tY"},
    {u"Temporary Files", u"*.^", u"N\tY"},
    {u"Temporary Files", u"*.detmp", u"N\tY"},
    {u"Windows Help Index Files", u"*.gid", u"Y\tY"},
    {u"Word Backup Files", u"*.wbk", u"N\tN"},
    {u"WordPerfect Temporary Files", u"*.spc", u"N\tN"},
};

}  // namespace tavix::mdlPubSelf
