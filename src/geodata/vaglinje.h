// A road line: a plan alignment or a vertical profile, its file, and its geometry.
//
//     x (north)
//     ^      o Q      From P to Q, an arc with a positive bulge: it bows to the side of positive
//     |       '.      offsets, and its centre lies on the other.
//     |         :
//     |    -    :  +  Where x points north and y east, as in surveying, positive offsets lie to
//     |         :     the right of travel; on a sheet where x points right and y up, to the left.
//     |       .'
//     |      o P
//     +------------> y (east)
//
// A vertex holds its coordinates, its station, and the bulge of the segment to the next vertex.
// Stations, coordinates, heights and offsets are in metres, angles in radians.
//
// Bulge: the tangent of a quarter of the arc's angle, 0 for a straight segment, 1 for a half
// circle; at most 1e-6 in size is straight. Over a chord of length c the arc's height is
// h = |bulge * c / 2| and its radius (c * c / 4 + h * h) / (2 * h). Source: group code 42 of
// LWPOLYLINE in the DXF reference, and the sagitta of a circular segment. The sign is the other
// way round there: here a positive bulge turns clockwise where x points right and y up.
#pragma once

#include <cstdint>

#include "../core/list0.h"
#include "../export.h"
#include "../formats/vertex.h"
#include "../host/host.h"

extern template class KVARNPROG_LIST_DECLARE list0<kovltype>;

// A list of vertices in the order of travel. Its stations increase or decrease: the first two
// vertices tell which (equal stations, and a line of one vertex, count as increasing).
//
// Results are 0 for success and -1 for failure where nothing else is said. Pointers for results are
// not null where nothing else is said. A line of type 10 (a profile) is refused with -1 by every
// plan operation but Bulge_r; an empty line by those that look at its vertices, but for Extend with
// nothing to add and SektBerak.
//
// Operations that walk the line leave the current element and the mark where the walk ended:
// position the list before list work of your own.
//
// Nothing is guarded in the arithmetic: equal stations of neighbouring vertices, coincident
// vertices of an arc and values that are not numbers give what the arithmetic gives (inf, nan),
// never a trap.
//
// Every question walks the line; vagindex.h has an index for many of them.
class KVARNPROG_API CVaglinje : public list0<kovltype> {
  public:
    // An empty line of type 0, without name and area.
    CVaglinje();
    virtual ~CVaglinje();

    // Replaces the records with those of a road-line file; null empties the line and returns 0.
    //
    // The file is text, a vertex a line: x, y, bulge and station, separated by blanks. What follows
    // them is ignored but for the first line, the header, which may go on with the type and, after
    // a dollar sign, the name:
    //
    //     1000.0000 2000.0000 0.0000 0.0000 1 $Gamla vagen
    //     1100.0000 2000.0000 0.0000 100.0000
    //
    // Fills typ (kept when the header has none), namn (letters of the DOS code page converted; cut
    // before a second dollar sign and at 255 characters; empty without a dollar sign) and, from a
    // path with a backslash, filnamn. An empty file has no header: typ and namn stay. The area
    // stays as it was: call Reset.
    //
    // A line without four numbers, a blank one too, is skipped: "Fel rad : %s" becomes the text of
    // LastMessage and the line is shown in the status bar.
    //
    // -1 for a file that cannot be opened or not be read to its end, with the message
    // "Kan ej oppna vaglinje : %s" (o and a with two dots) in a box and in MessageBuffer; the
    // records are then gone.
    int Init(char const* path);
    // The same.
    int Init(CString path);

    // Writes the line in the form that Init reads, four decimals each, code page 1252 (letters are
    // not converted back to the DOS code page). An empty line gives an empty file. The file holds
    // the old content or the new, never a half. Four decimals are few for a bulge: over a chord of
    // 100 m the arc may move by 2.5 mm, and a bulge below 0.00005 becomes straight.
    //
    // -1 with the message of Init for a file that cannot be opened for writing (null counts as the
    // empty path), and for one that is there and Init could not open or not read to its end: it is
    // not overwritten from that until another Init. -1 without a message when a write fails, on a
    // full disk for one; the file then keeps its old content.
    int Uppdat(char const* path);
    // The same.
    int Uppdat(CString path);

