#include "image/Marques.h"

#include <algorithm>

namespace ovelin {

namespace {

constexpr float CroixMin = 0.03F;  // twips

}  // namespace

void TraceCroix(const EtatVue& vue, const TailleImage& taille, const PointTrace& point, Scene& scene) {
  const float demi = std::max(CroixMin, taille.hauteur / 50);
  const PointTrace p = VersEcran(vue, taille.hauteur, point);
  scene.AjouteSegment(Role::Croix, {p.X, p.Y - demi}, {p.X, p.Y + demi});
  scene.AjouteSegment(Role::Croix, {p.X - demi, p.Y}, {p.X + demi, p.Y});
}

void MarqueOutil(const EtatVue& vue, const TailleImage& taille, const MesureTexte& police,
                 const MemoireOutil& precedente, float x, float y, Scene& scene) {
  const PointTrace ici = VersEcran(vue, taille.hauteur, {x, y, CodePD, {}});
  scene.AjouteDisque(Role::Outil, {ici.X, ici.Y}, Mesure(police, "0").hauteur / 2);
  if (precedente == MemoireOutil{}) return;
  const PointTrace avant = VersEcran(vue, taille.hauteur, {precedente.X, precedente.Y, CodePD, {}});
  scene.AjouteSegment(Role::Outil, {avant.X, avant.Y}, {ici.X, ici.Y});
}

bool Dessin_Position_Outil(const EtatVue& vue, const TailleImage& taille, const MesureTexte& police,
                           MemoireOutil& memoire, float x, float y, Scene& scene) {
  if (memoire.X == x && memoire.Y == y) return false;
  scene.Vide();
  MarqueOutil(vue, taille, police, memoire, x, y, scene);
  memoire = {x, y};
  return true;
}

}  // namespace ovelin
