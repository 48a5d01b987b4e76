// The host's Worksheet and Workbook.
#pragma once

#include <memory>
#include <string>

namespace kxc::host {

class Workbook {
 public:
  virtual ~Workbook() = default;
  virtual std::string name() const = 0;  // file name with extension, "Book1.xlsx"
};

class Worksheet {
 public:
  virtual ~Worksheet() = default;
  virtual std::string name() const = 0;
  virtual std::shared_ptr<Workbook> parent() const = 0;
};

}  // namespace kxc::host
