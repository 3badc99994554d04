#pragma once

/// @file
/// All of the library: what an application includes.

#include "zyl/geometry/coord.h"
#include "zyl/geometry/direction.h"
#include "zyl/geometry/ellipsoid.h"
#include "zyl/geometry/enclosing_circle.h"
#include "zyl/geometry/export.h"
#include "zyl/geometry/extent.h"
#include "zyl/geometry/extent2d.h"
#include "zyl/geometry/geom.h"
#include "zyl/geometry/matrix3.h"
#include "zyl/geometry/matrix4.h"
#include "zyl/geometry/plane.h"
#include "zyl/geometry/polyline3d.h"
#include "zyl/geometry/segment.h"
#include "zyl/geometry/transformation.h"
#include "zyl/geometry/triangle.h"
#include "zyl/geometry/version.h"
#include "zyl/geometry/voxelation.h"
