#include "zip_builder.h"

#include <array>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kxc::fileio::testing {
namespace {

uint32_t crc32(std::string_view data) {
  static const std::array<uint32_t, 256> table = [] {
    std::array<uint32_t, 256> t{};
    for (uint32_t i = 0; i < 256; ++i) {
      uint32_t c = i;
      for (int k = 0; k < 8; ++k) c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[i] = c;
    }
    return t;
  }();
  uint32_t crc = 0xFFFFFFFFu;
  for (unsigned char byte : data) crc = table[(crc ^ byte) & 0xFF] ^ (crc >> 8);
  return crc ^ 0xFFFFFFFFu;
}

void put16(std::string& out, uint32_t v) {
  out += static_cast<char>(v & 0xFF);
  out += static_cast<char>((v >> 8) & 0xFF);
}

void put32(std::string& out, uint32_t v) {
  put16(out, v & 0xFFFF);
  put16(out, v >> 16);
}

}  // namespace

std::string ZipBuilder::bytes() const {
  std::string out;
  std::string directory;
  for (const auto& [name, content] : entries_) {
    uint32_t offset = static_cast<uint32_t>(out.size());
    uint32_t crc = crc32(content);
    uint32_t size = static_cast<uint32_t>(content.size());
    put32(out, 0x04034b50);
    put16(out, 10);    // version needed
    put16(out, 0);     // flags
    put16(out, 0);     // stored
    put16(out, 0);     // time
    put16(out, 0x21);  // date: 1980-01-01
    put32(out, crc);
    put32(out, size);
    put32(out, size);
    put16(out, static_cast<uint32_t>(name.size()));
    put16(out, 0);
    out += name;
    out += content;

    put32(directory, 0x02014b50);
    put16(directory, 20);  // made by
    put16(directory, 10);
    put16(directory, 0);
    put16(directory, 0);
    put16(directory, 0);
    put16(directory, 0x21);
    put32(directory, crc);
    put32(directory, size);
    put32(directory, size);
    put16(directory, static_cast<uint32_t>(name.size()));
    put16(directory, 0);  // extra
    put16(directory, 0);  // comment
    put16(directory, 0);  // disk
    put16(directory, 0);  // internal attributes
    put32(directory, 0);  // external attributes
    put32(directory, offset);
    directory += name;
  }
  uint32_t directoryOffset = static_cast<uint32_t>(out.size());
  out += directory;
  put32(out, 0x06054b50);
  put16(out, 0);
  put16(out, 0);
  put16(out, static_cast<uint32_t>(entries_.size()));
  put16(out, static_cast<uint32_t>(entries_.size()));
  put32(out, static_cast<uint32_t>(directory.size()));
  put32(out, directoryOffset);
  put16(out, 0);
  return out;
}

std::string odsFile(std::string_view body) {
  std::string content =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<office:document-content"
      " xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\""
      " xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\""
      " xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\""
      " xmlns:of=\"urn:oasis:names:tc:opendocument:xmlns:of:1.2\" office:version=\"1.2\">"
      "<office:body><office:spreadsheet>";
  content += body;
  content += "</office:spreadsheet></office:body></office:document-content>";
  return ZipBuilder()
      .add("mimetype", "application/vnd.oasis.opendocument.spreadsheet")
      .add("content.xml", content)
      .bytes();
}

