// Options, and the marks that stand on top of the picture.
#include "workspace/SceneMarques.h"

#include <algorithm>
#include <cmath>

#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Representation";
constexpr float DemiAile = 0.375F;    // half the width of an arrow, of its length
constexpr float HauteurTexte = 195;   // twips, where no font is known
constexpr float LargeurSigne = 0.6F;  // of the height
constexpr float CroixMin = 0.03F;     // twips

}  // namespace

TailleTexte Mesure(const OptionsScene& options, const std::string& texte) {
  if (options.mesureTexte) return options.mesureTexte(texte);
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

void AjouteTexte(Scene& scene, Element element, std::int32_t couleur, const PointEcran& place, Ancre ancre,
                 const std::string& texte) {
  Primitive p;
  p.genre = Genre::Texte;
  p.element = element;
  p.ancre = ancre;
  p.couleur = couleur;
  p.premier = static_cast<std::uint32_t>(scene.Points.size());
  p.nombre = 1;
  p.texte = static_cast<std::uint32_t>(scene.Textes.size());
  scene.Points.push_back(place);
  scene.Textes.push_back(texte);
  scene.Primitives.push_back(p);
}

void AjouteDisque(Scene& scene, Element element, std::int32_t couleur, std::int32_t fond, const PointEcran& centre,
                  float rayon) {
  Primitive p;
  p.genre = Genre::Disque;
  p.element = element;
  p.couleur = couleur;
  p.fond = fond;
  p.mesure = rayon;
  p.premier = static_cast<std::uint32_t>(scene.Points.size());
  p.nombre = 1;
  scene.Points.push_back(centre);
  scene.Primitives.push_back(p);
}

void AjouteSegment(Scene& scene, Element element, std::int32_t couleur, const PointEcran& a, const PointEcran& b) {
  Primitive p;
  p.element = element;
  p.couleur = couleur;
  p.premier = static_cast<std::uint32_t>(scene.Points.size());
  p.nombre = 2;
  scene.Points.push_back(a);
  scene.Points.push_back(b);
  scene.Primitives.push_back(p);
}

void Scene::Vide() {
  Points.clear();
  Primitives.clear();
  Textes.clear();
}

OptionsScene OptionsCourantes(bool numPoint, bool sequence) {
  OptionsScene o;
  o.numPoint = numPoint;
  o.sequence = sequence;
  o.couleurNumero = Regl.CouleurNumero;
  o.couleurSequence = Regl.CouleurSequence;
  o.couleurInitial = Regl.CouleurInitial;
  o.couleurSelectionne = Regl.Couleurselectionne;
  o.couleurDecalage = Regl.CouleurDecalage;
  o.couleurEncoche = Regl.CouleurEncoche;
  o.legendeDessin = Traduire(Section, "lib350");
  o.legendeDecalage = Traduire(Section, "lib351");
  return o;
}

float CoteMarque(const TailleImage& taille) {
  const float aire = std::max(taille.largeur * taille.hauteur, 0.0F);
  return static_cast<float>(Arrondi32(std::sqrt(static_cast<double>(aire)) / 75));
}

void TraceCroix(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options, const PointTrace& point,
                Scene& scene) {
  const float demi = std::max(CroixMin, taille.hauteur / 50);
  const PointTrace p = VersEcran(vue, taille.hauteur, point);
  AjouteSegment(scene, Element::Croix, options.couleurInitial, {p.X, p.Y - demi}, {p.X, p.Y + demi});
  AjouteSegment(scene, Element::Croix, options.couleurInitial, {p.X - demi, p.Y}, {p.X + demi, p.Y});
}

void MarqueOutil(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options,
                 const MemoireOutil& precedente, float x, float y, Scene& scene) {
  const PointTrace ici = VersEcran(vue, taille.hauteur, {x, y, CodePD, {}});
  AjouteDisque(scene, Element::PositionOutil, options.couleurSequence, SansFond, {ici.X, ici.Y},
               Mesure(options, "0").hauteur / 2);
  if (precedente == MemoireOutil{}) return;
  const PointTrace avant = VersEcran(vue, taille.hauteur, {precedente.X, precedente.Y, CodePD, {}});
  AjouteSegment(scene, Element::PositionOutil, options.couleurSequence, {avant.X, avant.Y}, {ici.X, ici.Y});
}

bool Dessin_Position_Outil(const EtatVue& vue, const TailleImage& taille, const OptionsScene& options,
                           MemoireOutil& memoire, float x, float y, Scene& scene) {
  if (memoire.X == x && memoire.Y == y) return false;
  scene.Vide();
  MarqueOutil(vue, taille, options, memoire, x, y, scene);
  memoire = {x, y};
  return true;
}

}  // namespace ovelin
