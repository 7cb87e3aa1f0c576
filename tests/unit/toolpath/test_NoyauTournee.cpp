// Orders of paths with short moves in the air.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "core/DocumentCourant.h"
#include "tests/unit/toolpath/BiblioEssai.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/chemins/NoyauTournee.h"

using namespace ovelin;
using namespace essai;

namespace {

double Tire(std::mt19937& hasard, unsigned n) { return static_cast<double>(hasard() % n); }

Etape En(double x, double y) { return {{x, y}, {x, y}, {}}; }

std::vector<std::size_t> Suite(std::size_t n) {
  std::vector<std::size_t> ordre(n);
  std::iota(ordre.begin(), ordre.end(), std::size_t{0});
  return ordre;
}

bool EstUnePermutation(std::vector<std::size_t> ordre, std::size_t n) {
  std::sort(ordre.begin(), ordre.end());
  return ordre == Suite(n);
}

bool GardeLesRegles(const std::vector<Etape>& etapes, const std::vector<std::size_t>& ordre) {
  std::vector<std::size_t> place(ordre.size());
  for (std::size_t k = 0; k < ordre.size(); ++k) place[ordre[k]] = k;
  for (std::size_t i = 0; i < etapes.size(); ++i) {
    for (const std::size_t j : etapes[i].apres) {
      if (place[j] < place[i]) return false;
    }
  }
  return true;
}

// The best of all orders that keep the rules, one by one.
double Meilleure(const std::vector<Etape>& etapes) {
  std::vector<std::size_t> ordre = Suite(etapes.size());
  double meilleure = std::numeric_limits<double>::infinity();
  do {
    if (GardeLesRegles(etapes, ordre)) meilleure = std::min(meilleure, LongueurAir(etapes, ordre));
  } while (std::next_permutation(ordre.begin(), ordre.end()));
  return meilleure;
}

TEST(LongueurAir, GoesFromTheOriginThroughAllAndBack) {
  const std::vector<Etape> etapes{{{3, 4}, {3, 10}, {}}, En(3, 12)};
  EXPECT_NEAR(LongueurAir(etapes, {0, 1}), 5 + 2 + std::hypot(3, 12), 1e-9);
  EXPECT_NEAR(LongueurAir(etapes, {1, 0}), std::hypot(3, 12) + 8 + std::hypot(3, 10), 1e-9);
}

// 200 holes of a grid 10 mm apart, the origin one step beside it: no move can be shorter than a step, and there is
// a way back and forth through the columns that needs no longer one.
TEST(OrdreCourt, IsWithinFivePercentOnAGridOf200) {
  std::vector<Etape> etapes;
  for (int y = 0; y < 10; ++y) {
    for (int x = 0; x < 20; ++x) etapes.push_back(En(10 * x, 10 * (y + 1)));
  }
  std::shuffle(etapes.begin(), etapes.end(), std::mt19937(5));
  const auto ordre = OrdreCourt(etapes);
  EXPECT_TRUE(EstUnePermutation(ordre, 200));
  EXPECT_LE(LongueurAir(etapes, ordre), 1.05 * 201 * 10);
}

// What no closed tour through these places can be shorter than: the tree of least length over all but the first,
// and the two shortest moves from that one, with prices on the places that draw the tree towards a tour (Held and
// Karp, "The traveling-salesman problem and minimum spanning trees", 1970).
class BorneTournee {
 public:
  explicit BorneTournee(std::vector<LieuTournee> lieux) : lieux_(std::move(lieux)), prix_(lieux_.size()) {}

  // `longueur` of some tour, which only says how far the prices step.
  double Cherche(double longueur) {
    double pas = 2;
    double meilleure = 0;
    for (int essai = 0, vain = 0; essai < 600; ++essai) {
      const double borne = Arbre();
      vain = borne > meilleure ? 0 : vain + 1;
      meilleure = std::max(meilleure, borne);
      if (vain >= 12) pas /= 2, vain = 0;
      double carre = 0;
      for (const int d : degres_) carre += (d - 2) * (d - 2);
      if (carre == 0) break;
      for (std::size_t i = 0; i < prix_.size(); ++i)
        prix_[i] += pas * (longueur - borne) / carre * (degres_[i] - 2);
    }
    return meilleure;
  }

