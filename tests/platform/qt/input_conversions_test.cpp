// Key codes, shift flags, mouse buttons, captions, twips, colours, pointers and message-box
// styles as the binding translates them.
#include <gtest/gtest.h>

#include "platform/qt/caption_text.h"
#include "platform/qt/key_mapping.h"
#include "platform/qt/message_box_style.h"
#include "platform/qt/mouse_pointer.h"
#include "platform/qt/screen_units.h"
#include "platform/qt/widget_colors.h"

namespace kxc::qt {
namespace {

struct KeyCase {
  int key;
  Qt::KeyboardModifiers modifiers;
  int code;
};

TEST(HostKeyCode, MapsKeysToTheCodesHandlersCompare) {
  const KeyCase cases[] = {
      {Qt::Key_F4, Qt::NoModifier, 115},       {Qt::Key_F1, Qt::NoModifier, 112},
      {Qt::Key_F12, Qt::NoModifier, 123},      {Qt::Key_A, Qt::NoModifier, 65},
      {Qt::Key_Z, Qt::ShiftModifier, 90},      {Qt::Key_0, Qt::NoModifier, 48},
      {Qt::Key_5, Qt::KeypadModifier, 101},    {Qt::Key_Plus, Qt::KeypadModifier, 107},
      {Qt::Key_Return, Qt::NoModifier, 13},    {Qt::Key_Enter, Qt::KeypadModifier, 13},
      {Qt::Key_Escape, Qt::NoModifier, 27},    {Qt::Key_Delete, Qt::NoModifier, 46},
      {Qt::Key_Home, Qt::NoModifier, 36},      {Qt::Key_End, Qt::NoModifier, 35},
      {Qt::Key_Down, Qt::NoModifier, 40},      {Qt::Key_PageDown, Qt::NoModifier, 34},
      {Qt::Key_Dollar, Qt::ShiftModifier, 52}, {Qt::Key_Colon, Qt::ShiftModifier, 186},
      {Qt::Key_Shift, Qt::ShiftModifier, 16},  {Qt::Key_Control, Qt::ControlModifier, 17},
      {Qt::Key_unknown, Qt::NoModifier, 0},    {Qt::Key_VolumeUp, Qt::NoModifier, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(hostKeyCode(c.key, c.modifiers), c.code) << "Qt key 0x" << std::hex << c.key;
  }
}

TEST(HostShiftFlags, AddsShiftCtrlAndAltAndIgnoresOthers) {
  EXPECT_EQ(hostShiftFlags(Qt::NoModifier), 0);
  EXPECT_EQ(hostShiftFlags(Qt::ShiftModifier), 1);
  EXPECT_EQ(hostShiftFlags(Qt::ControlModifier), 2);
  EXPECT_EQ(hostShiftFlags(Qt::AltModifier), 4);
  EXPECT_EQ(hostShiftFlags(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
  EXPECT_EQ(hostShiftFlags(Qt::MetaModifier | Qt::KeypadModifier), 0);
}

TEST(HostMouseButtons, NumbersLeftRightAndMiddle) {
  EXPECT_EQ(hostMouseButtons(Qt::LeftButton), 1);
  EXPECT_EQ(hostMouseButtons(Qt::RightButton), 2);
  EXPECT_EQ(hostMouseButtons(Qt::MiddleButton), 4);
  EXPECT_EQ(hostMouseButtons(Qt::LeftButton | Qt::RightButton), 3);
  EXPECT_EQ(hostMouseButtons(Qt::BackButton), 0);
}

TEST(CaptionText, KeepsAccessKeysForButtonsAndDropsThemForLabels) {
  struct Case {
    const char* caption;
    const char* mnemonic;
    const char* plain;
  };
  const Case cases[] = {
      {"&OK", "&OK", "OK"},
      {"R&&D", "R&&D", "R&D"},
      {"Sales && &Costs", "Sales && &Costs", "Sales & Costs"},
      {"Select All&", "Select All", "Select All"},
      {"&", "", ""},
      {"", "", ""},
      {"Zurücksetzen &Ä", "Zurücksetzen &Ä", "Zurücksetzen Ä"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(mnemonicText(QString::fromUtf8(c.caption)), QString::fromUtf8(c.mnemonic))
        << c.caption;
    EXPECT_EQ(plainCaptionText(QString::fromUtf8(c.caption)), QString::fromUtf8(c.plain))
        << c.caption;
  }
}

TEST(CaptionText, WindowTitlesLeaveOutATrailingAccessKey) {
  const std::pair<const char*, const char*> cases[] = {
      {"Kestra Cache 数式(F)", "Kestra Cache 数式"},
      {"Формула Kestra Cache (F)", "Формула Kestra Cache"},
      {"数式(&F)", "数式"},
      {"Formel Kestra Cache", "Formel Kestra Cache"},
      {"Budget (2024)", "Budget (2024)"},  // not a single key
      {"Phase (ä)", "Phase (ä)"},          // access keys are ASCII here
      {"(F)", "(F)"},                      // nothing would be left
      {"x(&)", "x(&)"},
      {"F)", "F)"},
      {"", ""},
  };
  for (const auto& [caption, title] : cases) {
    EXPECT_EQ(windowTitleText(QString::fromUtf8(caption)), QString::fromUtf8(title)) << caption;
  }
}

TEST(ScreenUnits, FifteenTwipsPerPixelAtNinetySixDpi) {
  EXPECT_DOUBLE_EQ(twipsPerPixel(96), 15.0);
  EXPECT_DOUBLE_EQ(twipsPerPixel(144), 10.0);
  EXPECT_DOUBLE_EQ(twipsPerPixel(0), 15.0);  // unknown DPI counts as 96
  EXPECT_EQ(pixelsFromTwips(10050, 96), 670);
  EXPECT_EQ(pixelsFromTwips(10050, 144), 1005);
  EXPECT_EQ(twipsFromPixels(670, 96), 10050);
  EXPECT_EQ(pixelsFromTwips(7, 96), 0);
  EXPECT_EQ(pixelsFromTwips(8, 96), 1);
}

TEST(WidgetColors, ReadsColoursAsBlueGreenRed) {
  EXPECT_EQ(colorFromBgr(0x00FFFF), QColor(255, 255, 0));  // yellow
  EXPECT_EQ(colorFromBgr(0xFF0000), QColor(0, 0, 255));    // blue
  EXPECT_EQ(colorFromBgr(0x123456), QColor(0x56, 0x34, 0x12));
  EXPECT_FALSE(colorFromBgr(-2147483633).isValid());  // a system colour
  EXPECT_FALSE(colorFromBgr(0x1000000).isValid());
  EXPECT_EQ(contrastingText(QColor(255, 255, 0)), QColor(Qt::black));
  EXPECT_EQ(contrastingText(QColor(0, 0, 128)), QColor(Qt::white));
}

TEST(MousePointer, HourglassIsTheBusyCursorAndDefaultHasNone) {
  EXPECT_EQ(cursorForPointer(11), Qt::BusyCursor);
  EXPECT_EQ(cursorForPointer(0), std::nullopt);
  EXPECT_EQ(cursorForPointer(99), std::nullopt);
  EXPECT_EQ(cursorForPointer(3), Qt::IBeamCursor);
}

TEST(MessageBoxSpec, MapsIconButtonsAndDefaults) {
  using B = QMessageBox;
  struct Case {
    int style;
    B::Icon icon;
    std::vector<B::StandardButton> buttons;
    B::StandardButton defaultButton;
    B::StandardButton escapeButton;
  };
  const Case cases[] = {
      {48, B::Warning, {B::Ok}, B::Ok, B::Ok},
      {16, B::Critical, {B::Ok}, B::Ok, B::Ok},
      {32 + 4, B::Question, {B::Yes, B::No}, B::Yes, B::No},
      {64 + 1, B::Information, {B::Ok, B::Cancel}, B::Ok, B::Cancel},
      {0, B::NoIcon, {B::Ok}, B::Ok, B::Ok},
      {4 + 256, B::NoIcon, {B::Yes, B::No}, B::No, B::No},
      {3 + 512, B::NoIcon, {B::Yes, B::No, B::Cancel}, B::Cancel, B::Cancel},
      {2, B::NoIcon, {B::Abort, B::Retry, B::Ignore}, B::Abort, B::NoButton},
      {0 + 512, B::NoIcon, {B::Ok}, B::Ok, B::Ok},  // no third button: the first
      {7, B::NoIcon, {B::Ok}, B::Ok, B::Ok},
  };
  for (const auto& c : cases) {
    const MessageBoxSpec box = messageBoxSpec(c.style);
    EXPECT_EQ(box.icon, c.icon) << c.style;
    EXPECT_EQ(box.buttons, c.buttons) << c.style;
    EXPECT_EQ(box.defaultButton, c.defaultButton) << c.style;
    EXPECT_EQ(box.escapeButton, c.escapeButton) << c.style;
  }
}

TEST(MessageBoxAnswer, NumbersButtonsAndTreatsClosingAsCancel) {
  EXPECT_EQ(messageBoxAnswer(QMessageBox::Ok), 1);
  EXPECT_EQ(messageBoxAnswer(QMessageBox::Cancel), 2);
  EXPECT_EQ(messageBoxAnswer(QMessageBox::Retry), 4);
  EXPECT_EQ(messageBoxAnswer(QMessageBox::Yes), 6);
  EXPECT_EQ(messageBoxAnswer(QMessageBox::No), 7);
  EXPECT_EQ(messageBoxAnswer(QMessageBox::NoButton), 2);
}

}  // namespace
}  // namespace kxc::qt