namespace {

// Both xlsx builders: the sheets listed in order, each in its own part, then an optional
// shared-string table and defined names. Relationship ids start at rId7 so that nothing may
// take them for sheet positions.
ZipBuilder xlsxZip(const std::vector<XlsxSheetPart>& sheets,
                   const std::vector<std::string>& sharedStrings, std::string_view definedNames) {
  const std::string main = "http://schemas.openxmlformats.org/spreadsheetml/2006/main";
  const std::string rel = "http://schemas.openxmlformats.org/officeDocument/2006/relationships";
  const std::string pkg = "http://schemas.openxmlformats.org/package/2006/relationships";
  const std::string type = "application/vnd.openxmlformats-officedocument.spreadsheetml.";
  std::string types =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Types "
      "xmlns=\"http://schemas.openxmlformats.org/package/2006/content-types\">"
      "<Default Extension=\"rels\" "
      "ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
      "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
      "<Override PartName=\"/xl/workbook.xml\" ContentType=\"" +
      type + "sheet.main+xml\"/>";
  std::string workbook = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><workbook xmlns=\"" + main +
                         "\" xmlns:r=\"" + rel + "\"><sheets>";
  std::string rels =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships xmlns=\"" + pkg + "\">";
  ZipBuilder zip;
  for (size_t i = 0; i < sheets.size(); ++i) {
    const std::string id = "rId" + std::to_string(i + 7);
    types += "<Override PartName=\"/" + sheets[i].part + "\" ContentType=\"" + type +
             "worksheet+xml\"/>";
    workbook += "<sheet name=\"" + sheets[i].name + "\" sheetId=\"" + std::to_string(i + 1) +
                "\" r:id=\"" + id + "\"/>";
    rels += "<Relationship Id=\"" + id + "\" Type=\"" + rel + "/worksheet\" Target=\"" +
            sheets[i].target + "\"/>";
  }
  workbook += "</sheets>";
  if (!definedNames.empty()) {
    workbook += "<definedNames>" + std::string(definedNames) + "</definedNames>";
  }
  if (!sharedStrings.empty()) {
    types += "<Override PartName=\"/xl/sharedStrings.xml\" ContentType=\"" + type +
             "sharedStrings+xml\"/>";
    rels += "<Relationship Id=\"rIdS\" Type=\"" + rel +
            "/sharedStrings\" Target=\"sharedStrings.xml\"/>";
    std::string table = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><sst xmlns=\"" + main + "\">";
    for (const auto& text : sharedStrings) table += "<si><t>" + text + "</t></si>";
    zip.add("xl/sharedStrings.xml", table + "</sst>");
  }
  zip.add("[Content_Types].xml", types + "</Types>")
      .add("_rels/.rels", "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Relationships xmlns=\"" +
                              pkg + "\"><Relationship Id=\"rId1\" Type=\"" + rel +
                              "/officeDocument\" Target=\"xl/workbook.xml\"/></Relationships>")
      .add("xl/workbook.xml", workbook + "</workbook>")
      .add("xl/_rels/workbook.xml.rels", rels + "</Relationships>");
  for (const XlsxSheetPart& s : sheets) {
    const bool whole = s.content.rfind("<?xml", 0) == 0;
    zip.add(s.part, whole ? s.content
                          : "<?xml version=\"1.0\" encoding=\"UTF-8\"?><worksheet xmlns=\"" + main +
                                "\"><sheetData>" + s.content + "</sheetData></worksheet>");
  }
  return zip;
}

std::vector<XlsxSheetPart> plainParts(
    const std::vector<std::pair<std::string, std::string>>& sheets) {
  std::vector<XlsxSheetPart> parts;
  for (size_t i = 0; i < sheets.size(); ++i) {
    const std::string file = "worksheets/sheet" + std::to_string(i + 1) + ".xml";
    parts.push_back({sheets[i].first, "xl/" + file, file, sheets[i].second});
  }
  return parts;
}

}  // namespace

std::string xlsxFile(const std::vector<std::pair<std::string, std::string>>& sheets,
                     const std::vector<std::string>& sharedStrings, std::string_view definedNames) {
  return xlsxZip(plainParts(sheets), sharedStrings, definedNames).bytes();
}

ZipBuilder xlsxArchive(const std::vector<std::pair<std::string, std::string>>& sheets,
                       const std::vector<std::string>& sharedStrings) {
  return xlsxZip(plainParts(sheets), sharedStrings, {});
}

std::string xlsxPackage(const std::vector<XlsxSheetPart>& sheets) {
  return xlsxZip(sheets, {}, {}).bytes();
}

void writeFile(const std::string& path, std::string_view bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out.good()) throw std::runtime_error("cannot write " + path);
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace kxc::fileio::testing
