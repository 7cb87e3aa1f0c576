// Clicks of the attachment tool: marks "PC" on the drawing. Positions in mm of the drawing.
#include "toolpath/Attaches.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/PasseTraces.h"

namespace ovelin {

namespace {

constexpr float ResolutionRetrait = 0.01F;  // mm, clean-up behind a removed mark

double DistanceCarree(const PointTrace& a, const PointTrace& b) {
  const double dx = Ecart(a.X, b.X);
  const double dy = Ecart(a.Y, b.Y);
  return dx * dx + dy * dy;
}

// Foot of P on the segment A-B, the nearer end where the perpendicular misses it. A segment without length is its
// point.
PointTrace Pied(const PointTrace& p, const PointTrace& a, const PointTrace& b) {
  const double dx = Ecart(a.X, b.X);
  const double dy = Ecart(a.Y, b.Y);
  const double carre = dx * dx + dy * dy;
  const double t = carre > 0 ? (Ecart(a.X, p.X) * dx + Ecart(a.Y, p.Y) * dy) / carre : 0.0;
  PointTrace q = a;
  q.Cde = CodePC;
  if (t >= 1) {
    q.X = b.X;
    q.Y = b.Y;
  } else if (t > 0) {
    q.X = static_cast<float>(a.X + t * dx);
    q.Y = static_cast<float>(a.Y + t * dy);
  }
  return q;
}

struct PlusProche {
  PointTrace pied;
  Etendue sequence;
  std::size_t fin = 0;  // end index of the segment; 0: the drawing has none
};

PlusProche SegmentProche(const PointTrace& p) {
  PlusProche proche;
  double meilleur = std::numeric_limits<double>::infinity();
  for (const Etendue& e : EtenduesSequences()) {
    for (std::size_t i = e.premier + 1; i < e.Fin(); ++i) {
      const PointTrace q = Pied(p, TraceInitial[i - 1], TraceInitial[i]);
      const double d = DistanceCarree(p, q);
      if (d < meilleur) {
        meilleur = d;
        proche = {q, e, i};
      }
    }
  }
  return proche;
}

// A path without that attachment point: the point goes where the path is straight, else it stays as an ordinary
// one.
std::vector<PointTrace> SansAttache(std::span<const PointTrace> run, std::size_t rang) {
  std::vector<PointTrace> reste(run.begin(), run.end());
  const bool milieu = rang > 0 && rang + 1 < run.size();
  if (milieu && DistancePoints(Pied(run[rang], run[rang - 1], run[rang + 1]), run[rang]) < ResolutionRetrait) {
    reste.erase(reste.begin() + static_cast<std::ptrdiff_t>(rang));
  } else {
    reste[rang].Cde = CodePD;
  }
  return reste;
}

// Neither at the start or the end of its path nor over another one.
bool Tient(std::span<const PointTrace> run, const PointTrace& q) {
  const double t = RayonEncoche();
  if (DistancePoints(q, run.front()) < t || DistancePoints(q, run.back()) < t) return false;
  return std::none_of(run.begin(), run.end(), [&](const PointTrace& p) {
    return p.Cde == CodePC && DistancePoints(q, p) < LargeurEncoche;
  });
}

// A path with its attachment point at the new place.
struct Deplacement {
  PointTrace lieu;
  std::vector<PointTrace> points;
};

std::optional<Deplacement> Deplace(std::int32_t index, const PointTrace& vers) {
  const std::size_t i = base::Indice(index);
  if (i >= TraceInitial.size() || TraceInitial[i].Cde != CodePC) return std::nullopt;
  const std::int32_t premier = IndexSequence(TraceInitial[i].Seq);
  const std::span<const PointTrace> run =
      PointsDe(TraceInitial, EtendueDepuis(TraceInitial, base::Indice(premier)));
  const std::size_t rang = i - base::Indice(premier);
  if (rang >= run.size()) return std::nullopt;  // of a second run of that code
  Deplacement d{{}, SansAttache(run, rang)};
  std::size_t fin = 0;
  double meilleur = std::numeric_limits<double>::infinity();
  for (std::size_t k = 1; k < d.points.size(); ++k) {
    const PointTrace q = Pied(vers, d.points[k - 1], d.points[k]);
    if (const double loin = DistanceCarree(vers, q); loin < meilleur) meilleur = loin, fin = k, d.lieu = q;
  }
  if (fin == 0 || !Tient(d.points, d.lieu)) return std::nullopt;
  d.points.insert(d.points.begin() + static_cast<std::ptrdiff_t>(fin), d.lieu);
  return d;
}

bool Refuse() {
  Svc.Bip();
  return false;
}

// Behind the traces of a change. False: it was taken back.
bool Acheve(IssuePasse issue) {
  if (issue == IssuePasse::EnVigueur) {
    Modifie = Vrai;
    Svc.Rafraichit();
  }
  return PasseTraces::Faite(issue);
}

}  // namespace

bool AjouteAttache(float x, float y) {
  const double t = RayonEncoche();
  const PointTrace clic{x, y, CodePD, Code2{}};
  const PlusProche proche = SegmentProche(clic);
  if (proche.fin == 0) return false;
  const PointTrace& q = proche.pied;
  // Too far from everything: no sound, the click was meant for something else.
  if (2 * t < DistancePoints(clic, q)) return false;
  if (!Tient(PointsDe(TraceInitial, proche.sequence), q)) return Refuse();
  PasseTraces passe;
  InserePoint(base::Compte(proche.fin), q);
  return Acheve(passe.SuitUn(q.Seq));
}

bool EnleveAttache(float x, float y) {
  const PointTrace clic{x, y, CodePD, Code2{}};
  std::size_t choisi = 0;  // the first point of the drawing is never a mark
  double meilleur = std::numeric_limits<double>::infinity();
  for (std::size_t i = 1; i < TraceInitial.size(); ++i) {
    if (TraceInitial[i].Cde != CodePC) continue;
    const double d = DistanceCarree(clic, TraceInitial[i]);
    if (d < meilleur) {
      meilleur = d;
      choisi = i;
    }
  }
  if (choisi == 0 || 2 * RayonEncoche() < DistancePoints(clic, TraceInitial[choisi])) return Refuse();
  PasseTraces passe;
  TraceInitial[choisi].Cde = CodePD;
  const Code2 code = TraceInitial[choisi].Seq;
  // The point is superfluous again where it lies on a straight line.
  NettoieTout(ResolutionRetrait);
  return Acheve(passe.SuitUn(code));
}

std::optional<PointTrace> LieuAttache(std::int32_t index, float x, float y) {
  const auto d = Deplace(index, {x, y, CodePD, Code2{}});
  return d ? std::optional(d->lieu) : std::nullopt;
}

bool DeplaceAttache(std::int32_t index, float x, float y) {
  const auto d = Deplace(index, {x, y, CodePD, Code2{}});
  if (!d) return Refuse();
  PasseTraces passe;
  RemplaceSequence(d->lieu.Seq, d->points);
  return Acheve(passe.SuitUn(d->lieu.Seq));
}

// From the last path to the first, and from the last place of each, so that places before stay where they are. The
// distance to start and end of a path is that of a click: as the crow flies.
std::int32_t PoseAttaches(const VoeuAttaches& voeu) {
  PasseTraces passe;
  const double t = RayonEncoche();
  const IndexCodes index = IndexDocument();
  const std::vector<Etendue> etendues = EtenduesSequences();
  std::vector<Code2> touches;
  std::int32_t posees = 0;
  for (auto e = etendues.rbegin(); e != etendues.rend(); ++e) {
    const auto fiche = index.Fiche(e->code);
    if (!fiche || index.PremierPoint(e->code) != e->premier) continue;
    const SequenceInfo& s = Sequences[*fiche];
    if (s.Selection == Faux || s.Fraiser == Faux || s.Poche != Faux) continue;
    const std::span<const PointTrace> run = PointsDe(TraceInitial, *e);
    std::vector<PlaceAttache> places = PlacesAttaches(run, voeu, t);
    std::erase_if(places, [&](const PlaceAttache& p) {
      return DistancePoints(p.point, run.front()) < t || DistancePoints(p.point, run.back()) < t;
    });
    if (places.empty()) continue;
    touches.push_back(e->code);
    posees += base::Compte(places.size());
    for (auto p = places.rbegin(); p != places.rend(); ++p)
      InserePoint(base::Compte(e->premier + p->fin), p->point);
  }
  if (posees == 0) {
    Svc.Bip();
    return 0;
  }
  return Acheve(passe.Suit(touches)) ? posees : -1;
}

}  // namespace ovelin
