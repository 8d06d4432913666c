#pragma once

#include <ostream>

#include "quorin/path/Segment.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/TextForm.h"

/// What a failed expectation shows of our values.
namespace quorin {

inline void PrintTo(const CGPoint& point, std::ostream* stream) { *stream << textForm(point); }

inline void PrintTo(const CGRect& rect, std::ostream* stream) {
    *stream << textForm(rect.origin) << " by " << textForm(rect.size.width) << " x "
            << textForm(rect.size.height);
}

inline void PrintTo(const PathSegment& segment, std::ostream* stream) {
    *stream << segment.description();
}

}  // namespace quorin
