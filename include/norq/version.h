#ifndef NORQ_VERSION_H
#define NORQ_VERSION_H

/// @file
/// The version of norq.

///@{
/// The version of norq, as semantic versioning counts it: a host that builds with one version
/// builds and runs with every later one of the same major version. Macros, so that `#if` can ask.
#define NORQ_VERSION_MAJOR 1
#define NORQ_VERSION_MINOR 0
#define NORQ_VERSION_PATCH 0
///@}

#endif  // NORQ_VERSION_H
