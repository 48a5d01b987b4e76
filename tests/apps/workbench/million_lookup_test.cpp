// The member lookup over a dimension of a million members, driven by the keyboard.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "flows/show_lookup.h"
#include "form_views.h"
#include "gui_environment.h"
#include "platform/text_rules.h"
#include "state/tm_globals.h"
#include "support/recording_context.h"

namespace kxc::testing {
namespace {

constexpr int32_t kMembers = 1000000;

// An engine whose one dimension holds kMembers members "M1".."M1000000".
class MillionMemberEngine : public DispatchObject {
 public:
  Variant invoke(std::string_view member, Arguments args, CallKind) override {
    const std::string name = upperCase(std::string(member));
    if (name == "DIMENSIONMEMBERCOUNT") return Variant(kMembers);
    if (name == "DIMENSIONMEMBERVALUE") return Variant("M" + args[2].value().toText());
    if (name == "DIMENSIONMEMBERCAPTION") return Variant("Member " + args[2].value().toText());
    if (name == "DIMENSIONCAPTION") return Variant(std::string("Big"));
    if (name == "DIMENSIONCOUNT") return Variant(int32_t{1});
    return {};
  }
};

TEST(MillionMemberLookup, SelectsABlockWithTheKeyboardAndReturnsIt) {
  RecordingContext recording;
  gCacheEngine = std::make_shared<MillionMemberEngine>();
  {
    workbench::FormViews views;
    views.installModalLoop();
    bool shown = false;
    int rows = 0;
    QTimer::singleShot(0, [&] {
      controls::Form& lookup = frmLookup().form();
      shown = lookup.visible();
      auto* view = qt::QtFormView::of(lookup);
      auto* list = view ? qobject_cast<QAbstractItemView*>(view->widget("lvList")) : nullptr;
      auto* ok = view ? qobject_cast<QPushButton*>(view->widget("cmdOk")) : nullptr;
      if (!list || !ok) {
        lookup.hide();
        return;
      }
      rows = list->model()->rowCount();
      list->setFocus();
      QTest::keyClick(list, Qt::Key_Home);
      QTest::keyClick(list, Qt::Key_Down);  // the first member, below "<ALL>"
      for (int i = 0; i < 4; ++i) QTest::keyClick(list, Qt::Key_Down, Qt::ShiftModifier);
      QTest::mouseClick(ok, Qt::LeftButton);
    });
    std::string kind = "Dim1";
    std::string cache = "Big";
    const LookupChoice result = ShowLookup(kind, cache, Variant(std::string("<ALL>")));
    EXPECT_TRUE(shown);
    EXPECT_EQ(rows, kMembers + 1);
    EXPECT_NE(result.index.toDouble(), -1);
    EXPECT_NE(result.selection.find("M1"), std::string::npos) << result.selection;
    EXPECT_NE(result.selection.find("M5"), std::string::npos) << result.selection;
    EXPECT_EQ(gLookupSelection, result.selection);
  }
}

}  // namespace
}  // namespace kxc::testing
