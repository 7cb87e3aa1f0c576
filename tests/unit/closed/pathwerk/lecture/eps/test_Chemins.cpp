// The reader of the printed paths, without Ghostscript. 2048 steps are a point.
#include "closed/pathwerk/lecture/eps/Chemins.h"
#include "tests/unit/closed/pathwerk/lecture/eps/Mesures.h"

namespace pathwerk::lecture::eps {
namespace {

using namespace mesures;

Lecture Sortie(const std::string& texte) {
  Lecture l;
  LireSortieEps(texte, "J", OptionsLecture{}, l);
  return l;
}

TEST(EpsChemins, ReadsAFramedPath) {
  const Lecture l = Sortie("\n\001J S\nm 0 0 \nl 2048 0 \nl 2048 -4096 \n\n\001J E\n");
  ASSERT_EQ(l.traits.size(), 1U);
  EXPECT_EQ(l.traits[0].nature, Nature::Ouvert);
  AttendPoints(l.traits[0], {{0, 0}, {1, 0}, {1, -2}});
}

TEST(EpsChemins, LinesOutsideAFrameOrWithAnotherTokenAreNothing) {
  EXPECT_TRUE(Sortie("m 0 0\nl 9 9\n\001K S\nm 0 0\nl 9 9\n\001K E\n").traits.empty());
}

TEST(EpsChemins, ABrokenLineDropsItsPathAndNoOther) {
  for (const char* const casse :
       {"l 1", "l x y", "l 1 2 3", "q 1 2", "c 1 2 3 4", "l 99999999999999999999 0", "l 1.5 2"}) {
    const Lecture l = Sortie("\001J S\nm 0 0\nl 2048 0\n" + std::string(casse) +
                             "\nl 4096 0\n\001J E\n\001J S\nm 0 0\nl 0 2048\n\001J E\n");
    ASSERT_EQ(l.traits.size(), 1U) << casse;
    AttendPoints(l.traits[0], {{0, 0}, {0, 1}});
  }
}

TEST(EpsChemins, ALineWithoutAStartIsBroken) {
  EXPECT_TRUE(Sortie("\001J S\nl 0 0\nl 9 9\n\001J E\n").traits.empty());
  EXPECT_TRUE(Sortie("\001J S\nh\nl 9 9\n\001J E\n").traits.empty());
}

TEST(EpsChemins, APathWithoutItsEndIsLost) {
  EXPECT_TRUE(Sortie("\001J S\nm 0 0\nl 2048 0\n").traits.empty());
  EXPECT_EQ(Sortie("\001J S\nm 0 0\nl 2048 0\n\001J S\nm 0 0\nl 2048 0\n\001J E\n").traits.size(), 1U);
}

TEST(EpsChemins, ThePiecesMayBeCutAnywhere) {
  const std::string texte =
      "text\001J no\n\n\001J F\nm 0 0 \nc 0 2048 2048 2048 2048 0 \nh\n\001J E\n\001J I clip\n\001J Z 77\n";
  Lecture entier;
  EpsChemins d("J", OptionsLecture{}, entier, 1000);
  EXPECT_TRUE(d.Recoit(texte));
  ASSERT_EQ(entier.traits.size(), 1U);
  for (std::size_t pas = 1; pas < 9; ++pas) {
    Lecture l;
    EpsChemins c("J", OptionsLecture{}, l, 1000);
    for (std::size_t p = 0; p < texte.size(); p += pas) EXPECT_TRUE(c.Recoit(texte.substr(p, pas)));
    ASSERT_EQ(l.traits.size(), 1U);
    EXPECT_EQ(l.traits[0].points, entier.traits[0].points);
    EXPECT_EQ(Ignores(l, "clip"), 1);
    EXPECT_TRUE(c.FinDite());
    EXPECT_EQ(c.Position(), 77);
  }
}

TEST(EpsChemins, AnEndlessLineIsPassedOver) {
  const Lecture l = Sortie("\n" + std::string(5'000'000, 'm') + "\n\001J S\nm 0 0\nl 2048 0\n\001J E\n");
  EXPECT_EQ(l.traits.size(), 1U);
}

TEST(EpsChemins, AnEndlessLineInsideAPathBreaksIt) {
  const std::string texte = "\001J S\nm 0 0\nl 2048" + std::string(400, ' ') + "0\nl 4096 0\n\001J E\n";
  EXPECT_TRUE(Sortie(texte).traits.empty());
  Lecture l;
  EpsChemins c("J", OptionsLecture{}, l, 1000);
  for (const char o : texte) c.Recoit({&o, 1});
  EXPECT_TRUE(l.traits.empty());
}

TEST(EpsChemins, TheErrorIsTakenApart) {
  Lecture l;
  EpsChemins c("J", OptionsLecture{}, l, 1000);
  c.Recoit("\001J X typecheck 1234\n");
  EXPECT_EQ(c.NomErreur(), "typecheck");
  EXPECT_EQ(c.Position(), 1234);
  EXPECT_TRUE(c.FinDite());
}

TEST(EpsChemins, KindsLeftOutStayFew) {
  std::string texte;
  for (int i = 0; i < 500; ++i) texte += "\001J I kind" + std::to_string(i) + "\n";
  const Lecture l = Sortie(texte);
  EXPECT_LE(l.rapport.Ignores.size(), 33U);
  EXPECT_EQ(Ignores(l, "?"), 500 - 32);
}

TEST(EpsChemins, PlacesTooFarAreRefused) {
  const Lecture l = Sortie("\001J S\nm 0 0\nl 999999999999999 0\n\001J E\n");
  EXPECT_EQ(l.rapport.Numero, Erreur::Coordonnee);
  EXPECT_TRUE(l.traits.empty());
}

TEST(EpsChemins, MorePointsThanAllowedAreRefused) {
  Lecture l;
  EpsChemins c("J", OptionsLecture{}, l, 50);
  std::string texte = "\001J S\nm 0 0\n";
  for (int i = 1; i < 60; ++i) texte += "l " + std::to_string(i * 2048) + " 0\n";
  EXPECT_FALSE(c.Recoit(texte + "\001J E\n"));
  EXPECT_EQ(l.rapport.Numero, Erreur::Memoire);
  EXPECT_TRUE(l.traits.empty());
}

}  // namespace
}  // namespace pathwerk::lecture::eps
