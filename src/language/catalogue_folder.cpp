#include "language/catalogue_folder.h"

#include "platform/services.h"
#include "platform/text_rules.h"

namespace kxc {

std::string catalogueFolderFor(const std::string& libraryFolder) {
  if (upperCase(libraryFolder).find("C:\\TAMREL") != std::string::npos) return "C:";
  return libraryFolder;
}

std::string catalogueFolder() { return catalogueFolderFor(libraryFolder()); }

std::string cataloguePath(const std::string& folder, const char* fileName) {
  if (!folder.empty() && folder.back() == '/') return folder + fileName;
  return folder + "/" + fileName;
}

}  // namespace kxc
