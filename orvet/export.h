#ifndef ORVET_EXPORT_H
#define ORVET_EXPORT_H

/// Marks what leaves the library. Whatever does not bear it stays inside.
#if defined(ORVET_STATIC)
#define ORVET_API
#elif defined(_WIN32)
#if defined(ORVET_BUILDING)
#define ORVET_API __declspec(dllexport)
#else
#define ORVET_API __declspec(dllimport)
#endif
#else
#define ORVET_API __attribute__((visibility("default")))
#endif

#endif
