#ifndef NORQ_VERSION_H
#define NORQ_VERSION_H

/// @file
/// The version of norq.

///@{
/// The version of norq. A host that compiles with one version compiles with every later one of the
/// same major version. Binaries are compatible only within a minor version; a shared norq has both
/// numbers in its soname (`libnorq.so.1.0`). Macros, so that `#if` can ask.
#define NORQ_VERSION_MAJOR 1
#define NORQ_VERSION_MINOR 0
#define NORQ_VERSION_PATCH 0
///@}

#endif  // NORQ_VERSION_H
