#pragma once

/// @file
/// How a declaration becomes part of the shared library's surface.
///
/// Everything else is compiled with hidden visibility, so that the library exports its documented
/// interface and nothing else. Define `ZYL_GEOMETRY_STATIC` when linking a static build on Windows;
/// the CMake package and the pkg-config file do it for you.

#if defined(_WIN32) && !defined(ZYL_GEOMETRY_STATIC)
#if defined(ZYL_GEOMETRY_BUILDING)
#define ZYL_GEOMETRY_API __declspec(dllexport)
#else
#define ZYL_GEOMETRY_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define ZYL_GEOMETRY_API __attribute__((visibility("default")))
#else
#define ZYL_GEOMETRY_API
#endif
