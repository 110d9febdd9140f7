#include "geometry/sail_edges.h"

namespace brivane {

SailEdges EdgesOf(const SailDefinition& sail) {
  const PlanePoint clew = InPlane(sail.ClewPoint);
  const PlanePoint tack{0, 0};
  const PlanePoint throat{0, sail.LuffLength};
  const PlanePoint peak = InPlane(sail.PeakPoint);
  return {MakeRoundedEdge(clew, tack, sail.FootRound, sail.FootRoundPos / 100.0),
          MakeRoundedEdge(tack, throat, sail.LuffRound, sail.LuffRoundPos / 100.0),
          MakeRoundedEdge(throat, peak, sail.GaffRound, sail.GaffRoundPos / 100.0),
          MakeRoundedEdge(peak, clew, sail.LeechRound, sail.LeechRoundPos / 100.0)};
}

}  // namespace brivane
