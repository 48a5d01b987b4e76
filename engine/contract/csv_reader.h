// A reader of comma-separated records (RFC 4180): fields separated by ",", records by CRLF or
// LF, fields optionally enclosed in double quotes, inside which "" stands for one quote and
// commas and line breaks are ordinary characters.
#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace kxc::engine {

class CsvReader {
 public:
  // Reads from `in`, which must outlive the reader.
  explicit CsvReader(std::istream& in) : in_(in) {}

  // Reads the next record into `fields`; false at the end of the input. `line()` is then the
  // 1-based line the record starts on. A quote left open at the end of the input raises 5
  // with the reason "a quoted field is not closed"; text after a closing quote raises 5 with
  // "text after a closing quote". A leading UTF-8 byte-order mark is skipped.
  bool next(std::vector<std::string>& fields);

  int64_t line() const { return recordLine_; }
  uint64_t bytesRead() const { return bytes_; }

 private:
  int get();
  int peek() { return in_.peek(); }

  std::istream& in_;
  int64_t nextLine_ = 1;
  int64_t recordLine_ = 0;
  uint64_t bytes_ = 0;
  bool started_ = false;
};

}  // namespace kxc::engine
