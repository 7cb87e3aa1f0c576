#include "closed/pathwerk/lecture/hpgl/Traceur.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "closed/pathwerk/lecture/Lignes.h"
#include "closed/pathwerk/lecture/hpgl/Feuille.h"

namespace pathwerk::lecture::hpgl {

namespace {

constexpr double UnitesMax = 1e7 / MmParUnite;

bool Tracable(Vec2 p) { return std::fabs(p.x) <= UnitesMax && std::fabs(p.y) <= UnitesMax; }

}  // namespace

// --- Pen ---------------------------------------------------------------------------------------------------

// A pen that goes down and up again without a move leaves a dot, which is a hole to drill.
void HpglTraceur::Leve() {
  if (baissee_ && !enPolygone_) {
    FinitTrait();
    if (pointe_) MarqueIsolee(position_);
  }
  baissee_ = false;
  pointe_ = false;
}

void HpglTraceur::Baisse() {
  if (!baissee_) pointe_ = !enPolygone_;
  baissee_ = true;
}

void HpglTraceur::Va(Vec2 p) {
  if (!Tracable(p)) {
    if (!refusee_) refusee_ = p;
    return;
  }
  if (enPolygone_) {
    courant_.push_back({p, baissee_});
    ++tampon_;
  } else if (baissee_ && p != position_) {
    pointe_ = false;
    if (trait_.empty()) trait_.push_back(position_);
    trait_.push_back(p);
  }
  position_ = p;
}

void HpglTraceur::Coupe() {
  if (!enPolygone_) FinitTrait();
}

void HpglTraceur::ChangePlume(double numero, bool dessine) {
  if (enPolygone_) return;  // not allowed there
  const bool baissee = baissee_;
  Leve();
  plume_ = dessine;
  if (numero_ != numero) calque_.reset();
  numero_ = numero;
  baissee_ = baissee;  // a new pen goes on as the old one stood, but that is no dot
}

void HpglTraceur::Page() {
  Coupe();
  if (std::exchange(pointe_, false)) MarqueIsolee(position_);
  if (pageSuivante_ && pageDessinee_) lecture_.Ignore("PG");
  pageDessinee_ = false;
  pageSuivante_ = !lecture_.traits.empty();
}

void HpglTraceur::PoseFenetre(std::optional<HpglFenetre> fenetre) {
  Coupe();
  fenetre_ = fenetre;
  borde_ = false;
  rempli_ = false;
}

void HpglTraceur::RemetPosition(Vec2 p) {
  Leve();
  if (Tracable(p)) position_ = p;
}

void HpglTraceur::Termine() {
  if (enPolygone_) {
    lecture_.rapport.Tronque = true;
    enPolygone_ = false;
    baissee_ = false;
  }
  if (pointe_) {  // what it would have drawn is missing, and so it is no hole
    lecture_.rapport.Tronque = true;
    pointe_ = false;
  }
  Leve();
  Page();
  const long sans = std::count(sansPlume_.begin(), sansPlume_.end(), 1);
  if (sans == 0 || sans == std::ssize(sansPlume_)) return;
  std::size_t garde = 0;
  for (std::size_t i = 0; i < sansPlume_.size(); ++i) {
    if (sansPlume_[i] != 0) continue;
    if (garde != i) lecture_.traits[garde] = std::move(lecture_.traits[i]);
    ++garde;
  }
  lecture_.traits.resize(garde);
  lecture_.Ignore("SP0", sans);
}

// --- Paths -------------------------------------------------------------------------------------------------

void HpglTraceur::FinitTrait() {
  if (trait_.size() >= 2) EmetLigne(trait_);
  trait_.clear();
}

void HpglTraceur::EmetLigne(std::span<const Vec2> ligne) {
  const auto emet = [this](std::span<const Vec2> l) {
    // Out and back again is no contour.
    const bool ferme = l.size() >= 4 && l.front() == l.back();
    Emet(ferme ? l.first(l.size() - 1) : l, ferme ? Nature::Ferme : Nature::Ouvert);
  };
  const auto dedans = [this](Vec2 p) { return fenetre_->Contient(p); };
  if (!fenetre_ || std::all_of(ligne.begin(), ligne.end(), dedans)) {
    emet(ligne);
    return;
  }
  for (const std::vector<Vec2>& morceau : CoupePolyligne(ligne, *fenetre_)) emet(morceau);
}

void HpglTraceur::EmetContour(std::span<const Vec2> contour) {
  const auto dedans = [this](Vec2 p) { return fenetre_->Contient(p); };
  if (!fenetre_ || std::all_of(contour.begin(), contour.end(), dedans)) {
    if (contour.size() >= 2) Emet(contour, contour.size() > 2 ? Nature::Ferme : Nature::Ouvert);
    return;
  }
  const std::vector<Vec2> reste = CoupeContour(contour, *fenetre_);
  if (!reste.empty()) Emet(reste, Nature::Ferme);
}

void HpglTraceur::Emet(std::span<const Vec2> points, Nature nature) {
  pageDessinee_ = true;
  if (pageSuivante_ || TropDePoints()) return;
  Trait t;
  t.nature = nature;
  t.points.reserve(points.size());
  for (const Vec2 p : points) {
    const Vec2 mm{p.x * MmParUnite, p.y * MmParUnite};
    if (t.points.empty() || t.points.back() != mm) t.points.push_back(mm);
  }
  if (!calque_) calque_ = lecture_.calques.Place(Calque::Genre::Plume, EnTexte(numero_), std::nullopt);
  t.calque = *calque_;
  points_ += t.points.size() + 4;
  lecture_.traits.push_back(std::move(t));
  sansPlume_.push_back(plume_ ? 0 : 1);
}

void HpglTraceur::MarqueIsolee(Vec2 p) {
  if (!fenetre_ || fenetre_->Contient(p)) Emet({&p, 1}, Nature::Percage);
}

void HpglTraceur::Figure(std::vector<Vec2> contour, bool tampon) {
  pointe_ = false;
  const auto loin = std::find_if_not(contour.begin(), contour.end(), Tracable);
  if (loin != contour.end()) {
    if (!refusee_) refusee_ = *loin;
    return;
  }
  if (enPolygone_ || tampon) {
    SousPolygone s;
    s.reserve(contour.size());
    for (const Vec2 p : contour) s.push_back({p, true});
    if (!enPolygone_) VidePolygone();
    tampon_ += contour.size();
    polygone_.push_back(std::move(s));
    if (enPolygone_) return;
    rempli_ = true;  // drawn right here
    borde_ = true;
  }
  EmetContour(contour);
}

// --- Polygon buffer ----------------------------------------------------------------------------------------

void HpglTraceur::OuvrePolygone() {
  if (enPolygone_) return;
  FinitTrait();
  pointe_ = false;
  VidePolygone();
  enPolygone_ = true;
  positionAvant_ = position_;
  baisseeAvant_ = baissee_;
  courant_.push_back({position_, false});
}

void HpglTraceur::FermeSousPolygone() {
  if (!enPolygone_) return;
  if (courant_.size() > 1) polygone_.push_back(std::move(courant_));
  courant_.clear();
}

// The pen goes back to where it was before, up or down as it was.
void HpglTraceur::FermePolygone() {
  if (!enPolygone_) return;
  FermeSousPolygone();
  enPolygone_ = false;
  position_ = positionAvant_;
  baissee_ = baisseeAvant_;
}

void HpglTraceur::VidePolygone() {
  polygone_.clear();
  courant_.clear();
  tampon_ = 0;
  borde_ = false;
  rempli_ = false;
}

// Draws the edges that were defined with the pen down. The closing edge goes with the last of them: back to the
// first corner when a drawn edge begins there, otherwise to where the pen came down last. Many plots enter the
// polygon with the pen up from wherever it stood, and a way back there would be a chord that nobody drew.
void HpglTraceur::BordePolygone() {
  pointe_ = false;
  if (enPolygone_ || std::exchange(borde_, true)) return;
  travail_ += tampon_;
  for (const SousPolygone& s : polygone_) {
    if (s.empty()) continue;
    std::vector<Vec2> ligne{s.front().p};
    const auto va = [&](Vec2 p) {
      if (ligne.back() != p) ligne.push_back(p);
    };
    for (std::size_t i = 1; i < s.size(); ++i) {
      if (!s[i].trace) {
        if (ligne.size() >= 2) EmetLigne(ligne);
        ligne.clear();
        ligne.push_back(s[i].p);
      } else {
        va(s[i].p);
      }
    }
    const bool depuisLePremier = s.size() > 1 && s[1].trace;
    const Vec2 debut = depuisLePremier ? s.front().p : ligne.front();
    if (s.back().trace && (depuisLePremier || ligne.size() > 2)) va(debut);
    if (ligne.size() >= 2) EmetLigne(ligne);
  }
}

// The outline of the area. A polygon is one ring through all its corners, drawn or not. Many plots put several
// rings in one, with the pen up in between; the way there and back has no width, so such rings are contours by
// themselves:
//
//   +-----------+
//   |  +-----+  |      corners 1 2 3 4 1, pen up, a b c d a
//   |  |     |  |
//   |  a-----+  |
//   1 . . . . . +
void HpglTraceur::RemplitPolygone() {
  pointe_ = false;
  if (enPolygone_ || std::exchange(rempli_, true)) return;
  travail_ += tampon_;
  for (const SousPolygone& s : polygone_) {
    std::vector<std::vector<Vec2>> anneaux;
    std::vector<Vec2> tous;
    for (const Sommet& c : s) {
      if (anneaux.empty() || !c.trace) anneaux.emplace_back();
      if (anneaux.back().empty() || anneaux.back().back() != c.p) anneaux.back().push_back(c.p);
      if (tous.empty() || tous.back() != c.p) tous.push_back(c.p);
    }
    std::erase_if(anneaux, [](const auto& a) { return a.size() < 2; });
    const bool fermes = !anneaux.empty() && std::all_of(anneaux.begin(), anneaux.end(), [](const auto& a) {
      return a.size() >= 4 && a.front() == a.back();
    });
    if (!fermes) {
      anneaux.clear();
      anneaux.push_back(std::move(tous));
    }
    for (std::vector<Vec2>& a : anneaux) {
      if (a.size() > 1 && a.front() == a.back()) a.pop_back();
      EmetContour(a);
    }
  }
}

}  // namespace pathwerk::lecture::hpgl
