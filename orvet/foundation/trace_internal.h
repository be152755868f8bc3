#ifndef ORVET_FOUNDATION_TRACE_INTERNAL_H
#define ORVET_FOUNDATION_TRACE_INTERNAL_H

namespace orvet {

/// What follows the time stamp in a channel's line, for a stream that is given it; null for any other text.
const char * find_time_stamp_end(const char * line);

} // namespace orvet

#endif
