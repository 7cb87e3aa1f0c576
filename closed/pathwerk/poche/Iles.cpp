// Islands that keep clear of the outline and of each other become holes of the region. Rings, moves and trees know
// holes already, as an outline that crosses itself has them.
//
// Where contours cross or touch, none of them is cut. Each strand is a wall on both sides, and of the loops that
// the engine finds between the walls those inside of an island are left out, as they are outside of the outline: a
// free place lies with its whole surroundings on one side of every contour, so one place of a loop tells for all of
// it. That takes two to six times as long, leaves every contour where it was drawn, and has no case that rounding
// could decide: strands on each other are one wall.
#include "closed/pathwerk/poche/Iles.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "closed/pathwerk/commun/ArbreSegments.h"
#include "closed/pathwerk/decalage/ArcSource.h"

namespace pathwerk::poche {

namespace {

constexpr double Contact = 1e-6;  // mm: contours nearer than this count as touching

// Contours with their box, and with a search tree once that is asked for.
class Mur {
 public:
  explicit Mur(std::span<const Chemin> contours) : contours_(contours) {
    for (const Chemin& c : contours) {
      for (const Vec2 p : c) boite_.Etend(p.x, p.y);
      points_ += c.size();
    }
  }
  [[nodiscard]] const Chemin& Premier() const { return contours_[0]; }
  [[nodiscard]] const base::Boite<double>& Boite() const { return boite_; }
  [[nodiscard]] bool Touche(Mur& autre) {
    if (!boite_.Rencontre(autre.boite_)) return false;
    if (points_ < autre.points_) return autre.Touche(*this);
    const std::vector<Segment>& siens = autre.Arbre().Segments();
    return std::any_of(siens.begin(), siens.end(),
                       [this](const Segment& s) { return Arbre().PassePres(s, Contact); });
  }
  // Of one contour.
  [[nodiscard]] bool SeTouche() { return Arbre().PeutSeCroiser(); }

 private:
  [[nodiscard]] const ArbreSegments& Arbre() {
    if (!arbre_) {
      std::vector<Segment> segments;
      for (const Chemin& c : contours_) {
        const std::vector<Segment> s = SegmentsDe(c, true);
        segments.insert(segments.end(), s.begin(), s.end());
      }
      arbre_.emplace(std::move(segments));
    }
    return *arbre_;
  }

  std::span<const Chemin> contours_;
  base::Boite<double> boite_;
  std::size_t points_ = 0;
  std::optional<ArbreSegments> arbre_;
};

bool Enchevetres(Mur& bord, std::vector<Mur>& iles) {
  for (std::size_t i = 0; i < iles.size(); ++i) {
    if (iles[i].SeTouche() || bord.Touche(iles[i])) return true;
    for (std::size_t j = 0; j < i; ++j) {
      if (iles[j].Touche(iles[i])) return true;
    }
  }
  return false;
}

bool Entoure(const Chemin& ile, const Region& region) {
  const decalage::ArcSource source(std::span(&ile, 1));
  return std::any_of(region.contours.begin(), region.contours.end(),
                     [&source](const Chemin& c) { return source.Tours(c[0]) != 0; });
}

// The islands that are holes of the region; none of them touches anything. Nothing: one lies around a part of it.
std::optional<std::vector<Chemin>> Trous(const Region& region, const std::vector<Mur>& iles) {
  const decalage::ArcSource source(region.contours);
  std::vector<Chemin> trous;
  for (const Mur& ile : iles) {
    Chemin c = ile.Premier();
    const int tours = source.Tours(c[0]);
    if (region.signe > 0 ? tours > 0 : tours < 0) {
      if ((Aire(c) > 0) == (region.signe > 0)) std::reverse(c.begin(), c.end());
      trous.push_back(std::move(c));
    } else if (Entoure(c, region)) {
      return std::nullopt;
    }
  }
  return trous;
}

}  // namespace

void PoseIles(Region& region, std::span<const Chemin> iles) {
  Mur bord(region.contours);
  std::vector<Mur> murs;
  for (const Chemin& ile : iles) {
    Mur mur(std::span(&ile, 1));
    if (ile.size() > 2 && mur.Boite().Rencontre(bord.Boite())) murs.push_back(std::move(mur));
  }
  if (murs.empty()) return;
  std::optional<std::vector<Chemin>> trous;
  if (!region.fouillis && !Enchevetres(bord, murs)) trous = Trous(region, murs);
  std::vector<Chemin> ajouts;
  if (trous) {
    ajouts = std::move(*trous);
  } else {
    region.fouillis = true;
    region.iles = murs.size();
    for (const Mur& mur : murs) ajouts.push_back(mur.Premier());
  }
  // Where an edge runs beside an island there is no place of the pocket's own path.
  if (region.origines.size() == region.contours.size()) {
    region.origines.resize(region.contours.size() + ajouts.size());
  }
  region.source.reset();
  for (Chemin& c : ajouts) region.contours.push_back(std::move(c));
}

}  // namespace pathwerk::poche
