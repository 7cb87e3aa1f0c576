// What is not motion: outputs, display, keypad, version, tables, flash memory, programming lines.
#include <algorithm>
#include <string>
#include <vector>

#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Axes3;

std::string Texte(const Reponse& r, std::size_t i, std::size_t n) {
  return {reinterpret_cast<const char*>(r.t.data()) + i, n};
}

TEST(Version, IsAsTheBoardWasMadeAndEndsWithAZero) {
  Banc b({.version = "ZENIK v0.31"});
  TamponOctets t = Requete('V');
  t[20] = 77;
  const Reponse r = b.Envoie(t);
  EXPECT_EQ(Texte(r, 2, 12), std::string("ZENIK v0.31\0", 12));
  EXPECT_EQ(r.t[20], 77) << "what lies behind stays";
}

TEST(Version, TheDeliveredOnePassesForARealBoardAndSaysThatItIsNone) {
  Banc b;
  const Reponse r = b.Envoie('V');
  const std::string texte(reinterpret_cast<const char*>(r.t.data()) + 2);
  EXPECT_GE(texte, "ZENIK v0.32");
  EXPECT_NE(texte.find("virtuelle"), std::string::npos);
}

TEST(Version, ALongTextFillsTheBuffer) {
  Banc b({.version = std::string(100, 'x')});
  const Reponse r = b.Envoie('V');
  EXPECT_EQ(Texte(r, 2, 34), std::string(34, 'x'));
  EXPECT_EQ(r.t[36], 0);
}

TEST(Lettres, AnUnknownOneIsNotAnswered) {
  Banc b;
  TamponOctets t{};
  t.fill(7);
  t[1] = 'X';
  const Reponse r = b.Envoie(t);
  EXPECT_EQ(b.resultat, zenikcom::Reussi);
  EXPECT_EQ(r.t[1], 0);
  EXPECT_EQ(r.t[2], 7);
}

TEST(Sorties, MotorAndAuxiliaryOutputFollowTheirCommands) {
  Banc b;
  b.Envoie('M', {1});
  EXPECT_TRUE(b.carte->Sorties().moteur);
  EXPECT_FALSE(b.carte->Sorties().auxiliaire);
  b.Envoie('G', {1});
  b.Envoie('M', {0});
  EXPECT_FALSE(b.carte->Sorties().moteur);
  EXPECT_TRUE(b.carte->Sorties().auxiliaire);
  b.Envoie('G', {0});
  EXPECT_FALSE(b.carte->Sorties().auxiliaire);
}

TEST(Puissance, ChannelOneSetsChannelZeroSwitchesOff) {
  Banc b;
  EXPECT_EQ(b.Etat().t[7] & 16, 0);
  b.Envoie('P', {1, 200});
  EXPECT_EQ(b.carte->Sorties().pwm, 200);
  EXPECT_EQ(b.Etat().t[7] & 16, 16);
  EXPECT_EQ(Texte(b.Envoie('P', {2}), 2, 4), "0200");
  b.Envoie('P', {0, 255});
  EXPECT_FALSE(b.carte->Sorties().broche);
  EXPECT_EQ(b.Etat().t[7] & 16, 0);
  EXPECT_EQ(Texte(b.Envoie('P', {2}), 2, 4), "0000");
}

TEST(Touches, StandInByteElevenOfEveryStatus) {
  Banc b;
  EXPECT_EQ(b.Etat().t[11], 0);
  b.carte->Appuie(zenikcom::ToucheHautZ | zenikcom::ToucheDroite);
  EXPECT_EQ(b.Etat().t[11], 129);
  b.Ouvre();
  EXPECT_EQ(b.Envoie(Move{.ticks = 1}).t[11], 129);
  b.carte->Appuie(0);
  EXPECT_EQ(b.Etat().t[11], 0);
}

TEST(Entrees, SwitchesAndAnalogInputsStandInTheStatus) {
  Banc b;
  b.carte->Origine(true);
  b.carte->Analogiques(51, 255);
  Reponse r = b.Etat();
  EXPECT_EQ(r.t[8], 4);
  EXPECT_EQ(r.t[9], 51);
  EXPECT_EQ(r.t[10], 255);
  b.carte->FinDeCourse(true);
  EXPECT_EQ(b.Etat().t[8], 6);
}

TamponOctets Affichage(int ligne, int colonne, const std::string& texte) {
  TamponOctets t = Requete('L', {ligne, colonne, static_cast<int>(texte.size())});
  std::copy(texte.begin(), texte.end(), t.begin() + 5);
  return t;
}

