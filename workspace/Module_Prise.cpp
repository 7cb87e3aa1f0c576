#include "workspace/Module_Prise.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "toolpath/Attaches.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"

namespace ovelin {

EtatPrise Prise;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Prise = EtatPrise{}; });

constexpr float Seuil = 4 * TwipsParPixel;   // a press that goes no farther is a click
constexpr float Portee = 8 * TwipsParPixel;  // from a path or a grip
constexpr float Hampe = 26 * TwipsParPixel;  // from the box to the grip that turns
constexpr float Aimant = 8 * TwipsParPixel;  // within which a place snaps
constexpr double PasAngle = Pi / 12;
constexpr double RapportMin = 0.01;

bool Pres(const PointEcran& a, float x, float y) { return std::hypot(a.X - x, a.Y - y) <= Portee; }

PointTrace EnDessin(const TailleImage& taille, float x, float y) {
  return VersDessin(Vue, taille.hauteur, {x, y, CodePD, {}});
}

void RendSelection() {
  DeselectionneTout();
  for (const Code2 code : Prise.avant) BasculeSelection(code);
}

// Places along one axis that something may snap to.
std::vector<double> Lieux(bool enX) {
  std::vector<double> lieux;
  const IndexCodes index = IndexDocument();
  for (const Etendue& e : EtenduesSequences()) {
    const auto fiche = index.Fiche(e.code);
    if (!fiche || Sequences[*fiche].Selection != Faux) continue;
    const std::span<const PointTrace> run = PointsDe(TraceInitial, e);
    const auto [a, b] = std::minmax_element(
        run.begin(), run.end(),
        [enX](const PointTrace& p, const PointTrace& q) { return enX ? p.X < q.X : p.Y < q.Y; });
    const double min = enX ? a->X : a->Y;
    const double max = enX ? b->X : b->Y;
    lieux.insert(lieux.end(), {min, (min + max) / 2, max});
  }
  return lieux;
}

// The movement, changed so that the nearest of these edges comes onto the grid or onto one of the places.
double Accroche(double d, std::initializer_list<double> bords, const std::vector<double>& lieux) {
  const double portee = double{Aimant} / Zoom;
  const double pas = std::pow(10.0, std::ceil(std::log10(double{Aimant} / Zoom)));
  double meilleur = portee;
  double resultat = d;
  for (const double bord : bords) {
    const auto essaie = [&](double lieu) {
      const double ecart = lieu - (bord + d);
      if (std::abs(ecart) >= meilleur) return;
      meilleur = std::abs(ecart);
      resultat = d + ecart;
    };
    essaie(std::round((bord + d) / pas) * pas);
    for (const double lieu : lieux) essaie(lieu);
  }
  return resultat;
}

void Deplace(const EvenementSouris& e) {
  Prise.dx = (double{e.X} - Prise.x0) / Zoom;
  Prise.dy = -(double{e.Y} - Prise.y0) / Zoom;
  if (e.majuscule) (std::abs(Prise.dx) < std::abs(Prise.dy) ? Prise.dx : Prise.dy) = 0;
  if (!e.controle) return;
  const BoiteSelection& b = Prise.boite;
  const double cx = (double{b.xmin} + b.xmax) / 2;
  const double cy = (double{b.ymin} + b.ymax) / 2;
  if (Prise.dx != 0) Prise.dx = Accroche(Prise.dx, {b.xmin, cx, b.xmax}, Lieux(true));
  if (Prise.dy != 0) Prise.dy = Accroche(Prise.dy, {b.ymin, cy, b.ymax}, Lieux(false));
}

// Around the middle of the box: how far away the mouse is, and in which direction, against the press.
void Grandit(const EvenementSouris& e, const TailleImage& taille) {
  const BoiteSelection& b = Prise.boite;
  const double cx = (double{b.xmin} + b.xmax) / 2;
  const double cy = (double{b.ymin} + b.ymax) / 2;
  const PointTrace avant = EnDessin(taille, Prise.x0, Prise.y0);
  const PointTrace ici = EnDessin(taille, e.X, e.Y);
  const double ax = avant.X - cx;
  const double ay = avant.Y - cy;
  const double ix = ici.X - cx;
  const double iy = ici.Y - cy;
  if (Prise.sorte == SortePrise::Tourne) {
    Prise.angle = std::remainder(std::atan2(iy, ix) - std::atan2(ay, ax), 2 * Pi);
    if (e.majuscule || e.controle) Prise.angle = std::round(Prise.angle / PasAngle) * PasAngle;
    return;
  }
  const double loin = std::hypot(ax, ay);
  Prise.rapport = loin > 0 ? std::max(std::hypot(ix, iy) / loin, RapportMin) : 1;
  if (e.controle) Prise.rapport = std::max(std::round(Prise.rapport * 10) / 10, 0.1);
}

}  // namespace

Poignees PoigneesDe(const BoiteSelection& boite, const TailleImage& taille) {
  const CadreEcran c = CadreDe(boite, Vue, taille);
  const float milieu = (c.hautGauche.X + c.basDroite.X) / 2;
  return {{c.hautGauche, {c.basDroite.X, c.hautGauche.Y}, c.basDroite, {c.hautGauche.X, c.basDroite.Y}},
          {milieu, c.hautGauche.Y - Hampe}};
}

