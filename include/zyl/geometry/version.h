#pragma once

/// @file
/// Version of the headers a program was compiled with, as `major.minor.patch` (semver.org).
///
/// The build reads the three numbers from here; they also name the shared object, whose major
/// number changes whenever a program would have to be compiled again.

/// Raised when programs have to be compiled, and perhaps changed, again.
#define ZYL_GEOMETRY_VERSION_MAJOR 1
/// Raised when something is added.
#define ZYL_GEOMETRY_VERSION_MINOR 0
/// Raised when something is mended.
#define ZYL_GEOMETRY_VERSION_PATCH 0
