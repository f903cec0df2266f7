#include "catalogue/functions.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr CleaningFunction kFunctions[] = {
    ByCaption(u"Invalid Shortcuts",
              u"Checks it for finding the invalid shortcuts (their targets no longer exist) in your "
              u"specified drives/folders."),
    ByCaption(u"Duplicate Files",
              u"Checks it for finding the duplicate files in your specified drives/folders according to your "
              u"setting.",
              kDuplicateFilesPage),
    ByCaption(u"Empty Folders and Files",
              u"Checks it for finding the empty folders and files in your specified drives/folders."),
    ByCaption(u"Last Accessed ? Days Before",
              u"Checks it for finding the files that last accessed ? days before in your specified "
              u"drives/folders according to your setting.",
              kOtherOptionsPage),
    ByCaption(u"Redundant DLLs",
              u"Checks it for finding the redundant DLLs in your specified drives/folders."),
    ByCaption(u"Junk Files",
              u"Checks it for finding out the junk files in your specified drives/folders according to your "
              u"setting.",
              kJunkFilesPage),
};

}  // namespace

constinit const std::span<const CleaningFunction> kAdvancedFunctions = kFunctions;

}  // namespace tavix::mdlPubSelf
