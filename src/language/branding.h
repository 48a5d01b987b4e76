// Branding substitution: the installer's rename rules and brand word, read from the per-machine
// settings, and the rewriting of translated texts with them.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace kxc {

inline constexpr const char* kBrandingKey = "Software\\Kestra\\TmBvInstall\\Branding";
inline constexpr const char* kBrandingRenameKey = "Software\\Kestra\\TmBvInstall\\Branding\\Rename";
// The product word that the brand word replaces.
inline constexpr const char* kProductWord = "Kestra";

// One numbered rule: a text matching `Pattern` as a whole (the host's wildcard match,
// case-sensitive) gets every `Replace` replaced by `With`.
struct RenameRule {
  std::string Pattern;
  std::string Replace;
  std::string With;
};

// Reads one named value; returns true ("not found") and hands back the default when it cannot.
using BrandingFinder =
    std::function<bool(const std::string& name, std::string& value, const std::string& deflt)>;

class Branding {
 public:
  // Reads "Count" and the rules 001-Pattern, 001-Replace, 001-With ... through `find`. A rule
  // with a part missing, a blank Pattern or Replace, or an empty With is skipped: its slot
  // holds three empty texts and the list ends at the last valid rule, while the count stays
  // what the settings say.
  void loadRules(const BrandingFinder& find);

  // Reads the state once: enabled only for "Enabled" exactly "Yes"; `brandWord` as read.
  void setState(bool enabled, std::string brandWord);
  bool enabled() const { return enabled_; }
  const std::string& brandWord() const { return brandWord_; }

  int16_t ruleCount() const { return count_; }
  const std::vector<RenameRule>& rules() const { return rules_; }

  // Rewrites `text` in place: each rule in order, then the product word. A rule numbered past
  // the list (or any other failure) is skipped when `skipFailures` is set; otherwise it raises
  // 9 "Subscript out of range" with `text` left as rewritten so far, before the brand word.
  void apply(std::string& text, bool skipFailures) const;

 private:
  int16_t count_ = 0;
  std::vector<RenameRule> rules_;
  bool enabled_ = false;
  std::string brandWord_;
};

}  // namespace kxc
