#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "controller/ChangtTable.h"
#include "tests/support/Support.h"
#include "tests/unit/controller/CarteEssai.h"
#include "tests/unit/controller/TableEssai.h"

namespace {

using namespace ovelin;
using essai::CarteEssai;
using essai::PoseTable;
using zenikcom::GenreFaute;

using Bloc = std::array<std::uint8_t, 33>;

std::uint8_t Octet(const Bloc& bloc, std::size_t place) { return bloc.at(place - 4); }

// One exchange past the class.
zenikcom::TamponOctets Demande(const CarteEssai& c, std::uint8_t commande, std::uint8_t table = 0) {
  zenikcom::TamponOctets t{};
  t[1] = 'T';
  t[2] = commande;
  t[3] = table;
  c.carte->Echange(t);
  return t;
}

Bloc Lu(const CarteEssai& c, std::uint8_t table, int bloc) {
  const auto t = Demande(c, static_cast<std::uint8_t>(1 + 2 * bloc), table);
  Bloc octets{};
  std::copy_n(t.begin() + 4, octets.size(), octets.begin());
  return octets;
}

int Defaut(const CarteEssai& c) { return Demande(c, 0)[3]; }

// A table of the board with that name and nothing else.
void Nomme(const CarteEssai& c, std::uint8_t table, std::string nom) {
  nom.resize(8, ' ');
  zenikcom::TamponOctets t{};
  t[1] = 'T';
  t[2] = 4;
  t[3] = table;
  std::copy(nom.begin(), nom.end(), t.begin() + 4);
  c.carte->Echange(t);
}

// The delivered keys without those that the delivered table leaves out.
constexpr const char* Egale = "TB_SAV_30=30\r\nTB_SAV_31=80\r\nCB_SAV_16=1\r\n";

TEST(TableVerif, WithoutABoardIsFalseAndSilent) {
  PoseTable("Essai");
  const CarteEssai c;
  c.carte->Debranche(true);
  EXPECT_FALSE(c.cde->TableVerif());
  EXPECT_EQ(c.carte->Compteurs().echanges, 0);
}

TEST(TableVerif, AnOldBoardIsRefused) {
  PoseTable("Essai");
  const CarteEssai c({.version = "ZENIK v0.31"});
  essai::Attend("erreurs", "90");
  EXPECT_FALSE(c.cde->TableVerif());
  EXPECT_TRUE(essai::Boites().at(0).texte.ends_with(" 'ZENIK v0.32' !")) << essai::Boites()[0].texte;
  EXPECT_EQ(c.carte->Compteurs().echanges, 1) << "its tables are left alone";
}

TEST(TableVerif, ThisVersionAndLaterOnesPass) {
  for (const char* version : {"ZENIK v0.32", "ZENIK v0.4 beta", "ZENIK v1.00"}) {
    PoseTable("Essai");
    EXPECT_TRUE(CarteEssai({.version = version}).cde->TableVerif()) << version;
  }
}

TEST(TableVerif, AVersionOfNineCharactersIsToldAndTheCheckGoesOn) {
  PoseTable("Essai");
  const CarteEssai c({.version = "ZENIK v0."});
  essai::AttendTexte("ZENIK not connected !");
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->TableRecherche("Essai"), 0) << "the table has been written";
}

TEST(TableVerif, LoadsTheParametersOfTheTableInForce) {
  PoseTable("Essai", "Combo_SAV_11=5\r\nSld_SAV_0=3\r\n");
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->Parametres().Multiplicateur, 6);
  EXPECT_EQ(c.cde->Parametres().TempsPalier, 4096);
}

TEST(TableVerif, WritesIntoTheFirstEmptySlotAndMakesItTheDefault) {
  PoseTable("Essai");
  const CarteEssai c;
  Nomme(c, 0, "Autre");
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->TableLectureNom(1), "Essai   ");
  EXPECT_EQ(c.cde->TableLectureNom(0), "Autre   ");
  EXPECT_EQ(Defaut(c), 1);
}

TEST(TableVerif, ANameOfBlanksZerosOr255IsEmpty) {
  for (const char octet : {' ', '\0', '\xFF'}) {
    PoseTable("Essai");
    const CarteEssai c;
    Nomme(c, 0, std::string(8, octet));
    EXPECT_TRUE(c.cde->TableVerif());
    EXPECT_EQ(c.cde->TableRecherche("Essai"), 0) << static_cast<int>(octet);
  }
}

TEST(TableVerif, ATableThatStandsThereIsLeftAlone) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  const auto avant = c.carte->Compteurs().echanges;
  EXPECT_TRUE(c.cde->TableVerif());
  // Version, name of slot 0, default, three blocks.
  EXPECT_EQ(c.carte->Compteurs().echanges - avant, 6);
}

