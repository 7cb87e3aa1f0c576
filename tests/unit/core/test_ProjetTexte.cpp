// The text of a project, read and written in parts on several threads.
#include "core/Coeurs.h"
#include "core/ProjetTexte.h"
#include "tests/support/Support.h"
#include "tests/unit/core/ProjetTest.h"

namespace {

using namespace ovelin;
using essai::LignePoint;
using essai::LigneSequence;
using essai::Rempli;

struct Lu {
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> sequences;
  std::vector<std::tuple<long, std::string, std::string>> douteuses;
  bool operator==(const Lu&) const = default;
};

Lu Lit(const std::string& texte, std::size_t octets, unsigned coeurs, ContenuProjet* tout = nullptr) {
  NombreCoeurs = coeurs;
  ContenuProjet c = LitTexteProjet(texte, octets);
  Lu lu{c.Points, c.Sequences, {}};
  for (const ValeurDouteuse& v : c.Douteuses) lu.douteuses.emplace_back(v.ligne, v.cle, v.valeur);
  if (tout != nullptr) *tout = std::move(c);
  return lu;
}

// Two lines of a path, then its points; every fourth has a field that is no number.
std::string Projet(int chemins) {
  std::string t;
  for (int k = 0; k < chemins; ++k) {
    const std::string code = std::string(" ") + static_cast<char>('A' + k);
    t += LigneSequence(code, "011", std::to_string(-k)) + "$$SeD" + std::to_string(k % 4) + "\r\n";
    t += LignePoint(std::to_string(k) + ".5", k % 4 == 1 ? "7x" : "7", "PD", code);
    t += LignePoint("100", std::to_string(-k), "PD", code) + LignePoint("1", "2", "PE", code);
  }
  return t + Rempli("$$Mat012.5", 60) + "\r\n" + Rempli("$$Mat020.75", 60) + "\r\n";
}

TEST(LitTexteProjet, IsTheSameInPartsOfAnySizeOnAnyNumberOfThreads) {
  const std::string texte = Projet(20);
  const Lu entier = Lit(texte, texte.size(), 1);
  ASSERT_EQ(entier.points.size(), 40U);
  ASSERT_EQ(entier.sequences.size(), 20U);
  EXPECT_EQ(entier.sequences[3], (SequenceInfo{Code2(" D"), Vrai, -3, Vrai, 3, Vrai}));
  for (const unsigned coeurs : {1U, 2U, 7U}) {
    for (const std::size_t octets : {1U, 61U, 62U, 63U, 100U, 700U}) {
      ContenuProjet tout;
      EXPECT_TRUE(Lit(texte, octets, coeurs, &tout) == entier) << coeurs << ' ' << octets;
      EXPECT_EQ(tout.Recensement.NbPoints, 40U);
      EXPECT_EQ(tout.Recensement.Xmin, 0.5F);
      EXPECT_EQ(tout.Recensement.Xmax, 100.0F);
      EXPECT_EQ(tout.Recensement.Ymin, -19.0F);
      EXPECT_EQ(tout.Recensement.Ymax, 7.0F);
      EXPECT_EQ(tout.LargeurEncoche, 2.5);
      EXPECT_EQ(tout.MiniEncoche, 0.75);
    }
  }
}

TEST(LitTexteProjet, InPartsDoubtfulFieldsHaveTheLinesOfTheFile) {
  const Lu lu = Lit(Projet(20), 62, 2);
  ASSERT_EQ(lu.douteuses.size(), 5U);
  for (std::size_t i = 0; i < 5; ++i) {
    const long chemin = static_cast<long>(4 * i + 1);
    EXPECT_EQ(lu.douteuses[i], std::tuple(5 * chemin + 3, "Y", "7x"));
  }
}

TEST(LitTexteProjet, InPartsTheFirstSixteenDoubtfulFieldsAreTold) {
  std::string texte;
  for (int k = 0; k < 30; ++k) {
    texte += LigneSequence(" A", "011", "x") + LignePoint("y", "0", "PD", " A");
  }
  for (const std::size_t octets : {1U, 62U, 500U, 100'000U}) {
    const Lu lu = Lit(texte, octets, 2);
    ASSERT_EQ(lu.douteuses.size(), 16U) << octets;
    for (long i = 0; i < 16; ++i) {
      EXPECT_EQ(std::get<0>(lu.douteuses[static_cast<std::size_t>(i)]), i + 1);
      EXPECT_EQ(std::get<1>(lu.douteuses[static_cast<std::size_t>(i)]), i % 2 == 0 ? "Profondeur" : "X");
    }
  }
}

TEST(LitTexteProjet, InPartsALineThatIsCutOffAtTheEndIsNotDoubtful) {
  const std::string texte = Projet(3) + "$$SeqZZ01";
  const std::string coupe = texte.substr(0, texte.find("$$Mat01")) + "3.5 x";
  for (const std::size_t octets : {1U, 62U, 10'000U}) {
    const Lu lu = Lit(coupe, octets, 2);
    ASSERT_EQ(lu.douteuses.size(), 1U) << octets;
    EXPECT_EQ(std::get<2>(lu.douteuses[0]), "7x");
  }
}

TEST(LitTexteProjet, LineEndsOfEitherKindAreNeverCut) {
  std::string texte = Projet(20);
  const Lu entier = Lit(texte, texte.size(), 1);
  std::string lf;
  std::string cr;
  for (const char c : texte) {
    if (c != '\r') lf += c;
    if (c != '\n') cr += c;
  }
  for (std::size_t octets = 1; octets < 130; ++octets) {
    EXPECT_TRUE(Lit(texte, octets, 2) == entier) << octets;
    EXPECT_TRUE(Lit(lf, octets, 2) == entier) << octets;
    EXPECT_TRUE(Lit(cr, octets, 2) == entier) << octets;
  }
}

TEST(ComposePoints, IsTheSameForAnyNumberOfThreads) {
  std::vector<PointTrace> points;
  for (int i = 0; i < 20'000; ++i) {
    points.push_back({static_cast<float>(i) / 7, static_cast<float>(-i) * 1e12F, CodePD, Code2(" A")});
  }
  std::string seul = "x";
  ComposePoints(seul, points);
  ASSERT_EQ(seul.size(), 1 + 20'000U * 62);
  EXPECT_EQ(seul.substr(1, 62), LignePoint("0", "0", "PD", " A"));
  for (const unsigned coeurs : {2U, 7U}) {
    NombreCoeurs = coeurs;
    std::string texte = "x";
    ComposePoints(texte, points);
    EXPECT_TRUE(texte == seul) << coeurs;
  }
}

TEST(EstTexteProjet, AControlByteFarBehindIsFound) {
  std::string texte;
  for (int i = 0; i < 40'000; ++i) texte += LignePoint("1", "2", "PD", " A");
  for (const unsigned coeurs : {1U, 2U, 7U}) {
    NombreCoeurs = coeurs;
    EXPECT_TRUE(EstTexteProjet(texte)) << coeurs;
    EXPECT_FALSE(EstTexteProjet(texte + '\0')) << coeurs;
  }
}

}  // namespace
