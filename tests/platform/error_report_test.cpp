#include "platform/error_report.h"

#include <gtest/gtest.h>

#include "support/recording_services.h"

namespace kxc {
namespace {

TEST(ErrorReport, ShowsDescriptionBlankAndLocationWithExclamation) {
  testing::ScopedRecordingServices rec;
  bool ok = reportingErrors("TmCacheCommon ParseFormula", [] { throw RuntimeError(err::kOverflow); });
  EXPECT_FALSE(ok);
  ASSERT_EQ(rec->messages.size(), 1u);
  EXPECT_EQ(rec->messages[0],
            (testing::MessageRecord{"Overflow TmCacheCommon ParseFormula", "Error", 48}));
}

TEST(ErrorReport, ForeignExceptionsBecomeNumberedErrorsAndNothingEscapes) {
  testing::ScopedRecordingServices rec;
  reportingErrors("X", [] { throw std::bad_alloc(); });
  reportingErrors("Y", [] { throw 42; });
  EXPECT_TRUE(ignoringErrors([] {}));
  EXPECT_FALSE(ignoringErrors([] { throw RuntimeError(9); }));
  ASSERT_EQ(rec->messages.size(), 2u);
  EXPECT_EQ(rec->messages[0].text, "Out of memory X");
  EXPECT_EQ(rec->messages[1].text, "Internal error Y");
}

}  // namespace
}  // namespace kxc
