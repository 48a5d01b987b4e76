// Where the catalogue files are looked for.
#pragma once

#include <string>

namespace kxc {

inline constexpr const char* kCatalogueFileName = "TmBvCacheLanguages.xml";
inline constexpr const char* kLanguageDetailsFileName = "TmBvCacheLanguageFontDetails.xml";

// The folder of the catalogue files for a library kept in `libraryFolder`: that folder, except
// that a path containing "C:\TAMREL" (compared upper-cased) gives "C:", the root of drive C.
std::string catalogueFolderFor(const std::string& libraryFolder);

// catalogueFolderFor(libraryFolder()): the folder of the running code, or $KXC_LIBRARY_DIR.
std::string catalogueFolder();

// The path of a catalogue file in `folder`.
std::string cataloguePath(const std::string& folder, const char* fileName);

}  // namespace kxc
