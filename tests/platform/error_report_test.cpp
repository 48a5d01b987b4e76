#include "platform/error_report.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/recording_services.h"

namespace kxc {
namespace {

TEST(ErrorReport, ShowsDescriptionBlankAndLocationWithExclamation) {
  testing::ScopedRecordingServices rec;
  bool ok =
      reportingErrors("TmCacheCommon ParseFormula", [] { throw RuntimeError(err::kOverflow); });
  EXPECT_FALSE(ok);
  ASSERT_EQ(rec->messages.size(), 1u);
  EXPECT_EQ(rec->messages[0],
            (testing::MessageRecord{"Overflow TmCacheCommon ParseFormula", "Error", 48}));
}

TEST(ErrorReport, IgnoringTrapsOnlyNumberedErrorsAndReportingMapsAFailedAllocation) {
  testing::ScopedRecordingServices rec;
  EXPECT_TRUE(ignoringErrors([] {}));
  EXPECT_FALSE(ignoringErrors([] { throw RuntimeError(9); }));
  EXPECT_FALSE(reportingErrors("X", [] { ignoringErrors([] { throw std::bad_alloc(); }); }));
  ASSERT_EQ(rec->messages.size(), 1u);
  EXPECT_EQ(rec->messages[0].text, "Out of memory X");
}

TEST(ErrorReportDeathTest, AProgrammingErrorEndsADebugBuildWithItsLocation) {
  EXPECT_DEATH(reportingErrors("TmExcel Initialise", [] { throw std::logic_error("broken"); }),
               "internal error at TmExcel Initialise: broken");
}

}  // namespace
}  // namespace kxc
