#ifndef NORQ_VERSION_H
#define NORQ_VERSION_H

/// @file
/// The version of norq.

///@{
/// The version of norq. Code that compiles with one version also compiles with every later version
/// of the same major version. Binaries are compatible only within a minor version; the soname of a
/// shared norq contains both numbers (`libnorq.so.1.0`). These are macros so that `#if` can test
/// them.
#define NORQ_VERSION_MAJOR 1
#define NORQ_VERSION_MINOR 0
#define NORQ_VERSION_PATCH 0
///@}

#endif  // NORQ_VERSION_H
