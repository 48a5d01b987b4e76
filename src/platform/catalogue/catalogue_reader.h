// Reads tables persisted in the rowset XML format: a schema section naming the columns, then a
// data section with one row element per record whose attributes hold the values.
//
//   <xml xmlns:s="uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882"
//        xmlns:rs="urn:schemas-microsoft-com:rowset" xmlns:z="#RowsetSchema">
//     <s:Schema id="RowsetSchema">
//       <s:ElementType name="row" content="eltOnly">
//         <s:AttributeType name="c1" rs:name="Code" rs:number="1"/> ...
//       </s:ElementType>
//     </s:Schema>
//     <rs:data> <z:row c1="OK&amp;" .../> ... </rs:data>
//   </xml>
//
// Namespaces are recognised by their URIs, whatever the prefixes. A column is named by its
// rs:name where present, else by its name; rows give values under the schema's `name`. Columns
// are in rs:number order when every column has one, else in file order. A missing attribute is
// a null; entities and character references are decoded. Rows inside rs:insert count as rows.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/catalogue_table.h"

namespace kxc {

// Why a file could not be read: the file, its 1-based line (0 when the file as a whole is at
// fault) and the reason.
struct CatalogueProblem {
  std::string file;
  std::size_t line = 0;
  std::string reason;
};

struct CatalogueReadResult {
  std::shared_ptr<const CatalogueTable> table;  // null when there is a problem
  std::optional<CatalogueProblem> problem;
};

CatalogueReadResult readCatalogueFile(const std::string& path);
// Reads `text` as if it were the file `name` (used for problems only).
CatalogueReadResult readCatalogueText(std::string_view text, const std::string& name);

// The opener for the catalogue port: the table, or null when the file has a problem.
std::shared_ptr<const CatalogueTable> openCatalogueFile(const std::string& path);

}  // namespace kxc
