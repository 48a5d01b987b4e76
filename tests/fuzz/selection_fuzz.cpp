// Fuzzes the lookup's selection text decoder. The input is the list's row texts, one a line,
// then a line holding the selection text. Decoding any text must leave a selection the
// encoder can write; for rows the codec promises to keep (unique, sorted, plain texts),
// decoding the encoded selection must reselect exactly the same rows.
#include <algorithm>
#include <string>
#include <vector>

#include "dialogs/selection_codec.h"
#include "fuzz_support.h"

namespace {

class Rows : public kxc::SelectionRows {
 public:
  explicit Rows(std::vector<std::string> texts)
      : texts_(std::move(texts)), selected_(texts_.size(), false) {}
  int32_t count() const override { return static_cast<int32_t>(texts_.size()); }
  std::string_view text(int32_t row) const override { return texts_[row - 1]; }
  bool selected(int32_t row) const override { return selected_[row - 1]; }
  void setSelected(int32_t row, bool on) override { selected_[row - 1] = on; }
  const std::vector<bool>& selection() const { return selected_; }

 private:
  std::vector<std::string> texts_;
  std::vector<bool> selected_;
};

// Texts the codec is documented to reselect exactly.
bool keepsSelections(const std::vector<std::string>& texts) {
  if (!std::is_sorted(texts.begin(), texts.end()) ||
      std::adjacent_find(texts.begin(), texts.end()) != texts.end()) {
    return false;
  }
  return std::all_of(texts.begin(), texts.end(), [](const std::string& t) {
    return !t.empty() && t != kxc::kAllMembers && t.find(',') == std::string::npos &&
           t.find("..") == std::string::npos && t.find("<<") == std::string::npos &&
           t.front() != '.' && t.back() != '.';
  });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<std::string_view> lines = kxc::fuzz::fields(kxc::fuzz::asText(data, size), "\n", 64);
  std::string_view selection = lines.back();
  lines.pop_back();
  std::vector<std::string> texts(lines.begin(), lines.end());
  Rows rows(texts);
  kxc::decodeSelection(rows, selection);

  std::string first, last;
  bool single = false, isRange = false;
  std::string encoded = kxc::encodeSelection(rows, first, last, single, isRange);
  if (keepsSelections(texts) && !encoded.empty()) {
    std::vector<bool> before = rows.selection();
    kxc::decodeSelection(rows, encoded);
    KXC_FUZZ_CHECK(rows.selection() == before);
  }
  return 0;
}
