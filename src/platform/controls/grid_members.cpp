#include "platform/controls/grid.h"

namespace kxc::controls {

namespace {
// The new value of a property put is its last argument.
const Variant& putValue(Arguments args) { return argAt(args, args.empty() ? 0 : args.size() - 1); }
}  // namespace

void Grid::buildMembers() {
  members_.method("ClearAll", [this](Arguments) {
    clearAll();
    return Variant();
  });
  members_.property(
      "MaxCols", [this](Arguments) { return Variant(maxCols()); },
      [this](Arguments args) {
        setMaxCols(putValue(args).toInt32());
        return Variant();
      });
  members_.property(
      "MaxRows", [this](Arguments) { return Variant(maxRows()); },
      [this](Arguments args) {
        setMaxRows(putValue(args).toInt32());
        return Variant();
      });
  members_.property(
      "Col", [this](Arguments) { return Variant(col()); },
      [this](Arguments args) {
        setCol(putValue(args).toInt32());
        return Variant();
      });
  members_.property(
      "Row", [this](Arguments) { return Variant(row()); },
      [this](Arguments args) {
        setRow(putValue(args).toInt32());
        return Variant();
      });
  members_.property(
      "Text", [this](Arguments) { return Variant(text()); },
      [this](Arguments args) {
        setText(putValue(args).toText());
        return Variant();
      });
  members_.method("SetText", [this](Arguments args) {
    setCellText(argAt(args, 0).toInt32(), argAt(args, 1).toInt32(), argAt(args, 2).toText());
    return Variant();
  });
  members_.method("GetText", [this](Arguments args) {
    return Variant(cellText(argAt(args, 0).toInt32(), argAt(args, 1).toInt32()));
  });
  members_.method("SetBlock", [this](Arguments args) {
    setBlock(argAt(args, 0).toInt32(), argAt(args, 1).toInt32(), argAt(args, 2).toText());
    return Variant();
  });
  members_.property(
      "ColWidth", [this](Arguments args) { return Variant(colWidth(argAt(args, 0).toInt32())); },
      [this](Arguments args) {
        setColWidth(argAt(args, 0).toInt32(), argAt(args, 1).toDouble());
        return Variant();
      });
}

Variant Grid::invoke(std::string_view member, Arguments args, CallKind kind) {
  return members_.invoke(member, args, kind);
}

}  // namespace kxc::controls