TEST(TableVerif, MakesTheFoundTableTheDefault) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  Demande(c, 1, 3);
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Defaut(c), 0);
}

TEST(TableVerif, ADifferenceAsksUnderTheTablesNameAndYesWrites) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  PoseTable("Essai", std::string(Egale) + "Combo_SAV_11=5\r\n");
  essai::Attend("erreurs", "2", Reponse::Oui);
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(essai::Boites().back().titre, "Essai");
  EXPECT_EQ(essai::Boites().back().boutons, Boutons::OuiNon);
  EXPECT_EQ(Octet(Lu(c, 0, 1), 27), 6);
  EXPECT_TRUE(c.cde->TableVerif()) << "and now it is the same: no question";
}

TEST(TableVerif, TheAnswerNoGoesOnWithTheBoardsOwnValues) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  PoseTable("Essai", std::string(Egale) + "Combo_SAV_11=5\r\n");
  essai::Attend("erreurs", "2", Reponse::Non);
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Octet(Lu(c, 0, 1), 27), 2);
  EXPECT_TRUE(c.cde->TableVerif()) << "not asked again";
  EXPECT_EQ(Octet(Lu(c, 0, 1), 27), 2);
}

TEST(TableVerif, AnotherDifferenceIsAskedAnew) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  for (const char* frequence : {"5", "6"}) {
    PoseTable("Essai", std::string(Egale) + "Combo_SAV_11=" + frequence + "\r\n");
    essai::Attend("erreurs", "2", Reponse::Non);
    EXPECT_TRUE(c.cde->TableVerif());
  }
  EXPECT_EQ(essai::Boites().size(), 2U);
}

TEST(TableVerif, TheDeliveredTableDiffersBehindItsOwnWritingAndIsAskedOnce) {
  // Without TB_SAV_31 the check reads 0 and the writer writes 5 per cent.
  PoseTable("Essai", "TB_SAV_30=30\r\n");
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Octet(Lu(c, 0, 1), 29), 13);  // 12.75
  essai::Attend("erreurs", "2", Reponse::Oui);
  for (int n = 0; n < 3; ++n) EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(essai::Boites().size(), 1U);
}

TEST(TableVerif, ANameOfNineCharactersTakesASlotAtEachCheckUntilTheWindowComes) {
  PoseTable("NeufLettr");
  const CarteEssai c;
  for (std::uint8_t n = 0; n < 3; ++n) {
    EXPECT_TRUE(c.cde->TableVerif());
    EXPECT_EQ(c.cde->TableLectureNom(n), "NeufLett");
  }
  essai::AttendFenetre("F_ChangtTable", std::nullopt);
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Defaut(c), 3);
}

TEST(TableVerif, ANameOfEightCharactersIsFound) {
  PoseTable("HuitLett", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->TableLectureNom(1)[0], "\u00FF"[0]) << "one slot is enough";
}

TEST(TableVerif, ThreeFullSlotsOpenTheWindowThoughTheFourthIsEmpty) {
  PoseTable("Essai");
  const CarteEssai c;
  for (std::uint8_t n = 0; n < 3; ++n) Nomme(c, n, "T" + std::to_string(n));
  essai::AttendFenetre("F_ChangtTable", std::nullopt);
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Defaut(c), 3);
  EXPECT_EQ(c.cde->TableRecherche("Essai"), -1);
  EXPECT_EQ(Lu(c, 3, 1)[0], 255) << "the fourth is never filled";
}

TEST(TableVerif, BehindTheWindowTheFourthIsTheDefaultUntilTheNextCheck) {
  PoseTable("Essai", Egale);
  CarteEssai c;
  for (std::uint8_t n = 0; n < 3; ++n) Nomme(c, n, "T" + std::to_string(n));
  std::swap(CdeZENIK, c.cde);
  Svc.OuvreFenetre = [](const std::string& nom) {
    EXPECT_EQ(nom, "F_ChangtTable");
    EXPECT_EQ(LegendesTables(), (std::array<std::string, 3>{"T0      ", "T1      ", "T2      "}));
    EXPECT_EQ(RemplaceTable(1), "Essai");
    EXPECT_EQ(LegendesTables()[1], "Essai   ");
    return std::optional<int>();
  };
  EXPECT_TRUE(CdeZENIK->TableVerif());
  EXPECT_EQ(Defaut(c), 3);
  EXPECT_TRUE(CdeZENIK->TableVerif());
  EXPECT_EQ(Defaut(c), 1);
}