 private:
  [[nodiscard]] double Cout(std::size_t i, std::size_t j) const {
    return std::hypot(lieux_[i].x - lieux_[j].x, lieux_[i].y - lieux_[j].y) + prix_[i] + prix_[j];
  }
  // Its length at the prices of now, without the prices that every tour pays.
  double Arbre() {
    const std::size_t n = lieux_.size();
    std::vector<double> proche(n, std::numeric_limits<double>::infinity());
    std::vector<std::size_t> pere(n, 1);
    std::vector<bool> dedans(n);
    degres_.assign(n, 0);
    double somme = -2 * std::accumulate(prix_.begin(), prix_.end(), 0.0);
    for (std::size_t i = 1, prises = 1;; ++prises) {
      dedans[i] = true;
      if (prises == n - 1) break;
      std::size_t suivant = 0;
      for (std::size_t j = 1; j < n; ++j) {
        if (dedans[j]) continue;
        if (Cout(i, j) < proche[j]) proche[j] = Cout(i, j), pere[j] = i;
        if (suivant == 0 || proche[j] < proche[suivant]) suivant = j;
      }
      somme += proche[suivant];
      ++degres_[suivant];
      ++degres_[pere[suivant]];
      i = suivant;
    }
    std::vector<std::size_t> autres = Suite(n);
    autres.erase(autres.begin());
    std::partial_sort(autres.begin(), autres.begin() + 2, autres.end(),
                      [this](std::size_t a, std::size_t b) { return Cout(0, a) < Cout(0, b); });
    for (const std::size_t i : {autres[0], autres[1]}) somme += Cout(0, i), ++degres_[i], ++degres_[0];
    return somme;
  }

