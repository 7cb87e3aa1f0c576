#include "image/Scene.h"

#include <utility>

namespace ovelin {

namespace {

constexpr float DemiAile = 0.375F;    // half the width of an arrow, of its length
constexpr float HauteurTexte = 195;   // twips, where no font is known
constexpr float LargeurSigne = 0.6F;  // of the height

}  // namespace

Nappe NappeDe(Role role) {
  switch (role) {
    case Role::Saignee:
    case Role::Poche:
      return Nappe::Coupe;
    case Role::Hors:
      return Nappe::Hors;
    case Role::Halo:
      return Nappe::Halo;
    case Role::Survol:
      return Nappe::Survol;
    default:
      return Nappe::Aucune;
  }
}

void Scene::Vide() {
  Points.clear();
  Primitives.clear();
  Textes.clear();
}

void Scene::Ajoute(Primitive modele, std::span<const PointEcran> places) {
  modele.premier = static_cast<std::uint32_t>(Points.size());
  modele.nombre = static_cast<std::uint32_t>(places.size());
  Points.insert(Points.end(), places.begin(), places.end());
  Primitives.push_back(modele);
}

void Scene::AjouteTexte(Role role, const PointEcran& place, Ancre ancre, std::string texte) {
  Primitive p;
  p.genre = Genre::Texte;
  p.role = role;
  p.ancre = ancre;
  p.texte = static_cast<std::uint32_t>(Textes.size());
  Textes.push_back(std::move(texte));
  Ajoute(p, {&place, 1});
}

void Scene::AjouteDisque(Role role, const PointEcran& centre, float rayon) {
  Primitive p;
  p.genre = Genre::Disque;
  p.role = role;
  p.mesure = rayon;
  Ajoute(p, {&centre, 1});
}

void Scene::AjouteSegment(Role role, const PointEcran& a, const PointEcran& b) {
  Primitive p;
  p.role = role;
  const PointEcran bouts[] = {a, b};
  Ajoute(p, bouts);
}

void Scene::AjouteAire(Role role, std::span<const PointEcran> bord) {
  Primitive p;
  p.genre = Genre::Aire;
  p.role = role;
  Ajoute(p, bord);
}

TailleTexte Mesure(const MesureTexte& police, const std::string& texte) {
  if (police) return police(texte);
  return {LargeurSigne * HauteurTexte * static_cast<float>(texte.size()), HauteurTexte};
}

void Fleche(const PointEcran& pointe, float dx, float dy, float longueur, PointEcran (&coins)[3]) {
  const float bx = pointe.X - dx * longueur;
  const float by = pointe.Y - dy * longueur;
  const float aile = longueur * DemiAile;
  coins[0] = {bx - dy * aile, by + dx * aile};
  coins[1] = pointe;
  coins[2] = {bx + dy * aile, by - dx * aile};
}

}  // namespace ovelin