TEST(RemplaceTable, TwiceOnTheSameButtonWritesTwice) {
  PoseTable("Essai", Egale);
  CarteEssai c;
  std::swap(CdeZENIK, c.cde);
  CdeZENIK->ChargeParametres();
  const auto avant = c.carte->Compteurs().echanges;
  RemplaceTable(2);
  RemplaceTable(2);
  EXPECT_EQ(c.carte->Compteurs().echanges - avant, 6);
  EXPECT_EQ(CdeZENIK->TableRecherche("Essai"), 2);
}

TEST(TableVerif, ANameThatTheBoardCannotHoldIsRefusedAndNothingIsWritten) {
  PoseTable("Фреза");
  const CarteEssai c;
  essai::Attend("erreurs", "NomTable");
  EXPECT_FALSE(c.cde->TableVerif());
  EXPECT_EQ(Lu(c, 0, 1)[0], 255);
}

TEST(TableVerif, AnAccentIsOneByteOnTheBoardAndIsFoundAgain) {
  PoseTable("D\u00E9coup\u00E9e", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(Lu(c, 0, 1)[1], 0xE9);
  EXPECT_EQ(c.cde->TableLectureNom(0), "D\u00E9coup\u00E9e");
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->TableRecherche("D\u00E9coup\u00E9e"), 0);
}

TEST(TableVerif, ALostExchangeIsFalseAndNeitherAsksNorWritesElsewhere) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  for (int n = 2; n <= 6; ++n) {
    for (const GenreFaute genre : {GenreFaute::Avant, GenreFaute::Apres}) {
      c.Fausse(genre, n);
      EXPECT_FALSE(c.cde->TableVerif()) << n;
    }
  }
  EXPECT_TRUE(c.cde->TableVerif());
  EXPECT_EQ(c.cde->TableRecherche("Essai"), 0);
  EXPECT_EQ(Lu(c, 1, 1)[0], 255);
}

TEST(TableVerif, TakesFewerThanFifteenExchangesWhateverItFinds) {
  const CarteEssai c;
  const auto compte = [&c] {
    const auto avant = c.carte->Compteurs().echanges;
    EXPECT_TRUE(c.cde->TableVerif());
    return c.carte->Compteurs().echanges - avant;
  };
  Nomme(c, 0, "T0");
  Nomme(c, 1, "T1");
  PoseTable("Essai", Egale);
  EXPECT_EQ(compte(), 12);  // version, four names, three slots, three blocks, default
  PoseTable("Essai", std::string(Egale) + "Combo_SAV_11=5\r\n");
  Demande(c, 1, 0);
  essai::Attend("erreurs", "2", Reponse::Oui);
  EXPECT_EQ(compte(), 10);  // version, three names, default twice, one block, three blocks
  PoseTable("Autre", Egale);
  essai::AttendFenetre("F_ChangtTable", std::nullopt);
  EXPECT_EQ(compte(), 10);  // version, four names, four slots, default
}

TEST(TableRecherche, CutsBlanksAtBothEndsAndTellsCase) {
  const CarteEssai c;
  Nomme(c, 2, " Bois");
  EXPECT_EQ(c.cde->TableRecherche("Bois  "), 2);
  EXPECT_EQ(c.cde->TableRecherche("bois"), -1);
  EXPECT_EQ(c.cde->TableRecherche("Bo"), -1);
}

TEST(TableRecherche, FindsTheFirstOfTwo) {
  const CarteEssai c;
  Nomme(c, 1, "Bois");
  Nomme(c, 3, "Bois");
  EXPECT_EQ(c.cde->TableRecherche("Bois"), 1);
}

TEST(TableLectureNom, EndsAtTheFirstZero) {
  const CarteEssai c;
  Nomme(c, 0, std::string("ab\0cd", 5));
  EXPECT_EQ(c.cde->TableLectureNom(0), "ab");
}

TEST(TableDefaut, IsReadAndWrittenByItsNumber) {
  const CarteEssai c;
  for (const std::uint8_t n : {std::uint8_t{3}, std::uint8_t{1}}) {
    c.cde->TableDefautEcrire(n);
    EXPECT_EQ(c.cde->TableDefautLire(), n);
  }
}

