// The shapes, and how a shape becomes paths.
#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Equipe.h"
#include "closed/pathwerk/lecture/svg/DonneesChemin.h"
#include "closed/pathwerk/lecture/svg/Illustration.h"

namespace pathwerk::lecture::svg {

// False when the element is no shape.
bool Illustration::Forme(pugi::xml_node element, std::string_view nom, const Entourage& ici) {
  const bool ronde = nom == "circle" || nom == "ellipse";
  const bool suite = nom == "polyline" || nom == "polygon";
  if (nom != "path" && nom != "rect" && nom != "line" && !ronde && !suite) return false;
  Apparence a = ici.apparence;
  if (nom == "line") a.fond = false;  // it has no inside
  if (!a.visible || (!a.FondVisible() && !a.TraitVisible())) {
    Ignore("INVISIBLE", 1, element);
    return true;
  }
  if (a.marques && (nom == "path" || nom == "line" || suite)) Ignore("marker", 1, element);
  const std::string_view donnees = nom == "path" ? element.attribute("d").value()
                                   : suite       ? element.attribute("points").value()
                                                 : "";
  if ((nom == "path" || suite) && !Prend(donnees.size() / 8, element)) return true;
  Tache tache = TacheDe(ici, a, element, PointsDAvance(donnees.size()));
  tache.donnees = donnees;
  Plume& plume = tache.plume;
  if (nom == "path") {
    tache.reste = Tache::Reste::Chemin;
  } else if (suite) {
    tache.reste = nom == "polygon" ? Tache::Reste::SuiteFermee : Tache::Reste::Suite;
  } else if (nom == "rect") {
    TraceRect(element, ici, plume);
  } else if (ronde) {
    TraceRonde(element, nom == "circle", ici, plume);
  } else {
    const double em = a.corps;
    plume.Va({Longueur(element, "x1", em, ici.largeur, 0), Longueur(element, "y1", em, ici.hauteur, 0)});
    plume.Ligne({Longueur(element, "x2", em, ici.largeur, 0), Longueur(element, "y2", em, ici.hauteur, 0)});
  }
  Pose(std::move(tache));
  return true;
}

// How many points a shape may have that is drawn before the ones ahead of it are counted. What has more is drawn
// again when its turn comes.
std::size_t Illustration::PointsDAvance(std::size_t octets) const {
  constexpr std::size_t PointsParOctet = 4;
  constexpr std::size_t PointsDUne = 4096;
  if (partage_.octets == 0) return PointsRestants();
  return std::min(PointsRestants(), PointsParOctet * octets + PointsDUne);
}

Illustration::Tache Illustration::TacheDe(const Entourage& ici, const Apparence& a, pugi::xml_node element,
                                          std::size_t pointsMax) const {
  Tache tache(ici.m, fleche_, pointsMax);
  tache.fond = a.FondVisible();
  tache.trait = a.TraitVisible();
  tache.boutRond = a.boutRond;
  tache.couleur = a.Couleur();
  tache.calque = ici.calque;
  tache.element = element;
  return tache;
}

void Illustration::Tache::Trace() {
  if (reste == Reste::Chemin) lisible = TraceDonnees(donnees, plume);
  if (reste == Reste::Suite || reste == Reste::SuiteFermee) {
    TracePoints(donnees, reste == Reste::SuiteFermee, plume);
  }
}

void Illustration::Pose(Tache&& tache) {
  constexpr std::size_t TachesMax = 1024;
  if (partage_.octets == 0) {
    tache.Trace();
    return Acheve(tache);
  }
  octetsPoses_ += tache.donnees.size();
  taches_.push_back(std::move(tache));
  if (octetsPoses_ >= partage_.octets || taches_.size() >= TachesMax) Vide();
}

void Illustration::Vide() {
  base::FaitParLots(partage_.fils, taches_.size(), [this](std::size_t debut, std::size_t fin) {
    for (std::size_t i = debut; i < fin; ++i) taches_[i].Trace();
  });
  for (Tache& tache : taches_) {
    // With fewer points left than the pen was given, or more than that needed, it may have drawn otherwise.
    if (tache.reste != Tache::Reste::Rien && tache.plume.Plus() > std::min(tache.plume.Max(), PointsRestants())) {
      tache.plume = Plume(tache.m, fleche_, PointsRestants());
      tache.Trace();
    }
    Acheve(tache);
    if (lecture_.Refuse()) break;
  }
  taches_.clear();
  octetsPoses_ = 0;
}

void Illustration::Acheve(Tache& tache) {
  if (!tache.lisible) Ignore("ROW", 1, tache.element);
  Emet(tache);
}

// Radii: one alone counts for both, and neither reaches past the middle of its side.
void Illustration::TraceRect(pugi::xml_node element, const Entourage& ici, Plume& plume) const {
  const double em = ici.apparence.corps;
  const double x = Longueur(element, "x", em, ici.largeur, 0);
  const double y = Longueur(element, "y", em, ici.hauteur, 0);
  const double l = Longueur(element, "width", em, ici.largeur, 0);
  const double h = Longueur(element, "height", em, ici.hauteur, 0);
  if (!(l > 0 && h > 0)) return;
  double rx = Longueur(element, "rx", em, ici.largeur, -1);
  double ry = Longueur(element, "ry", em, ici.hauteur, -1);
  if (!(rx >= 0)) rx = ry;
  if (!(ry >= 0)) ry = rx;
  rx = std::min(rx, l / 2);
  ry = std::min(ry, h / 2);
  if (!(rx > 0 && ry > 0)) {
    plume.Va({x, y});
    plume.Ligne({x + l, y});
    plume.Ligne({x + l, y + h});
    plume.Ligne({x, y + h});
    return plume.Ferme();
  }
  plume.Va({x + rx, y});
  plume.Ligne({x + l - rx, y});
  plume.Arc(rx, ry, 0, false, true, {x + l, y + ry});
  plume.Ligne({x + l, y + h - ry});
  plume.Arc(rx, ry, 0, false, true, {x + l - rx, y + h});
  plume.Ligne({x + rx, y + h});
  plume.Arc(rx, ry, 0, false, true, {x, y + h - ry});
  plume.Ligne({x, y + ry});
  plume.Arc(rx, ry, 0, false, true, {x + rx, y});
  plume.Ferme();
}

// 100 % of a circle's radius is the diagonal of the viewport over the root of 2.
void Illustration::TraceRonde(pugi::xml_node element, bool cercle, const Entourage& ici, Plume& plume) const {
  const double em = ici.apparence.corps;
  const Vec2 centre{Longueur(element, "cx", em, ici.largeur, 0), Longueur(element, "cy", em, ici.hauteur, 0)};
  double rx = -1;
  double ry = -1;
  if (cercle) {
    rx = ry = Longueur(element, "r", em, std::hypot(ici.largeur, ici.hauteur) / std::sqrt(2.0), 0);
  } else {
    rx = Longueur(element, "rx", em, ici.largeur, -1);
    ry = Longueur(element, "ry", em, ici.hauteur, -1);
    if (!(rx >= 0)) rx = ry;
    if (!(ry >= 0)) ry = rx;
  }
  if (rx > 0 && ry > 0) plume.Ellipse(centre, rx, ry);
}

// A number without its partner at the end is left alone.
void Illustration::TracePoints(std::string_view points, bool ferme, Plume& plume) {
  LecteurValeurs lecteur(points);
  Vec2 p;
  for (bool premier = true; !plume.Pleine() && lecteur.Nombre(p.x) && lecteur.Nombre(p.y); premier = false) {
    if (premier) {
      plume.Va(p);
    } else {
      plume.Ligne(p);
    }
  }
  if (ferme) plume.Ferme();
}

// What is painted inside gives its outline, which paint closes by itself; a line alone gives its centre. A subpath
// of one place paints nothing, except the dot of ends that reach out.
void Illustration::Emet(Tache& tache) {
  const pugi::xml_node element = tache.element;
  if (tache.plume.Plus() > PointsRestants()) return Refuse(Erreur::Memoire, element);
  const long ligne = LigneDe(element);
  const std::uint16_t place = lecture_.calques.Place(Calque::Genre::Nomme, tache.calque, tache.couleur);
  long nuls = 0;
  for (SousChemin& s : tache.plume.Finit()) {
    Trait t;
    t.ligne = static_cast<std::uint32_t>(ligne);
    t.calque = place;
    std::vector<Vec2>& p = s.points;
    if (p.size() > 3 && p.front() == p.back()) {
      s.ferme = true;
      p.pop_back();
    }
    const bool contour = (s.ferme || tache.fond) && p.size() > 2;
    if (contour) {
      t.nature = Nature::Ferme;
    } else if (p.size() == 1 && tache.trait && tache.boutRond) {
      t.nature = Nature::Percage;
    } else if (p.size() < 2 || !tache.trait) {
      ++nuls;
      continue;
    }
    points_ += p.size() + 4;
    t.points = std::move(p);
    lecture_.traits.push_back(std::move(t));
  }
  if (nuls > 0) Ignore("ZERO_LENGTH", nuls);
  if (points_ > pointsMax_) {
    points_ = pointsMax_;
    Refuse(Erreur::Memoire, element);
  }
}

}  // namespace pathwerk::lecture::svg