    // Sets the area from the records: from the first station to the last, 30 m to either side. -1
    // on an empty line, with the area all 0. The current element stays, and the mark ends on it.
    int Reset();

    // The current vertex. -1 in a profile and without a current element: nothing is written then.
    int Vagnu(double* x, double* y, double* sektion);

    // A point beside the straight segment from (a1, b1) to (a2, b2). Writes its signed distance
    // from the segment's line, and the distance of its foot from the segment's start along it.
    // Called with y first (a = y, b = x) the sign is that of offsets.
    //
    // 1: the foot lies on the segment, or beyond an end by no more than 0.0001 of its length;
    // 2: it lies outside; 0: the segment is shorter than 0.01 m, nothing is written.
    int Pldist(double a1, double b1, double a2, double b2, double pa, double pb, double* dist,
               double* along);

    // A point beside the arc from p1 to p2 with the bulge of p1. Writes the distance along the arc
    // from p1 to the point's foot, and the offset: positive outside the circle when the bulge is
    // positive, inside it when it is not.
    //
    // 1: the point lies within the arc's sector; 2: it does not, nothing is written. Known quirk,
    // kept on purpose: within 0.00001 m of a quadrant's edge a direction counts as the quadrant's
    // first one, and straight along the y axis from the centre it is no number. An arc with an end
    // on such an axis (a quarter circle between straights parallel to the axes, for one) may so
    // miss points beside it, wholly or partly, and accept points beside which it does not lie. Near
    // such an axis the distance along a large arc is good to 0.02 mm only. Source of the
    // pseudo-angle: tan(a / 2) = (sqrt(t * t + 1) - 1) / t with t = tan(a).
    int Padist(kovltype* p1, kovltype* p2, double px, double py, double* along, double* offset);

    // mode not 0: radius and centre of the arc from p1 to p2 with the bulge of p1. The coordinates
    // are taken as they come; for the direction of turning above, give each point as (y, x), and
    // the centre comes as (y, x). Coincident points give nan.
    //
    // mode 0: the bulge of p1 from *radius, of an arc up to a half circle. A positive radius gives
    // a negative bulge, and a negative one a positive: mode 1 gives the radius without its sign, so
    // the two are no inverses of each other. A radius shorter than half the chord, and coincident
    // points, give the bulge 0 and a text that begins with "Fel (bulge->radie) radie:" in the
    // status bar; the centre is neither read nor written.
    //
    // Returns 0, for every type of line.
    int Bulge_r(kokotype* p1, kokotype* p2, double* radius, double* centreA, double* centreB,
                int mode);

    // The point at a station and an offset. -1 with both coordinates 999999.9 for a line of one
    // vertex and for a station 0.0001 or more outside the line.
    //
    // An arc beyond a half circle (a bulge beyond 1 in size) is followed the other way round, on
    // the rest of its circle, and so is an exact half circle that does not cross the bearing zero
    // (straight along the y axis from its centre).
    int Vag2xy(double sektion, double offset, double* x, double* y);

    // The height of a profile at a station. -1 with the height 999999.9 for a plan line (type 1;
    // type 0 is tried), for a station before the first vertex, and from the last vertex on: the
    // last station itself has no height, unlike the end of Vag2xy.
    //
    // In a vertical curve the angle is interpolated by station: exact at the curve's ends alone,
    // near enough between them where it is flat. A station that is no number gives no number.
    int Vagprofz(double sektion, double* z);