TEST(Ecran, ShowsTextsAtTheirPlace) {
  Banc b;
  EXPECT_FALSE(b.carte->Ecran().allume);
  b.Envoie('L', {3});
  EXPECT_TRUE(b.carte->Ecran().allume);
  b.Envoie(Affichage(0, 0, "Fraisage"));
  b.Envoie(Affichage(1, 4, "12 mm"));
  b.Envoie(Affichage(0, 4, "XY"));
  EXPECT_EQ(b.carte->Ecran().lignes[0], "FraiXYge");
  EXPECT_EQ(b.carte->Ecran().lignes[1], "    12 mm");
  b.Envoie('L', {5});
  EXPECT_EQ(b.carte->Ecran().lignes[0], "");
  b.Envoie('L', {2});
  EXPECT_FALSE(b.carte->Ecran().allume);
}

TEST(Ecran, EndsAtTwentyCharacters) {
  Banc b;
  b.Envoie(Affichage(0, 15, "123456789"));
  EXPECT_EQ(b.carte->Ecran().lignes[0], std::string(15, ' ') + "12345");
  b.Envoie(Affichage(1, 20, "x"));
  b.Envoie(Affichage(0, 255, "x"));
  EXPECT_EQ(b.carte->Ecran().lignes[1], "");
  TamponOctets t = Requete('L', {1, 0, 255});
  for (std::size_t i = 5; i < 37; ++i) t[i] = 'y';
  b.Envoie(t);
  EXPECT_EQ(b.carte->Ecran().lignes[1], std::string(20, 'y'));
}

TEST(Tables, EachPartComesBackAsItWasWritten) {
  Banc b;
  for (int numero = 0; numero < 4; ++numero) {
    for (const int ecrit : {4, 6, 8}) {
      TamponOctets t = Requete('T', {ecrit, numero});
      for (std::size_t i = 4; i < 37; ++i)
        t[i] = static_cast<std::uint8_t>(10 * numero + ecrit + static_cast<int>(i));
      b.Envoie(t);
    }
  }
  for (int numero = 0; numero < 4; ++numero) {
    for (const int lu : {3, 5, 7}) {
      const Reponse r = b.Envoie('T', {lu, numero});
      for (std::size_t i = 4; i < 37; ++i) {
        ASSERT_EQ(r.t[i], 10 * numero + lu + 1 + static_cast<int>(i)) << numero << " " << lu;
      }
      EXPECT_EQ(r.t[2], lu);
      EXPECT_EQ(r.t[3], numero);
    }
  }
}

TEST(Tables, ANewBoardHasNoNameAndTableZeroForDefault) {
  Banc b;
  EXPECT_EQ(b.Envoie('T', {0, 9}).t[3], 0);
  EXPECT_EQ(Texte(b.Envoie('T', {3, 2}), 4, 8), std::string(8, '\xFF'));
}

TEST(Tables, TheDefaultIsOneOfFour) {
  Banc b;
  b.Envoie('T', {1, 3});
  EXPECT_EQ(b.Envoie('T', {0}).t[3], 3);
  b.Envoie('T', {1, 4});
  EXPECT_EQ(b.Envoie('T', {0}).t[3], 3);
  TamponOctets t = Requete('T', {4, 200});
  b.Envoie(t);
  EXPECT_EQ(b.Envoie('T', {3, 200}).t[4], 0) << "no such table: as it was sent";
}

TamponOctets Page(int bloc, int adresse, int premier) {
  TamponOctets t = Requete('W', {bloc, adresse >> 8, adresse & 255});
  for (std::size_t i = 0; i < 32; ++i) t[5 + i] = static_cast<std::uint8_t>(premier + static_cast<int>(i));
  return t;
}

TEST(Flash, APageComesBackAsItWasWritten) {
  Banc b;
  b.Envoie('E', {7});
  EXPECT_EQ(b.Envoie(Page(7, 0x1220, 40)).t[2], 255);
  Reponse r = b.Envoie('R', {7, 0x12, 0x20});
  for (std::size_t i = 0; i < 32; ++i) EXPECT_EQ(r.t[5 + i], 40 + i);
  EXPECT_EQ(b.Envoie('R', {7, 0x12, 0x40}).t[5], 255) << "behind it nothing";
  EXPECT_EQ(b.Envoie('R', {6, 0x12, 0x20}).t[5], 255) << "nor in another block";
}

TEST(Flash, ErasingABlockMakesEveryByte255) {
  Banc b;
  b.Envoie(Page(1, 0, 0));
  b.Envoie(Page(2, 0, 0));
  b.Envoie('E', {1});
  EXPECT_EQ(b.Envoie('R', {1, 0, 0}).t[5], 255);
  EXPECT_EQ(b.Envoie('R', {2, 0, 0}).t[5], 0);
}

