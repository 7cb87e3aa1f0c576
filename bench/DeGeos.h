// The buffer of GEOS, where the machine has that library (Debian: libgeos-dev).
#pragma once

#ifdef BANC_GEOS
#include <geos_c.h>

#include <algorithm>
#include <cmath>
#include <cstdarg>
#include <numbers>
#include <vector>

#include "closed/pathwerk/commun/Lieux.h"

namespace banc {

inline void TaitGeos(const char*, ...) {}

// The outline as GEOS wants it, and its offset. `fleche`: greatest error of the chords of arcs, mm.
class DeGeos {
 public:
  DeGeos(const pathwerk::Chemin& c, bool ferme, double fleche) : ferme_(ferme), fleche_(fleche) {
    initGEOS(TaitGeos, TaitGeos);
    GEOSCoordSequence* s = GEOSCoordSeq_create(static_cast<unsigned>(c.size()), 2);
    for (unsigned i = 0; i < c.size(); ++i) GEOSCoordSeq_setXY(s, i, c[i].x, c[i].y);
    aire_ = pathwerk::Aire(c);
    forme_ =
        ferme ? GEOSGeom_createPolygon(GEOSGeom_createLinearRing(s), nullptr, 0) : GEOSGeom_createLineString(s);
  }
  DeGeos(const DeGeos&) = delete;
  DeGeos& operator=(const DeGeos&) = delete;
  ~DeGeos() {
    if (forme_ != nullptr) GEOSGeom_destroy(forme_);
    finishGEOS();
  }
  // Segments of the offset, mm, to the left where `d` is positive; of an open path the band on both sides.
  std::vector<pathwerk::Segment> Decale(double d) const {
    const double angle = std::acos(1 - std::min(fleche_ / std::abs(d), 0.5));
    const int parQuart = static_cast<int>(std::ceil(std::numbers::pi / 4 / angle));
    std::vector<pathwerk::Segment> segments;
    const double vers = !ferme_ ? std::abs(d) : aire_ > 0 ? -d : d;
    GEOSGeometry* g = forme_ != nullptr ? GEOSBuffer(forme_, vers, std::max(1, parQuart)) : nullptr;
    if (g == nullptr) return segments;
    for (int k = 0, n = GEOSGetNumGeometries(g); k < n; ++k) {
      const GEOSGeometry* p = GEOSGetGeometryN(g, k);
      if (GEOSisEmpty(p) != 0) continue;
      Ajoute(GEOSGetExteriorRing(p), segments);
      for (int i = 0, m = GEOSGetNumInteriorRings(p); i < m; ++i) Ajoute(GEOSGetInteriorRingN(p, i), segments);
    }
    GEOSGeom_destroy(g);
    return segments;
  }

 private:
  static void Ajoute(const GEOSGeometry* anneau, std::vector<pathwerk::Segment>& segments) {
    const GEOSCoordSequence* s = GEOSGeom_getCoordSeq(anneau);
    unsigned n = 0;
    GEOSCoordSeq_getSize(s, &n);
    pathwerk::Vec2 avant;
    for (unsigned i = 0; i < n; ++i) {
      pathwerk::Vec2 p;
      GEOSCoordSeq_getXY(s, i, &p.x, &p.y);
      if (i > 0) segments.push_back({avant, p});
      avant = p;
    }
  }
  bool ferme_;
  double fleche_;
  double aire_ = 0;
  GEOSGeometry* forme_ = nullptr;
};

}  // namespace banc
#endif
