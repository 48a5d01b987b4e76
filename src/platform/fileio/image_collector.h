// The receiving end of the spreadsheet import library: a factory whose sheets, shared strings
// and defined names write what the file holds into a WorkbookImage.
#pragma once

#include <cstddef>
#include <memory>
#include <orcus/spreadsheet/import_interface.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/fileio/workbook_image.h"

namespace kxc::fileio {

// How the file writes formulas and references.
enum class FormulaSyntax {
  A1,   // "SUM(A1:B2,'O''Neil'!$B$3)"
  Odf,  // "of:=SUM([.A1:.B2];[$'O''Neil'.$B$3])"
};

// Thrown from inside the import when the file holds more cells than the collector accepts.
class TooManyCells : public std::runtime_error {
 public:
  explicit TooManyCells(std::size_t limit);
  std::size_t limit() const { return limit_; }

 private:
  std::size_t limit_;
};

// One collector per file read. Cached formula results, styles and everything else that is not
// content are ignored. Cells outside the grid are dropped with a note; formulas that cannot
// be converted keep their text (the workbook then shows an error) with a note. Not
// thread-safe; the import library calls it from the reading thread only.
class ImageCollector : public orcus::spreadsheet::iface::import_factory {
 public:
  ImageCollector(FormulaSyntax syntax, std::size_t cellLimit);
  ~ImageCollector() override;
  ImageCollector(const ImageCollector&) = delete;
  ImageCollector& operator=(const ImageCollector&) = delete;

  // The image collected so far; the collector is empty afterwards.
  WorkbookImage take();

  // import_factory
  orcus::spreadsheet::iface::import_global_settings* get_global_settings() override;
  orcus::spreadsheet::iface::import_shared_strings* get_shared_strings() override;
  orcus::spreadsheet::iface::import_named_expression* get_named_expression() override;
  orcus::spreadsheet::iface::import_reference_resolver* get_reference_resolver(
      orcus::spreadsheet::formula_ref_context_t context) override;
  orcus::spreadsheet::iface::import_sheet* append_sheet(orcus::spreadsheet::sheet_t index,
                                                        std::string_view name) override;
  orcus::spreadsheet::iface::import_sheet* get_sheet(std::string_view name) override;
  orcus::spreadsheet::iface::import_sheet* get_sheet(orcus::spreadsheet::sheet_t index) override;
  void finalize() override {}

  // For the parts below.
  class Strings;
  class Settings;
  class Resolver;
  class Names;
  class Formula;
  class ArrayFormula;
  class SheetSink;

  FormulaSyntax syntax() const { return syntax_; }
  WorkbookImage& image() { return image_; }
  const Strings& strings() const { return *strings_; }
  const Settings& settings() const { return *settings_; }
  // Counts a new cell; throws TooManyCells past the limit.
  void countCell();
  void note(std::string text) { image_.notes.push_back(std::move(text)); }
  // The formula as the workbook reads it ("=..."); a formula that cannot be converted keeps
  // its text and gets a note naming `where`.
  std::string convertFormula(std::string_view text, const std::string& where);

 private:
  FormulaSyntax syntax_;
  std::size_t cellLimit_;
  std::size_t cellCount_ = 0;
  WorkbookImage image_;
  std::unique_ptr<Strings> strings_;
  std::unique_ptr<Settings> settings_;
  std::unique_ptr<Resolver> resolver_;
  std::unique_ptr<Names> names_;
  std::vector<std::unique_ptr<SheetSink>> sheets_;
};

}  // namespace kxc::fileio
