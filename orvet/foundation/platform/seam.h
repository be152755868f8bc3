#ifndef ORVET_FOUNDATION_PLATFORM_SEAM_H
#define ORVET_FOUNDATION_PLATFORM_SEAM_H

// The layer's functions are in `platform::native`; the library calls them through names in `platform`. In the
// build for fault injection (ORVET_SEAM) each name is a pointer that a test may set to a function of its own;
// in every other build it is the function itself.
#ifdef ORVET_SEAM
#define ORVET_PLATFORM_CALL(name) inline constinit auto * name = &native::name
#else
#define ORVET_PLATFORM_CALL(name) using native::name
#endif

#endif