  std::vector<LieuTournee> lieux_;
  std::vector<double> prix_;
  std::vector<int> degres_;
};

TEST(BorneTournee, OfPlacesOnACircleIsTheirOutline) {
  std::vector<LieuTournee> lieux;
  for (int i = 0; i < 12; ++i) lieux.push_back({10 * std::cos(i * M_PI / 6), 10 * std::sin(i * M_PI / 6)});
  EXPECT_NEAR(BorneTournee(lieux).Cherche(100), 12 * 20 * std::sin(M_PI / 12), 1e-6);
}

TEST(OrdreCourt, IsWithinFivePercentOfWhatNoTourOf200CanBeShorterThan) {
  for (const unsigned graine : {1U, 2U, 3U}) {
    std::mt19937 hasard(graine);
    std::vector<Etape> etapes;
    std::vector<LieuTournee> lieux{{0, 0}};
    for (int i = 0; i < 200; ++i) {
      etapes.push_back(En(Tire(hasard, 3000) / 10, Tire(hasard, 2000) / 10));
      lieux.push_back(etapes.back().entree);
    }
    const double longueur = LongueurAir(etapes, OrdreCourt(etapes));
    const double borne = BorneTournee(lieux).Cherche(longueur);
    EXPECT_GT(borne, longueur / 2);
    EXPECT_LE(longueur, 1.05 * borne) << graine;
  }
}

TEST(OrdreCourt, FindsTheBestOrderOfEightAmongAllOfThem) {
  std::mt19937 hasard(11);
  for (int essai = 0; essai < 5; ++essai) {
    std::vector<Etape> etapes;
    const auto lieu = [&hasard] { return LieuTournee{Tire(hasard, 1000) / 10, Tire(hasard, 1000) / 10}; };
    for (int i = 0; i < 8; ++i) etapes.push_back({lieu(), lieu(), {}});  // open paths: not as far back as forth
    const auto ordre = OrdreCourt(etapes);
    EXPECT_TRUE(EstUnePermutation(ordre, 8));
    EXPECT_LE(LongueurAir(etapes, ordre), 1.02 * Meilleure(etapes));
  }
}

TEST(OrdreCourt, KeepsWhatMustComeFirst) {
  std::mt19937 hasard(3);
  std::vector<Etape> etapes;
  for (int i = 0; i < 300; ++i) etapes.push_back(En(Tire(hasard, 500), Tire(hasard, 500)));
  // Each path has up to three behind it that must not come before.
  for (std::size_t i = 0; i + 1 < 300; ++i) {
    for (int k = 0; k < 3; ++k) etapes[i].apres.push_back(i + 1 + hasard() % (299 - i));
  }
  const auto ordre = OrdreCourt(etapes);
  EXPECT_TRUE(EstUnePermutation(ordre, 300));
  EXPECT_TRUE(GardeLesRegles(etapes, ordre));
  EXPECT_LE(LongueurAir(etapes, ordre), LongueurAir(etapes, Suite(300)));
}

TEST(OrdreCourt, FindsTheBestOfSevenUnderRules) {
  std::mt19937 hasard(17);
  std::vector<Etape> etapes;
  for (int i = 0; i < 7; ++i) etapes.push_back(En(Tire(hasard, 100), Tire(hasard, 100)));
  etapes[0].apres = {4};
  etapes[1].apres = {4, 6};
  const auto ordre = OrdreCourt(etapes);
  EXPECT_TRUE(GardeLesRegles(etapes, ordre));
  EXPECT_LE(LongueurAir(etapes, ordre), 1.02 * Meilleure(etapes));
}

TEST(OrdreCourt, IsNeverLongerThanTheOrderThatStands) {
  EXPECT_TRUE(OrdreCourt({}).empty());
  EXPECT_EQ(OrdreCourt({En(5, 5)}), Suite(1));
  EXPECT_EQ(OrdreCourt({En(1, 0), En(2, 0), En(3, 0)}), Suite(3));
  EXPECT_EQ(OrdreCourt(std::vector<Etape>(50, En(7, 7))), Suite(50));  // all in one place
}

TEST(OrdonneTrajets, KeepsAHoleBeforeItsOutlineAndTellsTheMetres) {
  BiblioEssai biblio;
  std::string statut;
  Svc.Panneau = [&statut](PanneauEtat panneau, const std::string& texte) {
    if (panneau == PanneauEtat::Statut) statut = texte;
  };
  // Outlines at 500, 0 and 250 mm, each behind its hole.
  const char* codes[] = {" A", " B", " C", " D", " E", " F"};
  int i = 0;
  for (const float x : {500.F, 0.F, 250.F}) {
    AjouteCarre(codes[i++], x + 10, 10, 10, 2);
    AjouteCarre(codes[i++], x, 0, 40, 2);
  }
  Sequences[1].Profondeur = -9;
  EXPECT_TRUE(OrdonneTrajets());
  std::vector<std::string> ordre;
  for (const Code2 code : ListeCodes()) ordre.push_back(code.Texte());
  const auto place = [&](const char* code) { return std::find(ordre.begin(), ordre.end(), code) - ordre.begin(); };
  EXPECT_LT(place(" A"), place(" B"));
  EXPECT_LT(place(" C"), place(" D"));
  EXPECT_LT(place(" E"), place(" F"));
  EXPECT_NE(place(" A"), 0);  // the far ones no longer come first
  // The records follow the points.
  for (std::size_t k = 0; k < ordre.size(); ++k) EXPECT_EQ(Sequences[k].Code.Texte(), ordre[k]);
  EXPECT_EQ(Sequences[static_cast<std::size_t>(place(" B"))].Profondeur, -9);
  EXPECT_NE(statut.find(" m -> "), std::string::npos) << statut;
  EXPECT_EQ(Modifie, Vrai);
}

TEST(OrdonneTrajets, ChangesNothingWhereNothingGetsShorter) {
  BiblioEssai biblio;
  AjouteCarre(" A", 0, 0, 10, 2);
  EXPECT_FALSE(OrdonneTrajets());
  EXPECT_EQ(Modifie, Faux);
}

TEST(OrdonneTrajets, LeavesAPathThatIsNotMilledInItsPlace) {
  BiblioEssai biblio;
  AjouteCarre(" A", 500, 0, 10, 2);
  AjouteCarre(" B", 300, 0, 10, 2);
  AjouteCarre(" C", 0, 0, 10, 2);
  AjouteCarre(" D", 250, 0, 10, 2);
  Sequences[1].Fraiser = Faux;
  OrdonneTrajets();
  EXPECT_EQ(ListeCodes()[1], Code2(" B"));
}

}  // namespace