// The default of each key, for the writer.
TEST(TableEcrire, OfATableWithoutKeysHasTheWritersDefaults) {
  PoseTable("Essai");
  const CarteEssai c;
  c.cde->ChargeParametres();
  c.cde->TableEcrire("Essai", 2);
  const Bloc un = Lu(c, 2, 1);
  for (std::size_t i = 17; i <= 26; ++i) EXPECT_EQ(Octet(un, i), 1) << "direction of X";
  EXPECT_EQ(Octet(un, 27), 2);
  EXPECT_EQ(Octet(un, 28), 5);
  EXPECT_EQ(Octet(un, 29), 13);  // 5 per cent, the check expects 0
  EXPECT_EQ(Octet(un, 30), 5);   // the check expects 0
  EXPECT_EQ(Octet(un, 31), 0);
  EXPECT_EQ(Octet(un, 32), 1);
  EXPECT_EQ(Octet(un, 33), 0);
  const Bloc deux = Lu(c, 2, 2);
  for (const std::size_t i : {4U, 6U, 8U}) EXPECT_EQ(Octet(deux, i) + 256 * Octet(deux, i + 1), 400);
  for (const std::size_t i : {14U, 16U, 18U, 24U, 26U, 28U}) {
    EXPECT_EQ(Octet(deux, i) + 256 * Octet(deux, i + 1), 2000);
  }
  EXPECT_EQ(Lu(c, 2, 3), Bloc{});
}

TEST(TableEcrire, APercentageOf120GoesOutAs255) {
  PoseTable("Essai", "TB_SAV_31=120\r\n");
  const CarteEssai c;
  c.cde->ChargeParametres();
  c.cde->TableEcrire("Essai", 0);
  EXPECT_EQ(Octet(Lu(c, 0, 1), 29), 255);
}

TEST(TableEcrire, ReadsTheSettingsAfreshButForStepsAndSlope) {
  PoseTable("Essai", "TB_SAV_3=200\r\nTB_SAV_15=10\r\nSld_SAV_0=5\r\nCombo_SAV_11=1\r\n");
  const CarteEssai c;
  c.cde->ChargeParametres();
  PoseTable("Essai", "TB_SAV_3=100\r\nTB_SAV_15=20\r\nSld_SAV_0=9\r\nCombo_SAV_11=5\r\n");
  c.cde->TableEcrire("Essai", 0);
  const Bloc un = Lu(c, 0, 1);
  const Bloc deux = Lu(c, 0, 2);
  EXPECT_EQ(Octet(un, 27), 6);
  EXPECT_EQ(Octet(un, 28), 5) << "the slope in force";
  EXPECT_EQ(Octet(deux, 4) + 256 * Octet(deux, 5), 400) << "the steps in force";
  EXPECT_EQ(Octet(deux, 24) + 256 * Octet(deux, 25), 8000);
  EXPECT_EQ(c.cde->Parametres().Multiplicateur, 6) << "the multiplier that was read is in force";
  EXPECT_EQ(c.cde->Parametres().TableFreq, CalculTableFreq(6, 16'384));
}

TEST(TableEcrire, ATableThatSixteenBitsDoNotHoldIsToldBeforeItIsWritten) {
  PoseTable("Essai", "TB_SAV_3=10000\r\nCOMBO_SAV_12=3\r\nTB_SAV_12=1\r\nTB_SAV_15=1\r\n");
  const CarteEssai c;
  c.cde->ChargeParametres();
  const auto avant = c.carte->Compteurs().echanges;
  Svc.Montre = [&](const BoiteMessage& boite) {
    EXPECT_EQ(boite.cle, "TableDeborde");
    EXPECT_NE(boite.texte.find("X: 80000 /mm"), std::string::npos) << boite.texte;
    EXPECT_EQ(c.carte->Compteurs().echanges, avant) << "told before the first block";
    return Reponse::Ok;
  };
  c.cde->TableEcrire("Essai", 0);
  const Bloc deux = Lu(c, 0, 2);
  EXPECT_EQ(Octet(deux, 4) + 256 * Octet(deux, 5), 80'000 - 65'536);
}

TEST(SuitTable, ABoardThatHasTheTableTakesItAsItsDefault) {
  PoseTable("Essai", Egale);
  const CarteEssai c;
  EXPECT_TRUE(c.cde->TableVerif());
  Demande(c, 1, 2);
  c.cde->SuitTable();
  EXPECT_EQ(Defaut(c), 0);
}

TEST(SuitTable, ABoardWithoutItKeepsItsDefaultAndTheParametersAreLoaded) {
  PoseTable("Essai", "Combo_SAV_11=3\r\n");
  const CarteEssai c;
  Demande(c, 1, 2);
  c.cde->SuitTable();
  EXPECT_EQ(Defaut(c), 2);
  EXPECT_EQ(c.cde->Parametres().Multiplicateur, 4);
}

TEST(SuitTable, WithoutABoardTheParametersAreLoaded) {
  PoseTable("Essai", "Combo_SAV_11=3\r\n");
  ClsCdeZENIK cde;
  cde.SuitTable();
  EXPECT_EQ(cde.Parametres().Multiplicateur, 4);
}

TEST(DemandeVersion, IsTheTextUpToTheFirstZero) {
  EXPECT_EQ(CarteEssai({.version = "ZENIK v0.32"}).cde->DemandeVersion(), "ZENIK v0.32");
}

}  // namespace
