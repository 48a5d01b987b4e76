#include "platform/qt/key_mapping.h"

#include <utility>

namespace kxc::qt {

namespace {

// Keys whose code does not follow from a range. Shifted punctuation maps to the key that
// produces it on a US keyboard, since the key code names the key, not the character.
constexpr std::pair<int, int> kKeys[] = {
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},           {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},       {Qt::Key_Return, 13},       {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},      {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20},     {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},       {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},         {Qt::Key_Home, 36},         {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},          {Qt::Key_Right, 39},        {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},       {Qt::Key_Insert, 45},       {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},        {Qt::Key_Meta, 91},         {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},    {Qt::Key_ScrollLock, 145},  {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},      {Qt::Key_Equal, 187},       {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},      {Qt::Key_Less, 188},        {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189}, {Qt::Key_Period, 190},      {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},      {Qt::Key_Question, 191},    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192}, {Qt::Key_BracketLeft, 219}, {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},  {Qt::Key_Bar, 220},         {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221}, {Qt::Key_Apostrophe, 222},  {Qt::Key_QuoteDbl, 222},
    {Qt::Key_Exclam, 49},      {Qt::Key_At, 50},           {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52},      {Qt::Key_Percent, 53},      {Qt::Key_AsciiCircum, 54},
    {Qt::Key_Ampersand, 55},   {Qt::Key_ParenLeft, 57},    {Qt::Key_ParenRight, 48},
};

int keypadCode(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 96 + (key - Qt::Key_0);
  switch (key) {
    case Qt::Key_Asterisk:
      return 106;
    case Qt::Key_Plus:
      return 107;
    case Qt::Key_Minus:
      return 109;
    case Qt::Key_Period:
    case Qt::Key_Comma:
      return 110;
    case Qt::Key_Slash:
      return 111;
    default:
      return 0;
  }
}

}  // namespace

int hostKeyCode(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers & Qt::KeypadModifier) {
    if (int code = keypadCode(key)) return code;
  }
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return 65 + (key - Qt::Key_A);
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return 48 + (key - Qt::Key_0);
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return 112 + (key - Qt::Key_F1);
  if (key == Qt::Key_Asterisk) return 56;  // Shift+8 on the main keyboard
  for (const auto& [qtKey, code] : kKeys) {
    if (qtKey == key) return code;
  }
  return 0;
}

int hostShiftFlags(Qt::KeyboardModifiers modifiers) {
  int flags = 0;
  if (modifiers & Qt::ShiftModifier) flags |= 1;
  if (modifiers & Qt::ControlModifier) flags |= 2;
  if (modifiers & Qt::AltModifier) flags |= 4;
  return flags;
}

int hostMouseButtons(Qt::MouseButtons buttons) {
  int flags = 0;
  if (buttons & Qt::LeftButton) flags |= 1;
  if (buttons & Qt::RightButton) flags |= 2;
  if (buttons & Qt::MiddleButton) flags |= 4;
  return flags;
}

}  // namespace kxc::qt
