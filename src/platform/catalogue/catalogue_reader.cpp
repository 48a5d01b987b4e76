#include "platform/catalogue/catalogue_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <pugixml.hpp>
#include <sstream>
#include <vector>

namespace kxc {

namespace {

constexpr std::string_view kSchemaNs = "uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882";
constexpr std::string_view kRowsetNs = "urn:schemas-microsoft-com:rowset";
constexpr std::string_view kRowNs = "#RowsetSchema";

struct Failure {
  std::size_t line;
  std::string reason;
};

std::size_t lineAt(std::string_view text, std::ptrdiff_t offset) {
  if (offset < 0) return 0;
  std::size_t end = std::min(text.size(), static_cast<std::size_t>(offset));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), text.begin() + end, '\n'));
}

std::string_view prefixOf(std::string_view qualified) {
  auto colon = qualified.find(':');
  return colon == std::string_view::npos ? std::string_view() : qualified.substr(0, colon);
}

std::string_view localOf(std::string_view qualified) {
  auto colon = qualified.find(':');
  return colon == std::string_view::npos ? qualified : qualified.substr(colon + 1);
}

// The namespace URI a prefix stands for at `node`, looking through its ancestors.
std::string_view namespaceOf(pugi::xml_node node, std::string_view prefix) {
  std::string attribute = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix);
  for (; node; node = node.parent()) {
    if (auto a = node.attribute(attribute.c_str())) return a.value();
  }
  return {};
}

bool isElement(pugi::xml_node node, std::string_view ns, std::string_view local) {
  return node.type() == pugi::node_element && localOf(node.name()) == local &&
         namespaceOf(node, prefixOf(node.name())) == ns;
}

// An attribute in namespace `ns` with the local name `local`; unprefixed attributes are in no
// namespace.
pugi::xml_attribute attributeIn(pugi::xml_node node, std::string_view ns, std::string_view local) {
  for (auto a : node.attributes()) {
    std::string_view prefix = prefixOf(a.name());
    if (prefix.empty() || prefix == "xmlns" || localOf(a.name()) != local) continue;
    if (namespaceOf(node, prefix) == ns) return a;
  }
  return {};
}

pugi::xml_node findDescendant(pugi::xml_node from, std::string_view ns, std::string_view local) {
  for (auto child : from.children()) {
    if (isElement(child, ns, local)) return child;
  }
  return {};
}

struct Column {
  std::string attribute;  // the name the rows use
  std::string name;       // the name the table shows
  std::optional<long> number;
};

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  std::shared_ptr<const CatalogueTable> read() {
    pugi::xml_parse_result parsed =
        doc_.load_buffer(text_.data(), text_.size(), pugi::parse_default, pugi::encoding_auto);
    if (!parsed) throw Failure{lineAt(text_, parsed.offset), parsed.description()};
    pugi::xml_node root = doc_.document_element();
    pugi::xml_node schema = findDescendant(root, kSchemaNs, "Schema");
    if (!schema) throw Failure{lineOf(root), "no schema section (s:Schema) in the file"};
    pugi::xml_node type = findDescendant(schema, kSchemaNs, "ElementType");
    if (!type) throw Failure{lineOf(schema), "the schema has no s:ElementType"};
    std::vector<Column> columns = readColumns(type);
    std::string rowName = type.attribute("name").value();
    pugi::xml_node data = findDescendant(root, kRowsetNs, "data");
    if (!data) throw Failure{lineOf(root), "no data section (rs:data) in the file"};
    std::vector<CatalogueRow> rows;
    readRows(data, rowName, columns, rows);
    std::vector<std::string> names;
    for (auto& c : columns) names.push_back(std::move(c.name));
    return std::make_shared<MemoryCatalogueTable>(std::move(names), std::move(rows));
  }

 private:
  std::size_t lineOf(pugi::xml_node node) const { return lineAt(text_, node.offset_debug()); }

  std::vector<Column> readColumns(pugi::xml_node type) const {
    std::vector<Column> columns;
    for (auto child : type.children()) {
      if (!isElement(child, kSchemaNs, "AttributeType")) continue;
      Column column;
      column.attribute = child.attribute("name").value();
      if (column.attribute.empty()) throw Failure{lineOf(child), "a column has no name"};
      auto alias = attributeIn(child, kRowsetNs, "name");
      column.name = alias ? alias.value() : column.attribute;
      if (auto number = attributeIn(child, kRowsetNs, "number")) column.number = number.as_int();
      for (const auto& seen : columns) {
        if (seen.attribute == column.attribute) {
          throw Failure{lineOf(child), "the column name \"" + column.attribute + "\" repeats"};
        }
      }
      columns.push_back(std::move(column));
    }
    if (columns.empty()) throw Failure{lineOf(type), "the schema names no columns"};
    if (std::all_of(columns.begin(), columns.end(), [](auto& c) { return c.number.has_value(); })) {
      std::stable_sort(columns.begin(), columns.end(),
                       [](auto& a, auto& b) { return *a.number < *b.number; });
    }
    return columns;
  }

  void readRows(pugi::xml_node parent, const std::string& rowName,
                const std::vector<Column>& columns, std::vector<CatalogueRow>& rows) const {
    for (auto child : parent.children()) {
      if (isElement(child, kRowsetNs, "insert")) {
        readRows(child, rowName, columns, rows);
        continue;
      }
      if (!isElement(child, kRowNs, rowName)) continue;
      CatalogueRow row(columns.size());
      for (std::size_t c = 0; c < columns.size(); ++c) {
        if (auto a = child.attribute(columns[c].attribute.c_str())) row[c] = a.value();
      }
      rows.push_back(std::move(row));
    }
  }

  std::string_view text_;
  pugi::xml_document doc_;
};

}  // namespace

CatalogueReadResult readCatalogueText(std::string_view text, const std::string& name) {
  CatalogueReadResult result;
  try {
    result.table = Reader(text).read();
  } catch (const Failure& failure) {
    result.problem = CatalogueProblem{name, failure.line, failure.reason};
  } catch (const std::exception& e) {
    result.problem = CatalogueProblem{name, 0, e.what()};
  }
  return result;
}

CatalogueReadResult readCatalogueFile(const std::string& path) {
  std::error_code ec;
  if (std::filesystem::is_directory(path, ec)) {
    return {nullptr, CatalogueProblem{path, 0, "is a folder, not a file"}};
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    return {nullptr,
            CatalogueProblem{path, 0, std::string("cannot be opened: ") + std::strerror(errno)}};
  }
  std::ostringstream text;
  text << in.rdbuf();
  if (in.bad()) return {nullptr, CatalogueProblem{path, 0, "cannot be read"}};
  return readCatalogueText(text.str(), path);
}

std::shared_ptr<const CatalogueTable> openCatalogueFile(const std::string& path) {
  return readCatalogueFile(path).table;
}

}  // namespace kxc
