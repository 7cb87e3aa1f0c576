// Boundaries of hatches. The hatching itself isn't drawn, and a boundary only where no other entity draws it.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/Indices.h"
#include "closed/pathwerk/lecture/dxf/Couverture.h"
#include "closed/pathwerk/lecture/dxf/Dessin.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr double Radians(double degres) { return degres * (std::numbers::pi / 180); }
double Distance(Vec2 a, Vec2 b) { return std::hypot(a.x - b.x, a.y - b.y); }

// One edge of a boundary as its groups give it.
struct Arete {
  enum Type { Aucune, Droite = 1, Arc = 2, Ellipse = 3, Courbe = 4 };
  int type = Aucune;
  Vec3 p10;
  Vec3 p11;
  double reel40 = 0;
  double angle50 = 0;
  double angle51 = 360;
  int sens73 = 1;
  Spline spline;
};

}  // namespace

// Reads the groups between 91 (number of boundaries) and 75 (style), which depend on their order, and poses each
// boundary as it ends.
class LecteurHachure {
 public:
  LecteurHachure(Dessinateur& d, const Affine& m) : d_(d), m_(m) {}

  // False when nothing was drawn.
  bool Lit();

 private:
  void PrendPolyligne(double v);
  void PrendArete(double v);
  void FinArete();
  void FinBord();
  void Conique(std::vector<Vec2>& points, Vec3 u, Vec3 v, double debut, double fin);
  void Chaine(std::vector<Vec2>& morceau);

  static constexpr int DrapeauPolyligne = 2;
  static constexpr int DrapeauTexte = 8;  // the box around a text

  Dessinateur& d_;
  Affine m_;
  Groupe g_;
  int drapeaux_ = -1;  // of the boundary being read, -1 before the first
  std::vector<Sommet> sommets_;
  Arete arete_;
  Trait trait_;
  int aretes_ = 0;
  bool dessine_ = false;
};

bool LecteurHachure::Lit() {
  d_.lecteur_.Va(d_.e_.debut);
  bool bords = false;
  while (d_.lecteur_.Suivant(g_) == Etat::Groupe && g_.code != 0) {
    if (g_.code == 91) bords = true;
    if (bords && (g_.code == 75 || g_.code == 76 || g_.code == 98)) break;
    double v = 0;
    if (g_.code < 10 || g_.code > 99) continue;
    if (!LitReel(g_, v)) {
      d_.Termine(FinEntite::Nombre, g_);
      return true;
    }
    // The height of the hatch's plane comes before its boundaries.
    if (!bords && g_.code == 30) m_.o = m_.Point({0, 0, v});
    if (!bords) continue;
    if (g_.code == 92) {
      FinBord();
      drapeaux_ = static_cast<int>(std::clamp(v, 0.0, 1e6));
    } else if (drapeaux_ >= 0 && (drapeaux_ & DrapeauPolyligne) != 0) {
      PrendPolyligne(v);
    } else if (drapeaux_ >= 0) {
      PrendArete(v);
    }
    if (d_.budget_.Epuise()) return true;
  }
  FinBord();
  return dessine_;
}

void LecteurHachure::PrendPolyligne(double v) {
  if (g_.code == 10) sommets_.push_back({{v, 0, 0}, 0});
  if (g_.code == 20 && !sommets_.empty()) sommets_.back().p.y = v;
  if (g_.code == 42 && !sommets_.empty()) sommets_.back().bulge = v;
}

void LecteurHachure::PrendArete(double v) {
  Arete& a = arete_;
  const bool courbe = a.type == Arete::Courbe;
  std::vector<Vec3>& controle = a.spline.controle;
  switch (g_.code) {
    case 72:
      FinArete();
      a.type = v >= 1 && v <= 4 ? static_cast<int>(v) : Arete::Aucune;
      break;
    case 97:
      FinArete();
      break;  // what the boundary was taken from, or fit points of the spline
    case 10:
      if (courbe) controle.push_back({v, 0, 0});
      a.p10.x = v;
      break;
    case 20:
      if (courbe && !controle.empty()) controle.back().y = v;
      a.p10.y = v;
      break;
    case 11:
      a.p11.x = v;
      break;
    case 21:
      a.p11.y = v;
      break;
    case 40:
      if (courbe) a.spline.noeuds.push_back(v);
      a.reel40 = v;
      break;
    case 42:
      if (courbe) a.spline.poids.push_back(v);
      break;
    case 50:
      a.angle50 = v;
      break;
    case 51:
      a.angle51 = v;
      break;
    case 73:
      a.sens73 = v != 0 ? 1 : 0;
      break;
    case 94:
      a.spline.degre = static_cast<int>(std::clamp(v, 0.0, 100.0));
      break;
    default:
      break;
  }
}

// Arcs that run clockwise are written with the angles of their mirror image in the X axis.
void LecteurHachure::Conique(std::vector<Vec2>& points, Vec3 u, Vec3 v, double debut, double fin) {
  const double sens = arete_.sens73 != 0 ? 1 : -1;
  const ArcConique arc{m_.PlanDirection(u), m_.PlanDirection(v), sens * debut, sens * BalayageArc(debut, fin)};
  const auto place = [&](double t) { return m_.Projette(arete_.p10 + u * std::cos(t) + v * std::sin(t)); };
  if (!d_.budget_.Points(2)) return;
  points.push_back(place(arc.debut));
  AjouteConique(points, points.back(), arc, d_.fleche_, d_.budget_);
  points.push_back(place(arc.debut + arc.balayage));
}

