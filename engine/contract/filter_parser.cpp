#include "engine/contract/filter_parser.h"

#include <algorithm>
#include <optional>

#include "engine/contract/engine_errors.h"
#include "platform/runtime_error.h"
#include "platform/text_rules.h"

namespace kxc::engine {

namespace {

constexpr std::string_view kAll = "<ALL>";

std::string filterText(const Variant& filter) {
  if (filter.isObject() || filter.isError()) throw RuntimeError(err::kTypeMismatch);
  return filter.toText();
}

bool isAllText(std::string_view text) {
  std::string_view t = trimBlanks(text);
  return t.empty() || upperCase(t) == kAll;
}

std::optional<int32_t> findLoose(const CacheModel& c, int dim, std::string_view text) {
  if (auto m = c.findMember(dim, text)) return m;
  std::string_view trimmed = trimBlanks(text);
  if (trimmed.size() != text.size() && !trimmed.empty()) return c.findMember(dim, trimmed);
  return std::nullopt;
}

enum class PieceStatus { Ok, Unknown, Unreadable };

struct PieceResult {
  PieceStatus status = PieceStatus::Ok;
  std::string unknown;  // the text that named no member
};

// One piece of a selection: a member, or a run "first..last".
PieceResult resolvePiece(const CacheModel& c, int dim, std::string_view piece,
                         std::vector<int32_t>& out) {
  if (trimBlanks(piece).empty()) return {PieceStatus::Unreadable, {}};
  if (auto m = findLoose(c, dim, piece)) {
    out.push_back(*m);
    return {};
  }
  size_t first = piece.find("..");
  if (first == std::string_view::npos) return {PieceStatus::Unknown, std::string(piece)};
  // A member value may itself hold "..": try every split until both ends are members.
  for (size_t pos = first; pos != std::string_view::npos; pos = piece.find("..", pos + 1)) {
    auto from = findLoose(c, dim, piece.substr(0, pos));
    auto to = findLoose(c, dim, piece.substr(pos + 2));
    if (from && to) {
      auto [lo, hi] = std::minmax(*from, *to);
      for (int32_t m = lo; m <= hi; ++m) out.push_back(m);
      return {};
    }
  }
  std::string_view left = piece.substr(0, first), right = piece.substr(first + 2);
  if (trimBlanks(left).empty() || trimBlanks(right).empty()) return {PieceStatus::Unreadable, {}};
  if (!findLoose(c, dim, left)) return {PieceStatus::Unknown, std::string(trimBlanks(left))};
  return {PieceStatus::Unknown, std::string(trimBlanks(right))};
}

std::vector<int32_t> parseSelection(const CacheModel& c, int dim, const std::string& text) {
  std::string_view body = text;
  if (startsWith(body, "<<")) body.remove_prefix(2);
  if (trimBlanks(body).empty()) throw badFilter(text);
  std::vector<size_t> ends;  // candidate ends of a piece: every comma and the end
  for (size_t i = 0; i < body.size(); ++i) {
    if (body[i] == ',') ends.push_back(i);
  }
  ends.push_back(body.size());

  std::vector<int32_t> out;
  size_t start = 0;
  auto next = ends.begin();
  while (start <= body.size()) {
    next = std::lower_bound(next, ends.end(), start);
    // The shortest piece first; a longer one only when a member value holds a comma.
    PieceResult firstResult;
    bool taken = false;
    for (auto e = next; e != ends.end(); ++e) {
      PieceResult r = resolvePiece(c, dim, body.substr(start, *e - start), out);
      if (e == next) firstResult = r;
      if (r.status == PieceStatus::Ok) {
        start = *e + 1;
        taken = true;
        break;
      }
    }
    if (!taken) {
      if (firstResult.status == PieceStatus::Unknown) {
        throw unknownMember(firstResult.unknown, c.definition().dimensions[dim].caption);
      }
      throw badFilter(text);
    }
  }
  std::sort(out.begin(), out.end());
  out.erase(std::unique(out.begin(), out.end()), out.end());
  return out;
}

}  // namespace

bool isNoFilter(const Variant& filter) {
  if (filter.isEmpty()) return true;
  return filter.isText() && isAllText(filter.text());
}

MemberFilter parseFilter(const CacheModel& cache, int dim, const Variant& filter) {
  if (filter.isEmpty()) return {};
  std::string text = filterText(filter);
  if (isAllText(text)) return {};
  MemberFilter f;
  f.all = false;
  if (auto m = findLoose(cache, dim, text)) {
    f.members.push_back(*m);
  } else if (startsWith(text, "<<") || text.find(',') != std::string::npos ||
             text.find("..") != std::string::npos) {
    f.members = parseSelection(cache, dim, text);
  } else {
    throw unknownMember(text, cache.definition().dimensions[dim].caption);
  }
  if (f.members.size() == static_cast<size_t>(cache.memberCount(dim))) return {};
  return f;
}

std::vector<MemberFilter> parseFilters(const CacheModel& cache, std::span<const Variant> filters) {
  const int nd = cache.dimensionCount();
  std::vector<MemberFilter> out(nd);
  for (size_t i = 0; i < filters.size(); ++i) {
    if (static_cast<int>(i) < nd) {
      out[i] = parseFilter(cache, static_cast<int>(i), filters[i]);
    } else if (!isNoFilter(filters[i])) {
      throw RuntimeError(engine_err::kTooManyFilters,
                         "Filter " + std::to_string(i + 1) + " is given but cache " + cache.name() +
                             " has " + std::to_string(nd) + " dimensions");
    }
  }
  return out;
}

}  // namespace kxc::engine
