#pragma once

// The pictures of the gallery. Each is drawn from what the library answers, and written as one SVG
// document.

#include <ostream>

namespace gallery {

/// A ring with a hole, triangulated; triangles inside and outside it.
void DrawTriangulation(std::ostream& out);

/// A ring that crosses itself, and what IsPointInside says on a grid of points.
void DrawEvenOdd(std::ostream& out);

/// Planes of two sets as great circles and poles on a lower-hemisphere equal-area net.
void DrawStereonet(std::ostream& out);

/// The smallest circle around a heap of points, and the points that hold it.
void DrawEnclosing(std::ostream& out);

/// The voxels of an index that a box touches.
void DrawVoxels(std::ostream& out);

/// Level and upright section of a search ellipsoid.
void DrawEllipsoidSections(std::ostream& out);

/// The side of a line on which neighbouring doubles lie, rounded and exact.
void DrawExactSides(std::ostream& out);

}  // namespace gallery
