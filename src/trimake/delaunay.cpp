#include "trimake/delaunay.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "predicates/predicates.h"
#include "trimake/adjacency.h"
#include "trimake/allocation.h"
#include "trimake/breaklines.h"
#include "trimake/divide_conquer.h"
#include "trimake/extraction.h"
#include "trimake/point_order.h"

namespace zyl::geometry::internal {
namespace {

constexpr char kOutOfMemory[] = "tri_Create_Delaunay: out of memory";

// Below 2^201 nothing in a predicate overflows.
constexpr int kLargestExponent = 201;

// What one look at all points tells before any is sorted.
struct Survey {
  bool hasNaN;
  bool hasInfinity;
  bool hasBreaklines;
  double largest;  // absolute coordinate
};

Survey SurveyPoints(int n, const TPoint* points) {
  Survey survey{false, false, false, 0};
  for (int i = 0; i < n; ++i) {
    const double x = std::fabs(points[i].x);
    const double y = std::fabs(points[i].y);
    survey.hasNaN = survey.hasNaN || std::isnan(x) || std::isnan(y);
    survey.hasBreaklines = survey.hasBreaklines || (points[i].flag == 0 && i > 0);
    survey.largest = std::max({survey.largest, x, y});
  }
  survey.hasInfinity = std::isinf(survey.largest);
  return survey;
}

// Power of two that brings coordinates of this size into the range of the predicates; 1 for any
// that stand for lengths.
double ScaleFor(double largest) {
  const int exponent = largest > 0 ? std::ilogb(largest) : 0;
  return exponent < kLargestExponent ? 1.0 : std::ldexp(1.0, kLargestExponent - 1 - exponent);
}

MallocArray<TPoint> ScaledCopy(int n, const TPoint* points, double scale) {
  MallocArray<TPoint> scaled = NewArray<TPoint>(static_cast<std::size_t>(n), kOutOfMemory);
  for (int i = 0; i < n; ++i) {
    scaled[i] = points[i];
    scaled[i].x *= scale;
    scaled[i].y *= scale;
  }
  return scaled;
}

// NaN counts as no tolerance.
double SquaredTolerance(double tolerance) {
  const double squared = tolerance * tolerance;
  return squared > 0 ? squared : 0;
}

// Block of the distinct vertices and, behind them, six half-edges for each.
struct InitialBlock {
  TVertex vertex;
  TEdge edges[kEdgesPerVertex];
};

// Everything a build takes from the allocator except what its functions own themselves; released
// when the build ends, whichever way.
class Build {
 public:
  Build(TrimakeState& state, int n, const TPoint* points) : state_(state), n_(n), points_(points) {}
  ~Build();
  Build(const Build&) = delete;
  Build& operator=(const Build&) = delete;

  /// Returns the result code of the build. Throws OutOfMemory.
  int Run(const Survey& survey, int* outTriangleCount);

 private:
  void MakeVertices(const TSortedPoint* sorted, int count);
  void InsertBreaklines(const int* indexMap);
  void ReleaseEdges();

