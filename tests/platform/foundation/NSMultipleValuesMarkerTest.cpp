#include "quorin/platform/foundation/NSMultipleValuesMarker.h"

#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/values/Value.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSMultipleValuesMarker, isOneObjectUnlikeAllOthers) {
    const Value marker = NSMultipleValuesMarker::marker();
    EXPECT_EQ(marker, Value(NSMultipleValuesMarker::marker()));
    EXPECT_NE(marker, Value(NSNull::null()));
    EXPECT_NE(marker, Value());
    EXPECT_EQ(NSMultipleValuesMarker::marker()->description(), "<multiple values>");
}

}  // namespace
}  // namespace quorin
