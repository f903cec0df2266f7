#include "catalogue/functions.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr CleaningFunction kFunctions[] = {
    {u"ie", u"Internet Explorer",
     u"Includes common privacy for Internet Explorer, please check sub nodes under it to clean as your "
     u"wish."},
    {u"ietif", u"Temporary Internet Files",
     u"Includes the files (html, images, js, etc.) which IE saves as you browse so that if you go back to "
     u"the page, it can quickly pull the files from the disk instead of having to request them again from "
     u"the server."},
    {u"iec", u"Cookies",
     u"Includes some small files that web sites placed on your disk, e.g. the information about when you "
     u"visited the sites, tracking and setting information."},
    {u"ieh", u"History", u"Includes the stored pages that you've visited and the time you visited them."},
    {u"iertu", u"Recently Typed URLs",
     u"Includes the saved recently-typed URLs so it can suggest them as you type new URLs with the same "
     u"starting letters."},
    {u"ieafh", u"Auto-fill Form History",
     u"Once you've used Internet Explorer for a while, you'll notice that as you start typing letters into a "
     u"text box on a form, it will present you with suggestions."},
    {u"ieaph", u"Auto-fill Password History",
     u"Once you've used Internet Explorer for a while, you'll notice that as you start typing letters into a "
     u"password box on a form, it will present you with suggestions. You will lose any saved passwords if "
     u"you clean the corresponding result."},
    {u"ietifd", u"Temporary Internet Files Detail",
     u"Lists the files (html, images, js, etc.) which IE saves as you browse so that if you go back to the "
     u"page, it can quickly pull the files from the disk instead of having to request them again from the "
     u"server."},
    {u"iecd", u"Cookies Detail",
     u"Lists the small files that web sites placed on your disk, e.g. the information about when you visited "
     u"the sites, tracking and setting information."},
    {u"ieif", u"Index.dat Files",
     u"Function as indexes for the browser, and store temporary information about URLs, search queries, and "
     u"recently stored files to speed up browser operation. It will take effect next time the computer is "
     u"rebooted."},
    {u"we", u"Windows Explorer",
     u"Includes common privacy for Windows Explorer, please check sub nodes under it to clean as your wish."},
    {u"werud", u"Recently Used Documents",
     u"Stored the list of Windows Explorer maintains most recently-opened files (please see the 'My Recent "
     u"Documents' item on the Start menu)."},
    {u"werh", u"Run History (in Start menu)",
     u"Stored the list that the Start Menu's Run dialog box maintains of programs you've run from it."},
    {u"wesh", u"Search History",
     u"Stored the history of Windows Explorer 'Search' function, it maintains a list of previous searches "
     u"and suggests them to you."},
    {u"weurah", u"User Ran Applications History",
     u"Stored the list of you accessed programs, shortcuts, Control Panel applets, and possibly even Web "
     u"sites. Cleaning it will clear the most used programs list on Start menu."},
    {u"weosh", u"Open/Save History",
     u"Stored the history of the Windows common open/save dialog boxes maintain of files you've chosen form "
     u"them."},
    {u"weoem", u"Other Explorer MRUs",
     u"Stored the list of Windows Explorer maintains Most Recently Used (MRU) history for the following "
     u"types of information: Find Files, Find Computer, printer ports, and others."},
};

}  // namespace

constinit const std::span<const CleaningFunction> kPrivacyFunctions = kFunctions;

}  // namespace tavix::mdlPubSelf