namespace {

// The attachment point nearest to the press, within a few pixels of it; -1: none.
std::int32_t AttacheSous(const EvenementSouris& e, const TailleImage& taille) {
  std::int32_t trouvee = -1;
  float meilleur = Portee;
  for (std::size_t i = 0; i < TraceInitial.size(); ++i) {
    if (TraceInitial[i].Cde != CodePC) continue;
    const PointTrace p = VersEcran(Vue, taille.hauteur, TraceInitial[i]);
    const float loin = std::hypot(p.X - e.X, p.Y - e.Y);
    if (loin <= meilleur) meilleur = loin, trouvee = base::Compte(i);
  }
  return trouvee;
}

}  // namespace

void PrepareTirage(const EvenementSouris& e, const TailleImage& taille) {
  Prise = EtatPrise{};
  Prise.x0 = e.X;
  Prise.y0 = e.Y;
  Prise.avant = CodesSelectionnes();
  // The grips belong to the quiet picture, which shows them.
  if (!Regl.DessinSobre) return;
  Prise.attache = AttacheSous(e, taille);
  if (Prise.attache >= 0) {
    Prise.sorte = SortePrise::Attache;
    Prise.rend = true;
    return;
  }
  const BoiteSelection boite = BoiteDe(Doc);
  if (boite.vide) return;
  const Poignees p = PoigneesDe(boite, taille);
  if (Pres(p.tourne, e.X, e.Y)) Prise.sorte = SortePrise::Tourne;
  if (std::any_of(std::begin(p.coins), std::end(p.coins), [&](const PointEcran& q) { return Pres(q, e.X, e.Y); })) {
    Prise.sorte = SortePrise::Echelle;
  }
  Prise.rend = Prise.sorte != SortePrise::Aucune;
}

void CommenceTirage(const EvenementSouris& e, const TailleImage& taille, const SegmentProche& proche) {
  if (Prise.sorte != SortePrise::Aucune || proche.code == Code2{}) return;
  const PointTrace ou = VersEcran(Vue, taille.hauteur, {proche.X, proche.Y, CodePD, {}});
  if (!Pres({ou.X, ou.Y}, e.X, e.Y)) return;
  Prise.sorte = SortePrise::Deplace;
  Prise.rend = std::find(Prise.avant.begin(), Prise.avant.end(), proche.code) != Prise.avant.end();
}

bool Tire(const EvenementSouris& e, const TailleImage& taille, SuiteSouris& suite) {
  if (Prise.sorte == SortePrise::Aucune || OperationCarte) return false;
  if (!Prise.tire) {
    if (std::hypot(e.X - Prise.x0, e.Y - Prise.y0) < Seuil) return false;
    Prise.tire = true;
    if (Prise.rend) {
      RendSelection();
      suite.initSeq = true;
      suite.redessine = true;
    }
    Prise.boite = BoiteDe(Doc);
    if (Prise.boite.vide && Prise.sorte != SortePrise::Attache) AbandonneTirage();
  }
  Prise.pointeur = {e.X, e.Y};
  if (Prise.sorte == SortePrise::Attache) {
    const PointTrace ici = EnDessin(taille, e.X, e.Y);
    Prise.x = ici.X;
    Prise.y = ici.Y;
    return true;
  }
  if (Prise.sorte == SortePrise::Deplace) {
    Deplace(e);
  } else if (Prise.sorte != SortePrise::Aucune) {
    Grandit(e, taille);
  }
  return true;
}

bool LacheTirage() {
  const EtatPrise prise = std::exchange(Prise, EtatPrise{});
  if (!prise.tire) return false;
  switch (prise.sorte) {
    case SortePrise::Aucune:
      break;
    case SortePrise::Deplace: {
      const float dx = EnFloat(prise.dx);
      const float dy = EnFloat(prise.dy);
      if (dx != 0 && dy != 0) {
        Deplacement_Libre(dx, dy);
      } else if (dy != 0) {
        Deplacement_Selection(Direction::Y, dy);
      } else if (dx != 0) {
        Deplacement_Selection(Direction::X, dx);
      }
      break;
    }
    case SortePrise::Attache:
      DeplaceAttache(prise.attache, prise.x, prise.y);
      break;
    case SortePrise::Echelle:
      if (prise.rapport != 1) Dimensionne_Selection(prise.rapport, prise.rapport, true);
      break;
    case SortePrise::Tourne:
      if (prise.angle != 0) TourneSelectionEtTraces(prise.angle, CentreSelection());
      break;
  }
  return true;
}

void AbandonneTirage() { Prise = EtatPrise{}; }

std::string TexteTirage() {
  switch (Prise.tire ? Prise.sorte : SortePrise::Aucune) {
    case SortePrise::Aucune:
    case SortePrise::Attache:
      return "";
    case SortePrise::Deplace:
      return Formate(Prise.dx, "0.0") + ", " + Formate(Prise.dy, "0.0") + " mm";
    case SortePrise::Echelle: {
      const double largeur = (double{Prise.boite.xmax} - Prise.boite.xmin) * Prise.rapport;
      const double hauteur = (double{Prise.boite.ymax} - Prise.boite.ymin) * Prise.rapport;
      return Formate(Prise.rapport * 100, "0") + " %, " + TexteDimensions(largeur, hauteur);
    }
    case SortePrise::Tourne:
      return Formate(Prise.angle * 180 / Pi, "0.0") + "°";
  }
  return "";
}

}  // namespace ovelin
