// A minimal spreadsheet host for the formula and facade tests: single cells by A1 address,
// defined names, an active cell and a selection.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/application.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc::testing {

class FakeCell : public host::Range {
 public:
  explicit FakeCell(std::string address) : address_(std::move(address)) {}
  std::string formula() const override { return formula_; }
  void setFormula(const std::string& text) override {
    formula_ = text;
    double number = 0;
    if (startsWith(text, "=")) return;  // the test sets the value a formula shows
    value_ = text.empty() ? Variant() : parseNumber(text, number) ? Variant(number) : Variant(text);
  }
  Variant value() const override { return value_; }
  void setValue(const Variant& v) override { value_ = v; }
  Variant value2() const override { return value_; }
  std::string address(bool, bool, bool) const override { return address_; }
  int32_t count() const override { return 1; }
  host::RangeRef cells(int32_t, int32_t) const override { throw RuntimeError(err::kHost); }
  int32_t row() const override { return 1; }
  int32_t column() const override { return 1; }
  std::shared_ptr<host::Worksheet> worksheet() const override { return nullptr; }
  std::string name() const override {
    if (definedName.empty()) throw RuntimeError(err::kHost);
    return definedName;
  }
  host::RangeRef directDependents() const override { throw RuntimeError(err::kHost); }
  std::vector<host::RangeRef> cellList() const override { return {}; }

  std::string definedName;

 private:
  std::string address_;
  std::string formula_;
  Variant value_;
};

// Several cells selected together.
class FakeSelection : public host::Range {
 public:
  explicit FakeSelection(std::vector<host::RangeRef> cells) : cells_(std::move(cells)) {}
  std::string formula() const override { return ""; }
  void setFormula(const std::string&) override {}
  Variant value() const override { throw RuntimeError(err::kTypeMismatch); }
  void setValue(const Variant&) override {}
  Variant value2() const override { throw RuntimeError(err::kTypeMismatch); }
  std::string address(bool, bool, bool) const override { return ""; }
  int32_t count() const override { return static_cast<int32_t>(cells_.size()); }
  host::RangeRef cells(int32_t, int32_t) const override { throw RuntimeError(err::kHost); }
  int32_t row() const override { return 1; }
  int32_t column() const override { return 1; }
  std::shared_ptr<host::Worksheet> worksheet() const override { return nullptr; }
  std::string name() const override { throw RuntimeError(err::kHost); }
  host::RangeRef directDependents() const override { throw RuntimeError(err::kHost); }
  std::vector<host::RangeRef> cellList() const override { return cells_; }

 private:
  std::vector<host::RangeRef> cells_;
};

class FakeApplication : public host::Application {
 public:
  // The cell at an address such as "A1" or "$A$1", created empty on first use.
  std::shared_ptr<FakeCell> cell(const std::string& reference) {
    std::string key = upperCase(replaceAll(reference, "$", ""));
    auto& c = cells_[key];
    if (!c) c = std::make_shared<FakeCell>("$" + leftChars(key, 1) + "$" + midChars(key, 2));
    return c;
  }
  void defineName(const std::string& name, const std::string& reference) {
    names_[upperCase(name)] = reference;
    cell(reference)->definedName = name;
  }
  void selectCells(const std::vector<std::string>& references) {
    std::vector<host::RangeRef> cells;
    for (const auto& r : references) cells.push_back(cell(r));
    if (!cells.empty()) active_ = cells.front();
    selection_ = cells.size() == 1 ? cells.front() : std::make_shared<FakeSelection>(cells);
  }

  host::RangeRef activeCell() override {
    if (!active_) throw RuntimeError(err::kObjectNotSet);
    return active_;
  }
  host::RangeRef rangeSelection() override { return selection_; }
  host::RangeRef selection() override { return selection_; }
  host::RangeRef range(const std::string& reference) override {
    std::string key = upperCase(reference);
    if (auto it = names_.find(key); it != names_.end()) return cell(it->second);
    if (isCellAddress(replaceAll(key, "$", ""))) return cell(key);
    throw RuntimeError(err::kHost, "Method 'Range' of object '_Application' failed");
  }
  std::string caption() const override { return "Fake"; }
  host::CommandBars& commandBars() override { throw RuntimeError(err::kHost); }
  void subscribe(const std::shared_ptr<host::ApplicationEvents>& sink) override {
    sinks.push_back(sink);
  }
  void unsubscribe(const host::ApplicationEvents* sink) override {
    std::erase_if(sinks, [&](auto& w) { return w.lock().get() == sink || w.expired(); });
  }

  std::vector<std::weak_ptr<host::ApplicationEvents>> sinks;

 private:
  // One column letter A-Z and a row number 1-999.
  static bool isCellAddress(const std::string& key) {
    return key.size() >= 2 && key.size() <= 4 && key[0] >= 'A' && key[0] <= 'Z' && key[1] >= '1' &&
           key[1] <= '9' && key.find_first_not_of("0123456789", 1) == std::string::npos;
  }

  std::map<std::string, std::shared_ptr<FakeCell>> cells_;
  std::map<std::string, std::string> names_;
  host::RangeRef active_;
  host::RangeRef selection_;
};

}  // namespace kxc::testing