TEST(Flash, WithoutErasingBitsCanOnlyGo) {
  Banc b;
  EXPECT_EQ(b.Envoie(Page(0, 0, 0)).t[2], 255);
  EXPECT_EQ(b.Envoie(Page(0, 0, 0)).t[2], 255) << "the same again is there";
  EXPECT_NE(b.Envoie(Page(0, 0, 1)).t[2], 255) << "not confirmed";
  EXPECT_EQ(b.Envoie('R', {0, 0, 0}).t[5 + 1], 1 & 2);
}

TEST(Flash, ThereIsNoBlock32) {
  Banc b;
  EXPECT_NE(b.Envoie(Page(32, 0, 0)).t[2], 255);
  EXPECT_EQ(b.Envoie('R', {32, 0, 0}).t[5], 255);
  b.Envoie(Page(0, 0, 0));
  b.Envoie('E', {32});
  EXPECT_EQ(b.Envoie('R', {0, 0, 0}).t[5], 0);
}

TEST(Flash, TheModelHasFourBytesAndAMissingChip255) {
  EXPECT_LT(Banc().Envoie('F').t[2], 255);
  Banc sans({.flash = false});
  EXPECT_EQ(sans.Envoie('F').t[2], 255);
  EXPECT_NE(sans.Envoie(Page(0, 0, 0)).t[2], 255);
  EXPECT_EQ(sans.Envoie('R', {0, 0, 0}).t[5], 255);
}

// A list as the host stores it: records without the letter, then the end mark; the rest of the page is 255.
std::vector<std::uint8_t> Liste(const std::vector<Move>& moves) {
  std::vector<std::uint8_t> octets;
  for (const Move& m : moves) {
    const TamponOctets t = Motion(m);
    octets.insert(octets.end(), t.begin() + 2, t.begin() + (m.depart < 0 ? 27 : 33));
  }
  octets.push_back(128);
  return octets;
}

void Stocke(Banc& b, std::vector<std::uint8_t> octets, int bloc) {
  b.Envoie('E', {bloc});
  while (octets.size() % 32 != 0) octets.push_back(255);
  for (std::size_t adresse = 0; adresse < octets.size(); adresse += 32) {
    TamponOctets t = Page(bloc, static_cast<int>(adresse), 0);
    std::copy_n(octets.begin() + static_cast<std::ptrdiff_t>(adresse), 32, t.begin() + 5);
    ASSERT_EQ(b.Envoie(t).t[2], 255);
  }
}

TEST(ListeStockee, RunsFromTheFlashMemoryToItsEndMark) {
  Banc b;
  Stocke(b,
         Liste({{.ticks = 100, .x = 10},
                {.ticks = 10, .y = 7, .depart = 126, .descente = -100},
                {.ticks = 50, .z = -3}}),
         0);
  b.Envoie('B', {0});
  b.Envoie('B', {2, 0, 0, 0});
  EXPECT_EQ(b.Etat().Etat(), 2);
  b.Part();
  EXPECT_TRUE(b.Etat().EnCours());
  b.heure = 100 * Tick + 1;
  EXPECT_EQ(b.Etat().Numero(), 2);
  EXPECT_FALSE(b.Envoie(Move{.ticks = 5}).Pris()) << "no records come into a stored job";
  b.heure = Seconde;
  const Reponse r = b.Etat();
  EXPECT_EQ(r.Etat(), 128);
  EXPECT_EQ(r.Numero(), 3);
  EXPECT_EQ(b.carte->Lieu(), (Axes3{10, 7, -3}));
}

TEST(ListeStockee, BeginsWithTheBlockThatIsNamedAndEndsWithItsSize) {
  Banc b;
  Stocke(b, Liste({{.ticks = 10, .x = 1}, {.ticks = 10, .x = 2}, {.ticks = 10, .x = 4}}), 5);
  b.Envoie('B', {0});
  b.Envoie('B', {2, 5, 0, 50});  // two records of 25 bytes
  b.Part();
  b.heure = Seconde;
  EXPECT_EQ(b.Etat().Etat(), 128);
  EXPECT_EQ(b.carte->Lieu()[0], 3);
}

TEST(ListeStockee, AnEmptyMemoryEndsAtOnce) {
  Banc b;
  b.Envoie('B', {0});
  b.Envoie('B', {2, 0, 0, 0});
  b.Part();
  EXPECT_EQ(b.Etat().Etat(), 128);
  EXPECT_EQ(b.Etat().Numero(), 0);
}

TEST(ListeStockee, StopsLikeAnyOther) {
  Banc b;
  Stocke(b, Liste({{.ticks = 100, .x = 100}, {.ticks = 100, .x = 100}}), 0);
  b.Envoie('B', {0});
  b.Envoie('B', {2, 0, 0, 0});
  b.Part();
  b.heure = 30 * Tick;
  EXPECT_EQ(b.Envoie('S', {0, 0}).ResteStop(), 69);
  b.heure = Seconde;
  EXPECT_EQ(b.carte->Lieu()[0], 30);
}

