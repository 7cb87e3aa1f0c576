// The shapes, and how a shape becomes paths.
#include <algorithm>
#include <cmath>
#include <utility>

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
  Plume plume(ici.m, fleche_, PointsRestants());
  if (nom == "path") {
    const std::string_view donnees = element.attribute("d").value();
    if (!Prend(donnees.size() / 8, element)) return true;
    if (!TraceDonnees(donnees, plume)) Ignore("ROW", 1, element);
  } else if (nom == "rect") {
    TraceRect(element, ici, plume);
  } else if (ronde) {
    TraceRonde(element, nom == "circle", ici, plume);
  } else if (suite) {
    const std::string_view points = element.attribute("points").value();
    if (!Prend(points.size() / 8, element)) return true;
    TracePoints(points, nom == "polygon", plume);
  } else {
    const double em = a.corps;
    plume.Va({Longueur(element, "x1", em, ici.largeur, 0), Longueur(element, "y1", em, ici.hauteur, 0)});
    plume.Ligne({Longueur(element, "x2", em, ici.largeur, 0), Longueur(element, "y2", em, ici.hauteur, 0)});
  }
  Emet(plume, a, ici.calque, element);
  return true;
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
void Illustration::Emet(Plume& plume, const Apparence& a, std::string_view calque, pugi::xml_node element) {
  if (plume.Pleine()) return Refuse(Erreur::Memoire, element);
  const long ligne = LigneDe(element);
  const std::uint16_t place = lecture_.calques.Place(Calque::Genre::Nomme, calque, a.Couleur());
  long nuls = 0;
  for (SousChemin& s : plume.Finit()) {
    Trait t;
    t.ligne = static_cast<std::uint32_t>(ligne);
    t.calque = place;
    std::vector<Vec2>& p = s.points;
    if (p.size() > 3 && p.front() == p.back()) {
      s.ferme = true;
      p.pop_back();
    }
    const bool contour = (s.ferme || a.FondVisible()) && p.size() > 2;
    if (contour) {
      t.nature = Nature::Ferme;
    } else if (p.size() == 1 && a.TraitVisible() && a.boutRond) {
      t.nature = Nature::Percage;
    } else if (p.size() < 2 || !a.TraitVisible()) {
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