void LecteurHachure::FinArete() {
  std::vector<Vec2> morceau;
  const Arete& a = arete_;
  if (a.type == Arete::Droite) {
    if (d_.budget_.Points(2)) morceau = {m_.Projette(a.p10), m_.Projette(a.p11)};
  } else if (a.type == Arete::Arc) {
    Conique(morceau, {a.reel40, 0, 0}, {0, a.reel40, 0}, Radians(a.angle50), Radians(a.angle51));
  } else if (a.type == Arete::Ellipse) {
    const double rapport = a.reel40 != 0 ? a.reel40 : 1;
    // The angles are those of the point seen from the centre against the long axis, not parameters.
    const auto parametre = [&](double degres) {
      const double angle = Radians(degres);
      return std::atan2(std::sin(angle) / std::fabs(rapport), std::cos(angle));
    };
    const Vec3 v = Vec3{-a.p11.y, a.p11.x, 0} * rapport;
    Conique(morceau, a.p11, v, parametre(a.angle50), parametre(a.angle51));
  } else if (a.type == Arete::Courbe) {
    if (a.spline.poids.size() != a.spline.controle.size()) arete_.spline.poids.clear();
    if (Valide(a.spline)) AjouteSpline(morceau, a.spline, m_, d_.fleche_, d_.budget_);
  }
  arete_ = {};
  if (!morceau.empty()) Chaine(morceau);
}

// Edges follow each other, but some writers turn single ones round.
void LecteurHachure::Chaine(std::vector<Vec2>& morceau) {
  std::vector<Vec2>& p = trait_.points;
  if (aretes_++ == 0) {
    p = std::move(morceau);
    return;
  }
  const Vec2 a = morceau.front();
  const Vec2 b = morceau.back();
  if (aretes_ == 2 && std::min(Distance(p.front(), a), Distance(p.front(), b)) <
                          std::min(Distance(p.back(), a), Distance(p.back(), b))) {
    std::ranges::reverse(p);
  }
  if (Distance(p.back(), b) < Distance(p.back(), a)) std::ranges::reverse(morceau);
  const bool joint = Distance(p.back(), morceau.front()) < 1e-6;
  p.insert(p.end(), morceau.begin() + (joint ? 1 : 0), morceau.end());
}

void LecteurHachure::FinBord() {
  if (drapeaux_ >= 0 && (drapeaux_ & DrapeauPolyligne) != 0) {
    if (!d_.Lisse(trait_, sommets_, true, m_)) return;
  } else {
    FinArete();
  }
  const bool texte = drapeaux_ >= 0 && (drapeaux_ & DrapeauTexte) != 0;
  if (!texte && trait_.points.size() > 1 && !SansEtendue(trait_.points)) {
    trait_.nature = Nature::Ferme;
    if (d_.Pose(std::move(trait_))) {
      d_.traitsDeHachure_.push_back({d_.lecture_.traits.size() - 1, d_.hachures_});
      dessine_ = true;
    }
  }
  trait_ = {};
  sommets_.clear();
  aretes_ = 0;
  drapeaux_ = -1;
}

void Dessinateur::Hachure(const Affine& m) {
  ++hachures_;
  if (!LecteurHachure(*this, m).Lit()) Ignore(e_.nom);
}

void Dessinateur::RetireBordsCouverts() {
  if (traitsDeHachure_.empty() || lecture_.Refuse()) return;
  std::vector<std::size_t> rangs;
  std::size_t points = 0;
  for (const TraitDeHachure& b : traitsDeHachure_) {
    rangs.push_back(b.trait);
    points += lecture_.traits[b.trait].points.size();
  }
  if (!budget_.Prend(points * OctetsParPointCouvert)) {
    Refuse(Erreur::Memoire, 0, "HATCH");
    return;
  }
  // Both curves may lie a chord's error from the true one, and drawn by hand they may miss by the weld tolerance.
  const double tolerance = 2.5 * fleche_ + std::max(options_.ToleranceSoudure, 0.0);
  const std::vector<char> couverts = TraitsCouverts(lecture_.traits, rangs, tolerance);
  std::vector<char> reste(base::Indice(hachures_) + 1, 0);
  for (std::size_t i = 0; i < traitsDeHachure_.size(); ++i) {
    if (couverts[i] != 0) {
      lecture_.traits[traitsDeHachure_[i].trait].points.clear();
    } else {
      reste[base::Indice(traitsDeHachure_[i].hachure)] = 1;
    }
  }
  long derniere = 0;
  for (const TraitDeHachure& b : traitsDeHachure_) {
    if (b.hachure != derniere && reste[base::Indice(b.hachure)] == 0) lecture_.Ignore("HATCH");
    derniere = b.hachure;
  }
  std::erase_if(lecture_.traits, [](const Trait& t) { return t.points.empty(); });
}

}  // namespace pathwerk::lecture::dxf
