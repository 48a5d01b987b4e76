#include "platform/fileio/spreadsheet_reader.h"

#include <exception>
#include <new>
#include <orcus/format_detection.hpp>
#include <orcus/orcus_ods.hpp>
#include <orcus/orcus_xlsx.hpp>

#include "platform/fileio/image_collector.h"
#include "platform/fileio/ods_supplement.h"
#include "platform/fileio/xlsx_supplement.h"

namespace kxc::fileio {

SpreadsheetFormat detectSpreadsheetFormat(std::string_view bytes) {
  try {
    auto data = reinterpret_cast<const unsigned char*>(bytes.data());
    switch (orcus::detect(data, bytes.size())) {
      case orcus::format_t::xlsx:
        return SpreadsheetFormat::Xlsx;
      case orcus::format_t::ods:
        return SpreadsheetFormat::Ods;
      default:
        return SpreadsheetFormat::Unknown;
    }
  } catch (...) {
    return SpreadsheetFormat::Unknown;
  }
}

SpreadsheetReadResult readSpreadsheet(std::string_view bytes, std::size_t cellLimit) {
  SpreadsheetReadResult result;
  SpreadsheetFormat format = detectSpreadsheetFormat(bytes);
  if (format == SpreadsheetFormat::Unknown) {
    result.failure = "it is not an .xlsx or .ods spreadsheet";
    return result;
  }
  try {
    ImageCollector collector(
        format == SpreadsheetFormat::Xlsx ? FormulaSyntax::A1 : FormulaSyntax::Odf, cellLimit);
    if (format == SpreadsheetFormat::Xlsx) {
      orcus::orcus_xlsx reader(&collector);
      reader.read_stream(bytes);
      applyXlsxSupplement(readXlsxSupplement(bytes), collector.image(),
                          [&] { collector.countCell(); });
    } else {
      orcus::orcus_ods reader(&collector);
      reader.read_stream(bytes);
      applyOdsSupplement(readOdsSupplement(bytes), collector.image(),
                         [&] { collector.countCell(); });
    }
    WorkbookImage image = collector.take();
    if (image.sheets.empty()) {
      result.failure = "it holds no worksheet";
      return result;
    }
    result.image = std::move(image);
  } catch (const TooManyCells& e) {
    result.failure = "it holds " + std::string(e.what()) + ", too many to open";
  } catch (const std::bad_alloc&) {
    result.failure = "it is too large to open";
  } catch (const std::exception& e) {
    result.failure = "the file is damaged (" + std::string(e.what()) + ")";
  } catch (...) {
    result.failure = "the file is damaged";
  }
  return result;
}

}  // namespace kxc::fileio
