#include "platform/workbook/dependency_graph.h"

#include <algorithm>
#include <unordered_set>

namespace kxc::workbook {
namespace {

template <typename T, typename Pred>
void eraseFirst(std::vector<T>& v, Pred pred) {
  auto it = std::find_if(v.begin(), v.end(), pred);
  if (it == v.end()) return;
  *it = std::move(v.back());
  v.pop_back();
}

}  // namespace

void DependencyGraph::link(const CellKey& dependent, const Block& block) {
  const Area& a = block.area;
  if (a.cellCount() > kIndexedAreaCells) {
    areaDependents_[block.sheet].push_back({a, dependent});
    return;
  }
  for (int32_t r = a.top; r <= a.bottom; ++r) {
    for (int32_t c = a.left; c <= a.right; ++c) {
      cellDependents_[{block.sheet, r, c}].push_back(dependent);
    }
  }
}

void DependencyGraph::unlink(const CellKey& dependent, const Block& block) {
  const Area& a = block.area;
  if (a.cellCount() > kIndexedAreaCells) {
    auto it = areaDependents_.find(block.sheet);
    if (it == areaDependents_.end()) return;
    eraseFirst(it->second,
               [&](const AreaEntry& e) { return e.dependent == dependent && e.area == a; });
    return;
  }
  for (int32_t r = a.top; r <= a.bottom; ++r) {
    for (int32_t c = a.left; c <= a.right; ++c) {
      auto it = cellDependents_.find({block.sheet, r, c});
      if (it == cellDependents_.end()) continue;
      eraseFirst(it->second, [&](const CellKey& k) { return k == dependent; });
      if (it->second.empty()) cellDependents_.erase(it);
    }
  }
}

void DependencyGraph::setPrecedents(const CellKey& cell, const std::vector<Block>& precedents) {
  remove(cell);
  for (const Block& b : precedents) link(cell, b);
  forward_[cell] = precedents;
}

void DependencyGraph::remove(const CellKey& cell) {
  auto it = forward_.find(cell);
  if (it == forward_.end()) return;
  for (const Block& b : it->second) unlink(cell, b);
  forward_.erase(it);
}

const std::vector<Block>* DependencyGraph::precedentsOf(const CellKey& cell) const {
  auto it = forward_.find(cell);
  return it == forward_.end() ? nullptr : &it->second;
}

std::vector<CellKey> DependencyGraph::formulaCells() const {
  std::vector<CellKey> cells;
  cells.reserve(forward_.size());
  for (const auto& [cell, precedents] : forward_) cells.push_back(cell);
  return cells;
}

void DependencyGraph::appendDependents(const CellKey& cell, std::vector<CellKey>& out) const {
  if (auto it = cellDependents_.find(cell); it != cellDependents_.end()) {
    out.insert(out.end(), it->second.begin(), it->second.end());
  }
  if (auto it = areaDependents_.find(cell.sheet); it != areaDependents_.end()) {
    for (const AreaEntry& e : it->second) {
      if (e.area.contains(cell.row, cell.column)) out.push_back(e.dependent);
    }
  }
}

std::vector<CellKey> DependencyGraph::dependentsOf(const Block& block) const {
  std::unordered_set<CellKey> seen;
  std::vector<CellKey> out;
  auto take = [&](const CellKey& k) {
    if (seen.insert(k).second) out.push_back(k);
  };
  if (block.area.cellCount() <= kIndexedAreaCells) {
    std::vector<CellKey> found;
    const Area& a = block.area;
    for (int32_t r = a.top; r <= a.bottom; ++r) {
      for (int32_t c = a.left; c <= a.right; ++c) appendDependents({block.sheet, r, c}, found);
    }
    for (const CellKey& k : found) take(k);
    return out;
  }
  // A large block: ask every formula instead of every cell.
  for (const auto& [cell, precedents] : forward_) {
    for (const Block& p : precedents) {
      if (p.sheet == block.sheet && p.area.intersects(block.area)) take(cell);
    }
  }
  return out;
}

std::vector<RecalcStep> DependencyGraph::recalcOrder(std::span<const CellKey> changed) const {
  // Tarjan's strongly connected components over "is read by" edges, with an explicit stack.
  // Components come out dependents first; reversed, they are a valid evaluation order.
  std::unordered_map<CellKey, int32_t> ids;
  std::vector<CellKey> nodes;
  std::vector<std::vector<int32_t>> edges;
  std::vector<int32_t> index, low;
  std::vector<char> onStack, selfLoop;
  std::vector<CellKey> scratch;

  auto nodeOf = [&](const CellKey& k) {
    auto [it, fresh] = ids.try_emplace(k, static_cast<int32_t>(nodes.size()));
    if (fresh) {
      nodes.push_back(k);
      edges.emplace_back();
      index.push_back(-1);
      low.push_back(0);
      onStack.push_back(0);
      selfLoop.push_back(0);
    }
    return it->second;
  };
  auto loadEdges = [&](int32_t v) {
    scratch.clear();
    appendDependents(nodes[v], scratch);
    std::vector<int32_t> out;
    out.reserve(scratch.size());
    for (const CellKey& k : scratch) {
      int32_t w = nodeOf(k);
      if (w == v) selfLoop[v] = 1;
      out.push_back(w);
    }
    edges[v] = std::move(out);
  };

  std::vector<int32_t> roots;
  for (const CellKey& k : changed) {
    if (isFormula(k)) {
      roots.push_back(nodeOf(k));
      continue;
    }
    scratch.clear();
    appendDependents(k, scratch);
    std::vector<CellKey> deps = scratch;
    for (const CellKey& d : deps) roots.push_back(nodeOf(d));
  }

  std::vector<RecalcStep> emitted;
  std::vector<int32_t> sccStack;
  struct Frame {
    int32_t v;
    size_t next;
  };
  std::vector<Frame> frames;
  int32_t counter = 0;
  auto visit = [&](int32_t v) {
    index[v] = low[v] = counter++;
    sccStack.push_back(v);
    onStack[v] = 1;
    loadEdges(v);
    frames.push_back({v, 0});
  };

  for (int32_t root : roots) {
    if (index[root] != -1) continue;
    visit(root);
    while (!frames.empty()) {
      Frame& f = frames.back();
      int32_t v = f.v;
      if (f.next < edges[v].size()) {
        int32_t w = edges[v][f.next++];
        if (index[w] == -1) {
          visit(w);
        } else if (onStack[w]) {
          low[v] = std::min(low[v], index[w]);
        }
        continue;
      }
      frames.pop_back();
      if (!frames.empty()) low[frames.back().v] = std::min(low[frames.back().v], low[v]);
      if (low[v] != index[v]) continue;
      size_t start = sccStack.size();
      do {
        --start;
      } while (sccStack[start] != v);
      bool cyclic = sccStack.size() - start > 1 || selfLoop[v];
      for (size_t i = start; i < sccStack.size(); ++i) {
        onStack[sccStack[i]] = 0;
        emitted.push_back({nodes[sccStack[i]], cyclic});
      }
      sccStack.resize(start);
    }
  }
  std::reverse(emitted.begin(), emitted.end());
  return emitted;
}

}  // namespace kxc::workbook
