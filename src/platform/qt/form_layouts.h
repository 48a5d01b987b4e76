// Qt layouts for the dialogs that have one, placing their controls by name so that captions
// of any length (German, Japanese) are never cut off. Other forms keep their controls' own
// positions and sizes.
#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

class QWidget;

namespace kxc::qt {

// The widget of the form's control `name`, or null when there is none.
using WidgetByName = std::function<QWidget*(std::string_view name)>;

// Whether `formName` (compared case-insensitively) has a layout of its own: frmCacheFormula,
// frmLookup and frmTransactions.
bool hasFormLayout(std::string_view formName);

// Lays out `content` for `formName` and returns the widgets placed (controls the form lacks are
// skipped), or nullopt when the form has no layout of its own. Frames named in a layout become
// containers of the controls placed in them.
//  - frmCacheFormula: frame frCache with the cache row (lblCache, txtCache, cmdCache,
//    lblCacheVal) and the measure row (lblMeasureIndex, txtMeasureIndex, cmdMeasureIndex,
//    lblMeasureIndexVal); frame frDim with the dimension row (lblDimensions, txtDimensions,
//    cmdDimension, lblDimensionsVal) above lvDimensions, which takes the spare height;
//    lblResult; cmdOk and cmdCancel at the bottom right.
//  - frmLookup: lvList, then cmdOk and cmdCancel at the bottom right.
//  - frmTransactions: vasTrans, then cmdCancel at the bottom right.
// The caller adds widgets the layout did not place with addUnplaced.
std::optional<std::vector<QWidget*>> applyFormLayout(std::string_view formName, QWidget& content,
                                                     const WidgetByName& widget);

// Adds `widget` below what the layout of `content` already holds (before its button row).
void addUnplaced(QWidget& content, QWidget& widget);

}  // namespace kxc::qt
