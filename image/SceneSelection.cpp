#include "image/SceneSelection.h"

#include <algorithm>
#include <unordered_set>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "image/Traceur.h"

namespace ovelin {

namespace {

constexpr float LargeurHalo = 9 * TwipsParPixel;
constexpr float LargeurSurvol = 11 * TwipsParPixel;
constexpr float EcartCadre = 8 * TwipsParPixel;   // from the paths to their box
constexpr float MargeTexte = 4 * TwipsParPixel;   // of the paper around it
constexpr float EcartTexte = 11 * TwipsParPixel;  // from the box to the middle of its text

std::unordered_set<std::uint32_t> Choisies(const Document& document) {
  std::unordered_set<std::uint32_t> choisies;
  std::unordered_set<std::uint32_t> vues;  // of two records of a code the first counts
  for (const SequenceInfo& s : document.Sequences) {
    if (vues.insert(s.Code.Cle()).second && s.Selection != Faux) choisies.insert(s.Code.Cle());
  }
  return choisies;
}

// Calls `quoi` with the points of each path of the drawing whose code is one of these.
template <class F>
void PourChaque(const Document& document, const std::unordered_set<std::uint32_t>& codes, const F& quoi) {
  if (codes.empty()) return;
  const auto& points = document.TraceInitial;
  const std::size_t n = document.NbPoints > 0 ? std::min(points.size(), base::Indice(document.NbPoints)) : 0;
  for (std::size_t i = 0; i < n;) {
    std::size_t fin = i + 1;
    while (fin < n && points[fin].Seq == points[i].Seq) ++fin;
    if (codes.contains(points[i].Seq.Cle())) quoi(points.data() + i, points.data() + fin);
    i = fin;
  }
}

void Souligne(const Document& document, const std::unordered_set<std::uint32_t>& codes, Role role, float largeur,
              const EtatVue& vue, const TailleImage& taille, const OptionsScene& options, Scene& scene) {
  Traceur traceur(scene, vue, taille, std::max(options.pixel, largeur / 8), largeur);
  PourChaque(document, codes, [&](const PointTrace* debut, const PointTrace* fin) {
    traceur.Commence(role, 0, largeur, Primitive{}.force);
    traceur.Suit(debut, fin);
    traceur.Finit();
  });
}

}  // namespace

BoiteSelection BoiteDe(const Document& document) {
  BoiteSelection b;
  PourChaque(document, Choisies(document), [&](const PointTrace* p, const PointTrace* fin) {
    if (b.vide) b = {false, p->X, p->X, p->Y, p->Y};
    for (; p != fin; ++p) {
      b.xmin = std::min(b.xmin, p->X);
      b.xmax = std::max(b.xmax, p->X);
      b.ymin = std::min(b.ymin, p->Y);
      b.ymax = std::max(b.ymax, p->Y);
    }
  });
  return b;
}

CadreEcran CadreDe(const BoiteSelection& boite, const EtatVue& vue, const TailleImage& taille) {
  const PointTrace a = VersEcran(vue, taille.hauteur, {boite.xmin, boite.ymax, CodePD, {}});
  const PointTrace b = VersEcran(vue, taille.hauteur, {boite.xmax, boite.ymin, CodePD, {}});
  return {{a.X - EcartCadre, a.Y - EcartCadre}, {b.X + EcartCadre, b.Y + EcartCadre}};
}

// Where every path is selected, as after an opening, the box alone says so.
void AjouteHalo(const Document& document, const EtatVue& vue, const TailleImage& taille,
                const OptionsScene& options, Scene& scene) {
  const bool toutes = std::all_of(document.Sequences.begin(), document.Sequences.end(),
                                  [](const SequenceInfo& s) { return s.Selection != Faux; });
  if (toutes && document.Sequences.size() > 1) return;
  Souligne(document, Choisies(document), Role::Halo, LargeurHalo, vue, taille, options, scene);
}

// Above the box, or below it where the picture ends there, or else in it.
void AjouteCadre(const Document& document, const EtatVue& vue, const TailleImage& taille,
                 const OptionsScene& options, Scene& scene) {
  const BoiteSelection boite = BoiteDe(document);
  if (boite.vide) return;
  const CadreEcran c = CadreDe(boite, vue, taille);
  constexpr float Loin = 100 * TwipsParPixel;
  const float x0 = std::clamp(c.hautGauche.X, -Loin, taille.largeur + Loin);
  const float x1 = std::clamp(c.basDroite.X, -Loin, taille.largeur + Loin);
  const float y0 = std::clamp(c.hautGauche.Y, -Loin, taille.hauteur + Loin);
  const float y1 = std::clamp(c.basDroite.Y, -Loin, taille.hauteur + Loin);
  Primitive p;
  p.role = Role::CadreSelection;
  const PointEcran bord[] = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}, {x0, y0}};
  scene.Ajoute(p, bord);
  const std::string texte = TexteDimensions(double{boite.xmax} - boite.xmin, double{boite.ymax} - boite.ymin);
  const TailleTexte mesure = Mesure(options.mesureTexte, texte);
  const float demi = mesure.largeur / 2;
  const float x = std::clamp((x0 + x1) / 2, demi, std::max(taille.largeur - demi, demi));
  float y = y0 - EcartTexte;
  if (y < mesure.hauteur / 2) y = y1 + EcartTexte;
  if (y > taille.hauteur - mesure.hauteur / 2) y = std::max(y0, 0.0F) + EcartTexte;
  const float bordX = demi + MargeTexte;
  const float bordY = mesure.hauteur / 2 + MargeTexte / 2;
  Primitive fond;
  fond.genre = Genre::Aire;
  fond.role = Role::FondMesure;
  const PointEcran coins[] = {
      {x - bordX, y - bordY}, {x + bordX, y - bordY}, {x + bordX, y + bordY}, {x - bordX, y + bordY}};
  scene.Ajoute(fond, coins);
  scene.AjouteTexte(Role::CadreSelection, {x, y}, Ancre::Centre, texte);
}

void AjouteSurvol(const Document& document, Code2 code, const EtatVue& vue, const TailleImage& taille,
                  const OptionsScene& options, Scene& scene) {
  Souligne(document, {code.Cle()}, Role::Survol, LargeurSurvol, vue, taille, options, scene);
}

// What is beside the picture now may be dragged into it: as far out as the picture is wide.
void AjouteContour(const Document& document, const EtatVue& vue, const TailleImage& taille,
                   const OptionsScene& options, Scene& scene) {
  const float marge = std::max(taille.largeur, taille.hauteur);
  Traceur traceur(scene, vue, taille, options.pixel, marge);
  PourChaque(document, Choisies(document), [&](const PointTrace* debut, const PointTrace* fin) {
    traceur.Commence(Role::Fantome, 0);
    traceur.Suit(debut, fin);
    traceur.Finit();
  });
}

std::string TexteDimensions(double largeur, double hauteur) {
  return Formate(largeur, "0.0") + " x " + Formate(hauteur, "0.0") + " mm";
}

}  // namespace ovelin
