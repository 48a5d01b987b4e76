// The descriptions of the spreadsheet's own errors (number 1004) that the workbook raises.
#pragma once

namespace kxc::workbook::hosterr {

inline constexpr const char* kRangeFailed = "Method 'Range' of object '_Application' failed";
inline constexpr const char* kNoCellsFound = "No cells were found.";
inline constexpr const char* kNameTaken = "That name is already taken. Try a different one.";
inline constexpr const char* kInvalidName = "The name that you entered is not valid.";
inline constexpr const char* kObjectDefined = "Application-defined or object-defined error";

}  // namespace kxc::workbook::hosterr