TEST(Reset, NeedsItsGuardAndKeepsTables) {
  Banc b;
  b.Table(2, "Acier", 3, 4);
  b.Envoie('M', {1});
  b.Ouvre();
  b.Envoie(Move{.ticks = 100, .x = 100});
  b.Part();
  b.heure = 30 * Tick;
  b.Envoie('Z', {85, 171, 0});
  EXPECT_TRUE(b.Etat().EnCours());
  b.Envoie('Z', {85, 170, 0});
  EXPECT_FALSE(b.Etat().EnCours());
  EXPECT_EQ(b.Etat().Etat(), 2);
  EXPECT_FALSE(b.carte->Sorties().moteur);
  EXPECT_EQ(b.carte->Lieu()[0], 90) << "3 ms at 30,000 ticks a second";
  EXPECT_EQ(b.Envoie('T', {0}).t[3], 2);
}

int MotLu(const Reponse& r) { return r.t[2] << 8 | r.t[3]; }

void Entre(Banc& b) {
  b.Envoie('Y', {1});
  b.Envoie('Y', {0});
}

TEST(Programmation, TheDeviceWordLiesSixBehindTheConfiguration) {
  Banc b;
  Entre(b);
  b.Envoie('Y', {4, 0, 0, 0});
  for (int i = 0; i < 6; ++i) b.Envoie('Y', {3, 6});
  const Reponse r = b.Envoie('Y', {2, 4});
  EXPECT_EQ(r.t[1], 'Y');
  EXPECT_EQ(MotLu(r) / 32, 113) << "PIC 16F877A";
  EXPECT_EQ(MotLu(r) & 31, 5);
}

TEST(Programmation, AWordIsLoadedBurntAndReadBack) {
  Banc b;
  Entre(b);
  for (int i = 0; i < 3; ++i) b.Envoie('Y', {3, 6});
  b.Envoie('Y', {4, 2, 0x12, 0x34});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3FFF) << "loading alone changes nothing";
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x1234);
  Entre(b);
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3FFF) << "the counter began anew";
}

TEST(Programmation, BurningWithoutErasingOnlyClearsBits) {
  Banc b;
  Entre(b);
  b.Envoie('Y', {4, 2, 0x0F, 0x0F});
  b.Envoie('Y', {3, 24});
  b.Envoie('Y', {4, 2, 0x33, 0x33});
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x0303);
  b.Envoie('Y', {3, 8});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3333);
}

TEST(Programmation, TheDataMemoryHasItsOwnCommands) {
  Banc b;
  Entre(b);
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 5})), 255);
  b.Envoie('Y', {4, 3, 0, 0x5A});
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 5})), 0x5A);
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3FFF);
}

TEST(Programmation, TheEraseSequenceClearsOneMemoryAndLeavesTheOther) {
  for (const int charge : {2, 3}) {
    Banc b;
    Entre(b);
    for (const int memoire : {2, 3}) {
      b.Envoie('Y', {4, memoire, 0, 0});
      b.Envoie('Y', {3, 24});
    }
    b.Envoie('Y', {4, charge, 63, 255});
    for (const int code : {1, 7, 8, 1, 7}) b.Envoie('Y', {3, code});
    EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), charge == 2 ? 0x3FFF : 0);
    EXPECT_EQ(MotLu(b.Envoie('Y', {2, 5})), charge == 3 ? 255 : 0);
    b.Envoie('Y', {4, 2, 0, 1});
    b.Envoie('Y', {3, 8});
    EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 1) << "the sequence is over: one word at a time again";
  }
}

TEST(Programmation, TheConfigurationWordsCanBeWrittenButNotTheIdentity) {
  Banc b;
  Entre(b);
  b.Envoie('Y', {4, 0, 0, 0});
  b.Envoie('Y', {4, 2, 1, 2});
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x0102);
  for (int i = 0; i < 6; ++i) b.Envoie('Y', {3, 6});
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})) / 32, 113);
}

TEST(Programmation, OutsideTheModeEveryWordIsOnes) {
  Banc b;
  b.Envoie('Y', {4, 2, 0, 0});
  b.Envoie('Y', {3, 24});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3FFF);
  Entre(b);
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 0x3FFF) << "nothing was burnt either";
}

TEST(Programmation, WithoutAChipNobodyAnswers) {
  Banc b({.pic = false});
  EXPECT_NE(b.Envoie('Y', {0}).t[1], 'Y');
}

TEST(Programmation, TheCounterComesRoundBehindTheLastWord) {
  Banc b;
  Entre(b);
  b.Envoie('Y', {4, 2, 0, 9});
  b.Envoie('Y', {3, 24});
  for (int i = 0; i < 8192; ++i) b.Envoie('Y', {3, 6});
  EXPECT_EQ(MotLu(b.Envoie('Y', {2, 4})), 9);
}

}  // namespace
