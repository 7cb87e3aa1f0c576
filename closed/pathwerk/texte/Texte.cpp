// Outlines of text as points of a drawing.

#include <limits>
#include <new>
#include <vector>

#include "base/Indices.h"
#include "closed/Pathwerk.h"
#include "closed/pathwerk/texte/Ligne.h"
#include "closed/pathwerk/texte/Polices.h"

namespace pathwerk {

namespace {

constexpr double FlecheTexte = 0.01;  // mm

// Adds a contour to the result, closed exactly. Points that fall together as 32-bit floats are one; what has no
// inside after that is nothing to cut. True when something was added.
bool AjouteContour(const std::vector<Vec2>& contour, Code2 code, std::vector<PointTrace>& points) {
  const std::size_t debut = points.size();
  for (const Vec2 p : contour) {
    PointTrace point{static_cast<float>(p.x), static_cast<float>(p.y), CodePD, code};
    if (points.size() == debut || !MemePlace(points.back(), point)) points.push_back(point);
  }
  while (points.size() > debut + 1 && MemePlace(points.back(), points[debut])) points.pop_back();
  if (points.size() < debut + 3) {
    points.resize(debut);
    return false;
  }
  points.push_back(PointTrace(points[debut]));
  return true;
}

std::int32_t Trace(const texte::FacePolice& face, const std::string& texte, const texte::StyleLigne& style,
                   std::vector<PointTrace>& points) {
  texte::LigneTexte ligne;
  const Erreur erreur = texte::TraceLigne(face, texte, style, ligne);
  if (erreur != Erreur::Aucune) return Numero(erreur);
  std::size_t rang = 0;
  for (const std::vector<Vec2>& contour : ligne.contours) {
    // Only the change of the code counts: behind the last one they begin again.
    if (AjouteContour(contour, CodeDeRang(rang % NbCodes()), points)) ++rang;
    if (points.size() > base::Indice(std::numeric_limits<std::int32_t>::max())) return Numero(Erreur::Memoire);
  }
  return base::Compte(points.size());
}

}  // namespace

std::int32_t Texte(std::vector<PointTrace>& points, const std::string& texte, const std::string& police,
                   std::int32_t espace, std::int32_t style) {
  return TexteHaut(points, texte, police, espace, style, HauteurTexte);
}

std::int32_t TexteHaut(std::vector<PointTrace>& points, const std::string& texte, const std::string& police,
                       std::int32_t espace, std::int32_t style, double hauteur) {
  points.clear();
  if (texte.empty() || !(hauteur > 0)) return 0;
  try {
    const bool italique = (style & StyleItalique) != 0;
    const bool gras = (style & StyleGras) != 0;
    const auto face = texte::TrouveFace(police, italique, gras);
    if (!face) return Numero(Erreur::Police);
    const std::int32_t n = Trace(*face, texte, {espace, italique, gras, hauteur, FlecheTexte}, points);
    if (n < 0) points.clear();
    return n;
  } catch (const std::bad_alloc&) {
    points = {};
    return Numero(Erreur::Memoire);
  }
}

}  // namespace pathwerk