    // Station and offset of a point: the nearest of its feet on the segments, or the nearest
    // vertex where that is nearer (beside a corner, where no foot falls on a segment) and neither
    // the first nor the last. -1 where there is neither; the station is then Seknoll and the offset
    // 0. Of equal offsets the first counts. Straight segments shorter than 0.01 m are not seen. A
    // foot more than 1e9 m away gives -1, though with its station and offset. A foot may lie beyond
    // the end of a straight by 0.0001 of its length, and so outside the line.
    //
    // mode 0: all of the line, then the vertices. 1: from a guessed start, two vertices before the
    // end of the segment that lies as far along the line as the point lies from its first vertex,
    // until one segment after the first foot; then the vertices from there on, only if there was no
    // foot. What lies before the guessed start is not seen: with offsets much larger than the
    // segments, and on lines that turn back, the answer is then a later foot or vertex. Other
    // modes: all of the line, no vertices.
    //
    // Known quirk, kept on purpose: on a line whose stations decrease a segment's offset has the
    // opposite sign to Vag2xy, a vertex's has not; straight out from a vertex, where foot and
    // vertex are equally far, rounding decides which. A vertex's sign is that of the side of the
    // segment before it, taken as straight; positive where that is shorter than 0.01 m.
    int Vagstv(double x, double y, double* sektion, double* offset, int mode);

    // Vagstv for points in the area, its limits included (stations with a tolerance of 0.001). -1
    // outside; nothing is written then. The pointers may be null. The area that Reset gives to a
    // line whose stations decrease contains no station.
    int PktIomr(double x, double y, double* sektion, double* offset, int mode);

    // Moves all stations by the same amount, so that the vertex at a point gets the given station:
    // the last of those within 0.001 m of it, the limit included. -1 where there is none.
    int SektKorr(double x, double y, double sektion);

    // Computes all stations from the geometry, the first being start. 0 also for an empty line.
    //
    // Known quirk, kept on purpose: the segment between two vertices is measured with the bulge of
    // the later one, and an arc whose end the pseudo-angle of Padist misses has the length 0.
    int SektBerak(double start);

    // Lengthens the line straight on, by metres, at its start and at its end; nothing for what is
    // not positive. Known quirk, kept on purpose: a new first vertex is measured from the point
    // half a metre inside the line, its station from the old first vertex.
    //
    // -1 where the line has no point half a metre inside (a line whose stations decrease has none
    // at its start by this reckoning, and none at its end); what was done until then stays: the
    // new first vertex, and the last vertex's bulge set to 0.
    int Extend(double before, double after);

    // Class-wide and not locked: set them, if at all, at start-up.
    static double Seknoll; // 9999999.9: no station; what a search for a station writes first
    static double Sekkoll; // 9999999.0: stations below it count as found

    double omrSekFran; // the area: stations from
    double omrSekTill; // to
    double omrAvstMin; // and offsets from
    double omrAvstMax; // to
    std::int32_t typ;  // 0 not stated, 1 plan, 10 profile
    char namn[256];    // from the header
    char filnamn[256]; // of the file last read, without its folder
    CStdioFile fil;    // never open between calls

  private:
    friend class CVagindex; // copies the vertices
    struct Fynd;

    // These are exported with the class, and keep their names for that.
    void Tom();           // deletes all vertices
    bool Vaxande() const; // the stations increase
    // Marks a segment's start, and makes its end current at this position.
    void StallSegment(nod* from, nod* to, int position);
    // Sets the segment that holds the station. -1 outside the line; past its end the last vertex is
    // then both marked and current.
    int SokSegment(double sektion);
    // Makes the first vertex that a narrowed search looks at current.
    nod* SokStart(double x, double y);
    // Looks for feet and vertices from the current vertex to the end of the line.
    Fynd Sok(nod* from, double x, double y, int mode);
    // Adds a vertex beyond an end, where Ny takes it; inwards is 1 where stations grow inwards, and
    // -1 where they fall.
    int Forlang(kovltype const& end, double inwards, double length, int where);

    CString m_notRead; // a file that is there and could not be opened or not be read to its end
};
