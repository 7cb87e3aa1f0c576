#include "image/Traceur.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Indices.h"
#include "base/Segment.h"

namespace ovelin {

namespace {

constexpr float MargePixels = 4;        // beyond the edge, for the width of lines
constexpr float CoteMax = 600'000;      // twips; no screen is larger
constexpr float PixelMin = 3;           // twips
constexpr float CellulesMax = 64.0e6F;  // twice the pixels of the finest screens
constexpr float Diametre = 1;           // pixels, of a dot

float Cote(float cote) { return cote > 0 ? std::min(cote, CoteMax) : 0.0F; }

}  // namespace

Traceur::Traceur(Scene& scene, const EtatVue& vue, const TailleImage& taille, float pixel, float marge)
    : scene_(scene), vue_(vue), hauteur_(taille.hauteur), pixel_(std::max(pixel, PixelMin)) {
  const float largeur = Cote(taille.largeur);
  const float haute = Cote(taille.hauteur);
  while ((largeur + 2 * marge) / pixel_ * ((haute + 2 * marge) / pixel_) > CellulesMax) pixel_ *= 2;
  gauche_ = haut_ = -MargePixels * pixel_ - marge;
  droite_ = largeur - gauche_;
  bas_ = haute - haut_;
  colonnes_ = static_cast<std::int32_t>((droite_ - gauche_) / pixel_) + 1;
  lignes_ = static_cast<std::int32_t>((bas_ - haut_) / pixel_) + 1;
  SansCellule();
}

PointEcran Traceur::Place(float x, float y) const {
  return {(x - vue_.OrigineDessinX) * vue_.Zoom + vue_.OrigineEcranX,
          hauteur_ - ((y - vue_.OrigineDessinY) * vue_.Zoom + vue_.OrigineEcranY)};
}

bool Traceur::Visible(const PointEcran& p, float rayon) const {
  return p.X >= gauche_ - rayon && p.X <= droite_ + rayon && p.Y >= haut_ - rayon && p.Y <= bas_ + rayon;
}

bool Traceur::Nouvelle(const PointEcran& p, unsigned sorte) {
  if (Dehors(p.X, p.Y) != 0) return false;
  if (taches_.empty()) taches_.assign(base::Indice(colonnes_) * base::Indice(lignes_), 0);
  const Cellule c = CelluleDe(p.X, p.Y);
  const std::size_t place = base::Indice(c.y) * base::Indice(colonnes_) + base::Indice(c.x);
  const auto bit = static_cast<std::uint16_t>(1U << sorte);
  if ((taches_[place] & bit) != 0) return false;
  taches_[place] = static_cast<std::uint16_t>(taches_[place] | bit);
  return true;
}

void Traceur::AjouteMarque(const Primitive& modele, std::span<const PointEcran> points) {
  if (!scene_.Primitives.empty()) {
    Primitive& derniere = scene_.Primitives.back();
    Primitive pareille = modele;
    pareille.premier = derniere.premier;
    pareille.nombre = derniere.nombre;
    if (derniere == pareille && derniere.premier + derniere.nombre == scene_.Points.size()) {
      scene_.Points.insert(scene_.Points.end(), points.begin(), points.end());
      derniere.nombre += static_cast<std::uint32_t>(points.size());
      return;
    }
  }
  scene_.Ajoute(modele, points);
}

Traceur::Cellule Traceur::CelluleDe(float x, float y) const {
  // The point lies in the grid; rounding may put one on the edge a cell too far.
  return {std::min(static_cast<std::int32_t>((x - gauche_) / pixel_), colonnes_ - 1),
          std::min(static_cast<std::int32_t>((y - haut_) / pixel_), lignes_ - 1)};
}

void Traceur::Borne(const Cellule& a, const Cellule& b) {
  x0_ = gauche_ + static_cast<float>(std::min(a.x, b.x)) * pixel_;
  x1_ = gauche_ + static_cast<float>(std::max(a.x, b.x) + 1) * pixel_;
  y0_ = haut_ + static_cast<float>(std::min(a.y, b.y)) * pixel_;
  y1_ = haut_ + static_cast<float>(std::max(a.y, b.y) + 1) * pixel_;
  // A pair at the edge reaches half a cell past it at most; what lies there is outside.
  x1_ = std::min(x1_, droite_);
  y1_ = std::min(y1_, bas_);
}

void Traceur::SansCellule() {
  x0_ = y0_ = std::numeric_limits<float>::infinity();
  x1_ = y1_ = -x0_;
}

void Traceur::Commence(Role role, unsigned sorte) { Commence(role, sorte, 0, Primitive{}.force); }

void Traceur::Commence(Role role, unsigned sorte, float largeur, std::uint8_t force) {
  modele_ = Primitive{};
  modele_.role = role;
  modele_.mesure = largeur;
  modele_.force = force;
  sorte_ = sorte;
  debut_ = true;
  ouverte_ = false;
  SansCellule();
}

void Traceur::Finit() { Ferme(); }

void Traceur::Emet(float x, float y) { scene_.Points.push_back({x, y}); }

void Traceur::Ouvre(float x, float y) {
  ouverte_ = true;
  attente_ = false;
  paire_ = false;
  modele_.premier = static_cast<std::uint32_t>(scene_.Points.size());
  cellule_ = CelluleDe(x, y);
  avant_ = Cellule{};
  Borne(cellule_, cellule_);
  Emet(x, y);
}

void Traceur::Ferme() {
  if (!ouverte_) return;
  ouverte_ = false;
  SansCellule();
  const std::size_t premier = modele_.premier;
  if (scene_.Points.size() - premier == 1) {
    // All in one cell, wherever it wandered there.
    const PointEcran seul = scene_.Points.back();
    scene_.Points.pop_back();
    if (!Nouvelle(seul, sorte_)) return;
    Primitive tache = modele_;
    tache.genre = Genre::Points;
    tache.mesure = std::max(Diametre * pixel_, modele_.mesure);
    AjouteMarque(tache, {&seul, 1});
    return;
  }
  if (attente_) Emet(dernier_.X, dernier_.Y);
  Primitive ligne = modele_;
  ligne.nombre = static_cast<std::uint32_t>(scene_.Points.size() - premier);
  scene_.Primitives.push_back(ligne);
}

void Traceur::Passe(float x, float y) {
  const Cellule neuve = CelluleDe(x, y);
  if (neuve == cellule_ && !paire_) {
    // On the very edge of the grid, or beside the border of a cell by the rounding alone.
    attente_ = true;
    return;
  }
  const bool voisines = std::abs(neuve.x - cellule_.x) + std::abs(neuve.y - cellule_.y) == 1;
  if (!paire_ && voisines && neuve == avant_) {
    paire_ = true;
    attente_ = true;
    Borne(neuve, cellule_);
    return;
  }
  if (attente_) Emet(dernier_.X, dernier_.Y);
  avant_ = paire_ ? CelluleDe(dernier_.X, dernier_.Y) : cellule_;
  cellule_ = neuve;
  paire_ = false;
  attente_ = false;
  Borne(cellule_, cellule_);
  Emet(x, y);
}

// The part that can be seen. False: none. The results are put on the edge exactly, whatever the rounding.
bool Traceur::Coupe(PointEcran& a, PointEcran& b) const {
  if (!std::isfinite(a.X) || !std::isfinite(a.Y) || !std::isfinite(b.X) || !std::isfinite(b.Y)) return false;
  const base::Segment s{{a.X, a.Y}, {b.X, b.Y}};
  const auto part = base::PartDans(s, {gauche_, haut_, droite_, bas_});
  if (!part) return false;
  const auto place = [&](double t) {
    const base::Vec2 p = s.a + (s.b - s.a) * t;
    return PointEcran{std::clamp(static_cast<float>(p.x), gauche_, droite_),
                      std::clamp(static_cast<float>(p.y), haut_, bas_)};
  };
  if (part->t1 < 1) b = place(part->t1);
  if (part->t0 > 0) a = place(part->t0);
  return true;
}

// A point that isn't in the current cell.
void Traceur::Avance(float x, float y) {
  const unsigned dehors = Dehors(x, y);
  if (debut_) {
    debut_ = false;
    if (dehors == 0) Ouvre(x, y);
  } else if ((dehors | dernierDehors_) == 0) {
    Passe(x, y);
  } else if ((dehors & dernierDehors_) == 0) {
    PointEcran a = dernier_;
    PointEcran b{x, y};
    if (Coupe(a, b)) {
      if (dernierDehors_ != 0) Ouvre(a.X, a.Y);
      if (attente_) Emet(dernier_.X, dernier_.Y);
      attente_ = false;
      Emet(b.X, b.Y);
      if (dehors == 0) {
        avant_ = Cellule{};
        paire_ = false;
        cellule_ = CelluleDe(x, y);
        Borne(cellule_, cellule_);
      }
    } else if (dehors == 0) {
      Ouvre(x, y);  // the point before was no place at all
    }
    if (dehors != 0) Ferme();
  }
  dernier_ = {x, y};
  dernierDehors_ = dehors;
}

void Traceur::Suit(const PointTrace* debut, const PointTrace* fin) {
  const float zoom = vue_.Zoom;
  const float ox = vue_.OrigineDessinX;
  const float oy = vue_.OrigineDessinY;
  const float ex = vue_.OrigineEcranX;
  const float ey = vue_.OrigineEcranY;
  const float hauteur = hauteur_;
  for (const PointTrace* p = debut; p != fin; ++p) {
    float x = (p->X - ox) * zoom + ex;
    float y = hauteur - ((p->Y - oy) * zoom + ey);
    const float x0 = x0_;
    const float x1 = x1_;
    const float y0 = y0_;
    const float y1 = y1_;
    if (x >= x0 && x < x1 && y >= y0 && y < y1) {
      // Within the cell: on to the last point that is.
      PointEcran dedans{x, y};
      for (++p; p != fin; ++p) {
        x = (p->X - ox) * zoom + ex;
        y = hauteur - ((p->Y - oy) * zoom + ey);
        if (!(x >= x0 && x < x1 && y >= y0 && y < y1)) break;
        dedans = {x, y};
      }
      dernier_ = dedans;
      attente_ = true;
      if (p == fin) return;
    }
    Avance(x, y);
  }
}

}  // namespace ovelin
