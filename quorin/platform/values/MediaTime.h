#pragma once

namespace quorin {

/// Seconds on the clock that media and animations go by: it never goes back, nobody sets it, and
/// its zero is of no meaning.
double CACurrentMediaTime();

}  // namespace quorin
