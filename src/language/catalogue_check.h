// Checks the catalogue and the language details against the keys in use: missing keys and
// translations, dropped placeholders, access keys that cannot be placed, missing language rows.
#pragma once

#include <string>
#include <vector>

namespace kxc {

class CatalogueTable;

// One line per finding, naming the file, the language and the key concerned; empty when
// everything is in place. A null table is not checked (its reading problem is reported apart).
std::vector<std::string> checkCatalogues(const CatalogueTable* languages,
                                         const CatalogueTable* details);

}  // namespace kxc
