// A file of many rows, composed on several threads.
#include <cmath>

#include "core/Coeurs.h"
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

}  // namespace
}  // namespace essai
