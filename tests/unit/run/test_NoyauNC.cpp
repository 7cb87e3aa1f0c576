// A file of many rows, composed on several threads.
#include <cmath>
#include <numbers>

#include "core/Coeurs.h"
#include "run/Dialectes.h"
#include "run/NoyauNC.h"
#include "tests/unit/run/PlanEssai.h"

namespace essai {
namespace {

// Rows whose speed, height or place now and then stays as it was.
std::vector<Deplacement> Rangs(std::size_t nombre) {
  std::vector<Deplacement> rangs(nombre);
  for (std::size_t i = 1; i < nombre; ++i) {
    rangs[i] = rangs[i - 1];
    if (i % 3 != 0) rangs[i].X = static_cast<float>(i % 977) / 7;
    if (i % 5 != 0) rangs[i].Y = static_cast<float>(i % 1013) / -3;
    if (i % 64 == 0) rangs[i].Z = i % 128 == 0 ? -1.5F : 10.0F;
    if (i % 1024 == 0) rangs[i].Vitesse = static_cast<float>(1 + i % 7);
  }
  return rangs;
}

struct Fichier {
  std::string texte;
  EcritureNC resultat;
};
Fichier Compose(const std::vector<Deplacement>& rangs, unsigned coeurs) {
  NombreCoeurs = coeurs;
  Fichier f;
  f.texte = ComposeNC(rangs, CadreNC{}, f.resultat);
  return f;
}

TEST(ComposeNC, IsTheSameForAnyNumberOfThreads) {
  for (const std::size_t nombre : {8193U, 8194U, 16385U, 50000U}) {
    const auto rangs = Rangs(nombre);
    const Fichier seul = Compose(rangs, 1);
    EXPECT_GT(seul.texte.size(), nombre * 5);
    for (const unsigned coeurs : {2U, 7U}) {
      const Fichier f = Compose(rangs, coeurs);
      EXPECT_TRUE(f.texte == seul.texte) << nombre << ' ' << coeurs;
      EXPECT_EQ(f.resultat.LongueurNC, seul.resultat.LongueurNC);
      EXPECT_EQ(f.resultat.TempsNC, seul.resultat.TempsNC);
      EXPECT_EQ(f.resultat.lignes, seul.resultat.lignes);
      EXPECT_EQ(f.resultat.deplacements, static_cast<long>(nombre) - 1);
    }
  }
}

TEST(ComposeNC, OnSeveralThreadsALineIsCountedForEachLineEnd) {
  const Fichier f = Compose(Rangs(50000), 2);
  EXPECT_EQ(f.resultat.lignes, std::count(f.texte.begin(), f.texte.end(), '\n'));
}

// Circles of 60 rows, each cut at two depths, with ways through the air between them.
std::vector<Deplacement> Cercles(int nombre) {
  constexpr int Rangs = 60;
  std::vector<Deplacement> rangs(1);
  const auto va = [&rangs](double x, double y, double z, double vitesse) {
    rangs.push_back({});
    rangs.back().X = static_cast<float>(x), rangs.back().Y = static_cast<float>(y);
    rangs.back().Z = static_cast<float>(z), rangs.back().Vitesse = static_cast<float>(vitesse);
  };
  for (int k = 0; k < nombre; ++k) {
    const double x = 20 + 25.0 * (k % 30), y = 20 + 25.0 * (k / 30), r = 5 + k % 5;
    va(x + r, y, 5, 15);
    for (const double z : {-1.0, -2.0}) {
      va(x + r, y, z, 4);
      for (int i = 1; i <= Rangs; ++i) {
        const double a = 2 * std::numbers::pi * i / Rangs;
        va(x + r * std::cos(a), y + r * std::sin(a), z, 10);
      }
    }
    va(x + r, y, 5, 15);
  }
  return rangs;
}

TEST(ComposeNC, ADialectWithArcsIsTheSameForAnyNumberOfThreads) {
  constexpr int Nombre = 600;
  const auto rangs = Cercles(Nombre);
  const Dialecte* const grbl = DialecteDeTable("grbl");
  ASSERT_NE(grbl, nullptr);
  NombreCoeurs = 1;
  EcritureNC seule;
  const std::string texte = ComposeNC(rangs, CadreNC{}, *grbl, seule);
  EXPECT_EQ(seule.arcs, Nombre * 2 * 2) << "a full circle takes two";
  for (const unsigned coeurs : {2U, 7U}) {
    NombreCoeurs = coeurs;
    EcritureNC resultat;
    EXPECT_TRUE(ComposeNC(rangs, CadreNC{}, *grbl, resultat) == texte) << coeurs;
    EXPECT_EQ(resultat.arcs, seule.arcs);
    EXPECT_EQ(resultat.LongueurNC, seule.LongueurNC);
    EXPECT_EQ(resultat.TempsNC, seule.TempsNC);
    EXPECT_EQ(resultat.deplacements, seule.deplacements);
  }
}

}  // namespace
}  // namespace essai
