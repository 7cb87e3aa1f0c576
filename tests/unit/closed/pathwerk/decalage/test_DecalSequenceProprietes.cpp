// The promise of the offset on outlines of every kind: nothing too near, nothing too far, nothing missing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>

#include "tests/support/Corpus.h"
#include "tests/unit/closed/pathwerk/controle/Controle.h"

using namespace controle;

namespace {

constexpr double Tolerance = 0.01;

void Verifie(const Trace& source, double decal, double tolerance = Tolerance, std::size_t max = 900) {
  const auto [r, t] = Decale(source, decal);
  const Ecarts e = Mesure(source, t, decal, max);
  EXPECT_LE(e.tropPres, tolerance) << "R = " << decal << "\n" << Texte(source);
  EXPECT_LE(e.tropLoin, tolerance) << "R = " << decal << "\n" << Texte(source);
  EXPECT_LE(e.manque, tolerance) << "R = " << decal << "\n" << Texte(source);
  if (EstFermee(source)) {
    for (const Trace& p : Pieces(t)) EXPECT_TRUE(EstFermee(p)) << "R = " << decal << "\n" << Texte(source);
  }
}

void Parcourt(const Trace& source, std::initializer_list<double> rayons) {
  for (const double r : rayons) {
    Verifie(source, r);
    Verifie(source, -r);
  }
}

}  // namespace

TEST(DecalSequencePromise, HoldsOnStars) {
  for (unsigned g = 0; g < 25; ++g) Parcourt(EnTrace(Etoile(g), true), {0.2, 1.5, 4.0});
}

TEST(DecalSequencePromise, HoldsOnHeapsOfSquaresWithTouchingCornersAndExactFits) {
  for (unsigned g = 0; g < 60; ++g) Parcourt(EnTrace(Polyomino(g), true), {0.25, 0.3, 0.5, 1.0});
}

TEST(DecalSequencePromise, HoldsOnCombs) {
  for (unsigned g = 0; g < 6; ++g) Parcourt(EnTrace(Peigne(12, 6, 20, g), true), {0.5, 0.75, 1.5, 3});
}

TEST(DecalSequencePromise, HoldsOnKochOutlines) {
  for (const int niveau : {1, 3, 4}) Parcourt(EnTrace(Koch(niveau, 60), true), {0.3, 1.5, 6});
}

TEST(DecalSequencePromise, HoldsOnSpirals) {
  for (const double largeur : {1.0, 2.0, 3.9})
    Parcourt(EnTrace(Spirale(6, 4, largeur, 500), true), {0.3, 1.0, 1.9, 3});
  for (const double pas : {1.0, 3.0, 6.0}) Parcourt(EnTrace(SpiraleOuverte(5, pas, 400), false), {0.4, 1.4, 3.2});
}

TEST(DecalSequencePromise, HoldsOnNoisyCircles) {
  for (unsigned g = 0; g < 4; ++g) {
    Parcourt(EnTrace(CercleBruite(g, 1500, 0.02), true), {0.5, 3});
    Parcourt(EnTrace(CercleBruite(g, 300, 1), true), {0.5, 3, 20});
  }
}

TEST(DecalSequencePromise, HoldsOnOpenWaves) {
  for (const double periodes : {2.0, 9.0, 30.0})
    Parcourt(EnTrace(Onde(500, 100, 8, periodes), false), {0.3, 1.5, 5});
}

TEST(DecalSequencePromise, HoldsOnOpenWalksThatCrossThemselves) {
  for (unsigned g = 0; g < 60; ++g) Parcourt(EnTrace(MarcheOuverte(g, 70), false), {0.2, 0.7, 2.0});
}

TEST(DecalSequencePromise, EdgeOfTheCutNeverGoesIntoALoopOfACrossingPath) {
  // Random chords: only what holds for every loop is asked, that the curve stays with the source.
  for (unsigned g = 0; g < 30; ++g) {
    Forme f = MarcheOuverte(g, 40);
    const Trace s = EnTrace(f, true);
    for (const double r : {0.3, -0.8}) {
      const auto [n, t] = Decale(s, r);
      for (const Trace& p : Pieces(t)) {
        ASSERT_TRUE(EstFermee(p)) << Texte(s);
        for (const auto& q : p) {
          const double d = Distance(s, {static_cast<double>(q.X), static_cast<double>(q.Y)});
          ASSERT_LE(d, std::abs(r) + Tolerance) << Texte(s);
        }
      }
      (void)n;
    }
  }
}

TEST(DecalSequencePromise, HoldsOnRealDrawings) {
  namespace fs = std::filesystem;
  std::vector<fs::path> fichiers;
  for (const std::string& dossier : {essai::DossierCorpus(), essai::DossierExemples()}) {
    std::error_code ec;
    for (fs::recursive_directory_iterator it(dossier, ec), fin; !ec && it != fin; it.increment(ec)) {
      const std::string e = it->path().extension().string();
      if (it->is_regular_file() && (e == ".dat" || e == ".dxf" || e == ".plt")) fichiers.push_back(it->path());
    }
  }
  std::sort(fichiers.begin(), fichiers.end());
  for (const fs::path& fichier : fichiers) {
    Trace points;
    float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
    std::string message;
    if (pathwerk::LireFichier(points, fichier.string(), x0, x1, y0, y1, message) <= 0) continue;
    std::size_t nb = 0;
    for (const Trace& s : Pieces(points)) {
      if (s.size() < 3 || s.size() > 600 || ++nb > 25) continue;
      const Boite b = BoiteDe(s);
      const double taille = std::max(b.x1 - b.x0, b.y1 - b.y0);
      if (!(taille > 0.05) || taille > 2000) continue;
      SCOPED_TRACE(fichier.string());
      const double grille = std::max({std::abs(b.x0), std::abs(b.x1), std::abs(b.y0), std::abs(b.y1)}) * 1.2e-7;
      for (const double part : {0.02, -0.05}) {
        const auto [r, t] = Decale(s, part * taille);
        const Ecarts e = Mesure(s, t, part * taille, 300);
        EXPECT_LE(e.tropLoin, Tolerance + grille) << Texte(s);
        if (!EstFermee(s)) {  // a closed one may cross itself, where each loop is its own
          EXPECT_LE(e.tropPres, Tolerance + grille) << Texte(s);
          EXPECT_LE(e.manque, Tolerance + grille) << Texte(s);
        }
        EXPECT_GE(r, 0);
      }
    }
  }
}
