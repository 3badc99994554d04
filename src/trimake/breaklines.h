#pragma once

// Breaklines: segments between vertices that are forced into a triangulation as chains of edges.
//
// A segment is routed through the vertices that lie on it, and through a new vertex where it
// crosses an older breakline. All else that it crosses is removed; the two cavities beside it are
// filled again, and flips restore the empty circles of the free edges (constrained Delaunay
// triangulation). A sound triangulation, all of whose triangles are counterclockwise, stays sound,
// but for crossings worse than tri_Cross_Breakline can mend. On others, and should a predicate
// overflow, segments may fail, but a step looks at its whole corridor before it removes an edge.
//
// The new vertex is rounded. So of segments nearly in line one may run past a vertex that is on it,
// and one may run back over itself: its way is the edges that it is on an odd number of times.

#include "trimake/quadrilateral.h"
#include "trimake/records.h"

namespace zyl::geometry::internal {

/// Vertex of a cavity's boundary, and the half-edge of it after which edges into the cavity go.
struct TChainEntry {
  TVertex* vertex;
  TEdge* edge;
};

/// What a segment meets first.
enum TCrossing {
  kFree = 0,          ///< nothing before its end
  kVertex = 1,        ///< a vertex on it
  kNewVertex = 2,     ///< a breakline, which now has a vertex there
  kNewNeighbour = 3,  ///< the same, and the new vertex is joined to the segment's start
  kThinned = 4,       ///< a breakline, beside which a thin triangle is gone now: look again
  kNoCorridor = -1,   ///< no triangles that lead to its end
};

/// Inserts the segments from every point of flag 0, in input order, to the point before it.
/// `indexMap` leads from an input index to that of its distinct point, `inverseMap` from there to
/// the number of the vertex in `vertices`. Segments that fail are reported on standard output,
/// unless quiet, and left out from where they failed. Returns 0, or -1 if one failed. Throws
/// OutOfMemory.
int tri_Insert_Breaklines(TrimakeState& state, int n, const int* inverseMap, const int* indexMap,
                          TVertex* vertices);

/// Inserts the segment from `from` to `target`, or its first part: *next is the vertex from where
/// the rest has to go on, null if there is none. Returns 0, or -1 on failure.
int tri_Insert_Segment(TrimakeState& state, TVertex* from, TVertex* target, TVertex** next);

/// Adds the current segment to the list of the edge.
void tri_Mark_Edge(TrimakeState& state, TEdge* edge);

/// Looks around a for the way to p. Returns 0 if *out runs from a straight towards p, 1 if the way
/// lies between *out and out->next, -1 (and no *out) if it was not found.
/// O(the smaller degree of a and p, and the number of edges that a→p crosses).
int tri_Find_Direction(TVertex* a, TVertex* p, TEdge** out);

/// Whether q is within a tolerance of the line from a in direction (dx, dy), whose squared length
/// is 1 / invLen2. With both tolerances 0: whether the rounded distance is 0.
bool tri_Near_Line(const TrimakeState& state, double dx, double dy, double invLen2,
                   const TVertex* q, const TVertex* a);

/// Whether the foot of q on a segment, given like a line to tri_Near_Line, is between its ends.
bool tri_Is_Between(double dx, double dy, double invLen2, const TVertex* q, const TVertex* a);

/// Follows the segment from a, where it passes between e and e->next, towards p, up to the first
/// vertex on it or the first breakline across it. Writes *out if the result is positive. A new
/// vertex is joined to its surroundings, the edge to `a` marked, and the circles around it empty.
/// (dx, dy) is p − a, and invLen2 one over its squared length. O(crossed edges).
TCrossing tri_Check_Crossings(TrimakeState& state, double dx, double dy, double invLen2, TVertex* a,
                              TEdge* e, TVertex* p, TVertex** out);

/// Gives the breakline along c, a half-edge from the left of the segment from a to p to its right,
/// a vertex where the segment crosses it. If that, rounded, would turn a triangle over, it is
/// avoided by changes no larger than the distance within which points are one vertex: the segment
/// is led to an end of c (kVertex), or the new vertex moved to where it sees its surroundings, or a
/// triangle beside c taken out whose corner is that close to its opposite side (kThinned). Failing
/// these, the new vertex goes where the pieces a-p and c cross, and failing that the triangle is
/// turned over.
TCrossing tri_Cross_Breakline(TrimakeState& state, TEdge* c, const TVertex* a, const TVertex* p,
                              TVertex** out);

/// Walks along the boundary of a corridor from a to p, beginning with e->next, and appends what it
/// passes to the chain list, both ends included. With `remove`, deletes the edges on its way that
/// cross to the right of a→p, breaklines too: of those the first is reported.
/// *list and *count are what was added, for as long as no more is. Returns 0; or -1, with neither
/// written and the chain list emptied, if the walk does not arrive.
int tri_Collect_Chain(TrimakeState& state, bool remove, TVertex* a, TEdge* e, const TVertex* p,
                      int* count, TChainEntry** list);

/// Triangulates the polygon of k vertices, to the right of the chain, that the segment between the
/// chain's ends closes. The ends' edges are then those after which that segment has to go. The new
/// edges are queued for their circles to be checked; those of the chain keep theirs empty, as the
/// segment only takes vertices out of sight. Returns 0; or -1 if the ends coincide or no half-edge
/// is free.
int tri_Fill_Chain(TrimakeState& state, int k, TChainEntry* chain);

/// Replaces an edge by the other diagonal of its quadrilateral, which has to be whole and convex.
/// The new edge takes the two records of the old one: a pointer to either stays one to an edge.
void tri_Flip(TrimakeState& state, const TQuadrilateral& q);

/// Puts an edge on the list of those whose circles are to be checked.
void tri_Queue_Edge(TrimakeState& state, TEdge* edge);

/// Checks the edges on the list, and those around each flip, until all circles are empty.
void tri_Legalise(TrimakeState& state);

/// Empties the circles of all triangles around v.
void tri_Legalise_Around(TrimakeState& state, const TVertex* v);

}  // namespace zyl::geometry::internal