  TrimakeState& state_;
  const int n_;
  const TPoint* const points_;
  double scale_ = 1;
  MallocArray<TPoint> scaled_;
  MallocArray<TVertex> verts_;  // and behind them, while they are needed, the half-edges
  int count_ = 0;
};

Build::~Build() {
  tri_Free_Vertex_Hunks(state_);
  tri_Free_TIndex_Hunks(state_);
  tri_Free_TInfo_Hunks(state_);
  state_.freeEdges = nullptr;
  state_.unusedEdges = nullptr;
  state_.unusedEnd = nullptr;
  state_.points = nullptr;
}

void Build::MakeVertices(const TSortedPoint* sorted, int count) {
  count_ = count;
  verts_.reset(reinterpret_cast<TVertex*>(
      NewArray<InitialBlock>(static_cast<std::size_t>(count), kOutOfMemory).release()));
  for (int k = 0; k < count; ++k) {
    const TSortedPoint& p = sorted[k];
    verts_[k] = {{p.x * scale_, p.y * scale_}, &state_.points[p.index], nullptr, k, p.index};
  }
  state_.unusedEdges = reinterpret_cast<TEdge*>(verts_.get() + count);
  state_.unusedEnd = state_.unusedEdges + static_cast<std::ptrdiff_t>(count) * kEdgesPerVertex;
  state_.pointCount = n_;
  state_.vertexCount = count;
}

void Build::InsertBreaklines(const int* indexMap) {
  const MallocArray<int> inverseMap = NewArray<int>(static_cast<std::size_t>(n_), kOutOfMemory);
  for (int k = 0; k < count_; ++k) {
    inverseMap[verts_[k].source] = k;
  }
  tri_Insert_Breaklines(state_, n_, inverseMap.get(), indexMap, verts_.get());
}

// Half-edges are most of the memory of a build. The edge information, the largest output, takes
// their place instead of more.
void Build::ReleaseEdges() {
  state_.freeEdges = nullptr;
  state_.unusedEdges = nullptr;
  state_.unusedEnd = nullptr;
  Resize(verts_, static_cast<std::size_t>(count_), kOutOfMemory);
}

int Build::Run(const Survey& survey, int* outTriangleCount) {
  state_.points = points_;
  scale_ = ScaleFor(survey.largest);
  if (scale_ != 1) {
    scaled_ = ScaledCopy(n_, points_, scale_);
    state_.points = scaled_.get();
  }
  MallocArray<int> indexMap;
  if (survey.hasBreaklines) {
    indexMap = NewArray<int>(static_cast<std::size_t>(n_), kOutOfMemory);
  }
  MallocArray<TSortedPoint> sorted = tri_Sort_Points(n_, points_, kOutOfMemory);
  const int distinct = tri_Merge_Duplicates(n_, sorted.get(), indexMap.get());
  if (distinct < 3) {
    return kNotTriangulated;
  }
  MakeVertices(sorted.get(), distinct);
  sorted.reset();

  state_.retryDepth = 0;
  state_.extendedFallback = true;
  if (tri_Divide_Conquer(state_, count_, verts_.get()) < 0) {
    return kNotTriangulated;
  }
  if (survey.hasBreaklines) {
    InsertBreaklines(indexMap.get());
  }
  if (outTriangleCount != nullptr && state_.outTriangles != nullptr) {
    TTriangles triangles = tri_Collect_Triangles(state_, verts_.get(), count_);
    if (state_.outEdgeInfo != nullptr) {
      ReleaseEdges();
    }
    tri_Extract(state_, {verts_.get(), count_, points_, n_, 1 / scale_}, std::move(triangles),
                outTriangleCount);
  }
  return kTriangulated;
}

void WarnOfNaN() {
  std::fputs(
      "**trimake, Triangulation failed due to invalid floating point number\n"
      "           in the vertex data set. That is, an *infinite* value.\n",
      stdout);
}

// Once per thread, since it may also set the precision that the thread computes in.
void InitialisePredicatesOnce() {
  static thread_local const bool isInitialised = (exactinit(), true);
  static_cast<void>(isInitialised);
}

// Outputs of one call of tri_Triangulate; null if not wanted.
struct Outputs {
  int* triangleCount;
  int* vertexCount;
  TPoint** vertices;
  int** triangles;
  void** edgeInfo;
  int** neighbours;
};

template <class T>
void SetTo(T* output, T value) {
  if (output != nullptr) {
    *output = value;
  }
}

void Clear(const Outputs& out) {
  SetTo(out.triangleCount, 0);
  SetTo(out.vertexCount, 0);
  SetTo<TPoint*>(out.vertices, nullptr);
  SetTo<int*>(out.triangles, nullptr);
  SetTo<void*>(out.edgeInfo, nullptr);
  SetTo<int*>(out.neighbours, nullptr);
}

template <class T>
void FreeOutput(T** output) {
  if (output != nullptr) {
    std::free(*output);
  }
}

void Release(const Outputs& out) {
  FreeOutput(out.vertices);
  FreeOutput(out.triangles);
  FreeOutput(out.edgeInfo);
  Clear(out);
}

// Neighbours of the triangles that are there. Returns false if memory is short.
bool FindNeighbours(const Outputs& out) {
  const int count = *out.triangleCount;
  if (count == 0) {
    return true;
  }
  MallocArray<int> neighbours = TryNewArray<int>(3 * static_cast<std::size_t>(count));
  if (neighbours == nullptr || tri_Build_Adjacency(count, *out.triangles, neighbours.get()) == 0) {
    return false;
  }
  *out.neighbours = neighbours.release();
  return true;
}

}  // namespace

void tri_SetQuiet(int on) { tri_State().quiet = on != 0; }

int tri_Create_Delaunay(int n, const TPoint* points, int* outTriangleCount, double nearTolerance,
                        double relativeTolerance) {
  InitialisePredicatesOnce();
  if (outTriangleCount != nullptr) {
    *outTriangleCount = 0;
  }
  if (n < 3) {
    return kTriangulated;
  }
  TrimakeState& state = tri_State();
  const Survey survey = SurveyPoints(n, points);
  if (survey.hasNaN) {
    if (!state.quiet) {
      WarnOfNaN();
    }
    return kNotANumber;
  }
  if (survey.hasInfinity) {
    return kNotTriangulated;
  }
  state.nearTolerance2 = SquaredTolerance(nearTolerance * ScaleFor(survey.largest));
  state.relativeTolerance2 = SquaredTolerance(relativeTolerance);
  try {
    return Build(state, n, points).Run(survey, outTriangleCount);
  } catch (const OutOfMemory& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return kNotTriangulated;
  }
}

int tri_Triangulate(int n, const TPoint* points, int* outTriangleCount, int* outVertexCount,
                    TPoint** outVertices, int** outTriangles, void** outEdgeInfo,
                    int** outNeighbours, double nearTolerance, double relativeTolerance) {
  const Outputs out{outTriangleCount, outVertexCount, outVertices,
                    outTriangles,     outEdgeInfo,    outNeighbours};
  TrimakeState& state = tri_State();
  state.outVertexCount = outVertexCount;
  state.outVertices = outVertices;
  state.outTriangles = outTriangles;
  state.outEdgeInfo = outEdgeInfo;
  Clear(out);
  int result = tri_Create_Delaunay(n, points, outTriangleCount, nearTolerance, relativeTolerance);
  const bool wantsNeighbours = outNeighbours && outTriangles && outTriangleCount;
  if (result == kTriangulated && wantsNeighbours && !FindNeighbours(out)) {
    std::fprintf(stderr, "%s\n", "tri_Triangulate: out of memory");
    Release(out);
    result = kNotTriangulated;
  }
  state.outVertexCount = nullptr;
  state.outVertices = nullptr;
  state.outTriangles = nullptr;
  state.outEdgeInfo = nullptr;
  return result;
}

}  // namespace zyl::geometry::internal
