#include "run/RampeEntree.h"

#include <algorithm>
#include <cmath>

namespace ovelin {

namespace {

constexpr double RangMini = 0.01;  // mm: no row of a ramp is cut off shorter than this
constexpr double Rien = 1e-9;      // mm

// Where a row ends that is to end `voulu` mm along a stretch, and leaves no crumb on either side: rather a little
// further, never nearer, so that no row is steeper than its ramp.
double Arret(double debut, double voulu, double fin) {
  const double arret = std::max(voulu, debut + RangMini);
  return arret + RangMini > fin ? fin : arret;
}

}  // namespace

std::optional<BoucleEntree> BoucleDeRampe(const ParametresPlan& p, std::span<const PointTrace> points,
                                          double profondeur) {
  if (!EstRampe(p.AngleRampe) || !(profondeur < 0)) return std::nullopt;
  return BoucleDe(points);
}

std::int64_t LignesRampe(const ParametresPlan& p, const BoucleEntree& boucle, double profondeur,
                         std::int64_t hauteurs) {
  const double hauteur = std::min(-p.ProfPasse, -profondeur);
  const double tours = LongueurRampe(hauteur, p.AngleRampe, boucle.longueur) / boucle.longueur;
  // the rounds of the ramp, the one at its depth and the way to the end of the loop, with their rests
  const auto rondes = static_cast<std::int64_t>(std::ceil(tours)) + 2;
  return rondes * (static_cast<std::int64_t>(boucle.dernier) + hauteurs) + 8;
}

RampeEntree::RampeEntree(EtatPlan& plan, const ParametresPlan& p, std::span<const PointTrace> points,
                         double longueur, float niveauEncoche)
    : plan_(plan), p_(p), points_(points), tour_(longueur), encoche_(niveauEncoche) {
  longueurs_.reserve(points.size());
  tenus_.reserve(points.size());
  longueurs_.push_back(0);
  tenus_.push_back(0);
  bool tenu = false;
  for (std::size_t i = 1; i < points.size(); ++i) {
    longueurs_.push_back(std::hypot(double{points[i].X} - points[i - 1].X, double{points[i].Y} - points[i - 1].Y));
    tenus_.push_back(tenu ? 1 : 0);
    if (points[i].Cde == CodePE) tenu = true;
    if (points[i].Cde == CodePD) tenu = false;
  }
}

void RampeEntree::Commence(float niveau) {
  rang_ = 1;
  fait_ = 0;
  pos_ = points_.front();
  niveau_ = niveau;
  base_ = double{LignesDe(plan_).back().Z} - niveau;
}

void RampeEntree::Passe(float precedente, float passe) {
  Descend(precedente, passe);
  Tourne(passe);
}

void RampeEntree::Descend(double precedente, double passe) {
  const double hauteur = precedente - passe;
  const double longueur = LongueurRampe(hauteur, p_.AngleRampe, tour_);
  const double pente = hauteur / longueur;
  double fait = 0;
  double haut = precedente;
  while (longueur - fait > Rien) {
    const double fin = Arret(fait_, fait_ + longueur - fait, Longueur());
    fait += fin - fait_;
    const double bas = longueur - fait > Rien ? precedente - fait * pente : passe;
    if (tenus_[rang_] != 0 && haut - encoche_ > RangMini * pente && bas < encoche_) {
      Avance(Arret(fait_, fait_ + (haut - encoche_) / pente, fin), encoche_);
    }
    Avance(fin, bas);
    if (fait_ >= Longueur()) PasseSommet(bas);
    haut = bas;
  }
  Monte(Tenu(passe));
}

void RampeEntree::Tourne(double passe) {
  const double fait = fait_;
  const PointTrace fin = pos_;
  for (std::size_t i = 1; i < points_.size(); ++i) FinitSegment(passe);
  if (fait == 0) return;
  Coupe(fin, Tenu(passe));
  fait_ = fait;
}

void RampeEntree::Ferme(float passe) {
  while (rang_ != 1 || fait_ > 0) FinitSegment(passe);
}

void RampeEntree::FinitSegment(double passe) {
  Avance(Longueur(), passe);
  PasseSommet(passe);
}

// To `jusque` mm along the stretch, where the ramp has sunk to `rampe`.
void RampeEntree::Avance(double jusque, double rampe) {
  PointTrace point = points_[rang_];
  if (jusque < Longueur()) {
    const PointTrace& debut = points_[rang_ - 1];
    const double part = jusque / Longueur();
    point.X = static_cast<float>(debut.X + part * (double{point.X} - debut.X));
    point.Y = static_cast<float>(debut.Y + part * (double{point.Y} - debut.Y));
  }
  Coupe(point, Tenu(rampe));
  fait_ = jusque;
}

// Behind the end of a stretch: up where a notch begins, down where it ends.
void RampeEntree::PasseSommet(double rampe) {
  const char avant = tenus_[rang_];
  rang_ = rang_ + 1 == points_.size() ? 1 : rang_ + 1;
  fait_ = 0;
  if (tenus_[rang_] != avant) Monte(Tenu(rampe));
  cadence_.Bat();
}

// A move too short for the width of the coordinates is none: its height is made up for by the next.
void RampeEntree::Coupe(const PointTrace& point, double niveau) {
  if (pathwerk::MemePlace(point, pos_)) return;
  const auto n = static_cast<float>(niveau);
  if (n == niveau_) {
    PlanAjoute(plan_, p_, pos_, point, Vrai, 0);
  } else {
    PlanAjouteRampe(plan_, p_, pos_, point, static_cast<float>(base_ + n));
  }
  pos_ = point;
  niveau_ = n;
}

void RampeEntree::Monte(double niveau) {
  const auto n = static_cast<float>(niveau);
  if (n == niveau_) return;
  PlanAjouteZ(plan_, p_, static_cast<float>(base_ + n) - LignesDe(plan_).back().Z, Vrai, 0);
  niveau_ = n;
}

// The height in this stretch: in a notch the tool never goes below the bridge.
double RampeEntree::Tenu(double rampe) const { return tenus_[rang_] != 0 ? std::max(rampe, encoche_) : rampe; }

}  // namespace ovelin
