// The board on the command line: which one, its tables, its flash memory, its file; and what stands against it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/unit/app/Appel.h"

namespace {

namespace fs = std::filesystem;
using essai::Atelier;
using essai::Retour;
using Appel = std::vector<std::string>;

Retour Reussi(const Atelier& a, Appel appel) {
  appel.emplace_back("--json");
  Retour r = a.Appelle(appel);
  EXPECT_EQ(r.etat, 0) << appel[1] << r.erreurs << r.sortie;
  return r;
}

void AttendRefus(const Atelier& a, Appel appel, const std::string& cle, const std::string& texte) {
  appel.emplace_back("--json");
  const Retour r = a.Appelle(appel);
  EXPECT_EQ(r.etat, 1) << appel[1] << r.erreurs << r.sortie;
  EXPECT_EQ(r.Json()["error"]["key"], cle) << r.sortie;
  EXPECT_NE(r.erreurs.find(texte), std::string::npos) << r.erreurs;
}

// Three tables of the board have names; the table in force stands nowhere there.
void RemplitCarte(const Atelier& a) {
  for (const char* n : {"0", "1", "2"}) {
    Reussi(a, {"tables", "copy", "OVELIN", std::string("T") + n});
    Reussi(a, {"board", "tables", "write", n});
  }
  Reussi(a, {"tables", "use", "OVELIN"});
}

// A stored job of that many records without ramp.
std::string Liste(int records, bool finie = true) {
  std::string octets;
  for (int i = 0; i < records; ++i) octets += std::string(1, 7) + std::string(24, static_cast<char>(i % 100 + 1));
  return finie ? octets + static_cast<char>(128) : octets;
}

TEST(Board, AsDeliveredIsTheVirtualOne) {
  const Atelier a;
  const auto j = Reussi(a, {"board", "status"}).Json();
  EXPECT_EQ(j["board"], "virtual");
  EXPECT_EQ(j["version"].get<std::string>().substr(0, 11), "ZENIK v0.32");
  EXPECT_EQ(j["flash"], "01322102");
  EXPECT_EQ(j["state"], "rest");
  EXPECT_EQ(j["record"], 0);
}

TEST(Board, WhatCannotBeHadIsToldWithKeyAndValue) {
  const Atelier a;
  const std::string texte = a.Ecrit("z.so", "no library");
  AttendRefus(a, {"board", "status", "--set", "CarteZENIK=foo"}, "Carte_inconnue", "CarteZENIK=foo");
  AttendRefus(a, {"board", "status", "--set", "CarteZENIK=usb"}, "Carte_identite", "CarteZENIK_USB=");
  AttendRefus(a, {"board", "status", "--set", "CarteZENIK=/x/y.so"}, "Carte_bibliotheque", "CarteZENIK=/x/y.so");
  AttendRefus(a, {"board", "status", "--set", "CarteZENIK=" + texte}, "Carte_bibliotheque", texte);
  AttendRefus(a, {"board", "status", "--set", "CarteZENIK=aucune"}, "cli_carte", "CarteZENIK=aucune");
}

TEST(Board, TheSettingsFileChoosesIt) {
  const Atelier a;
  Reussi(a, {"key", "set", "CarteZENIK", "aucune"});
  AttendRefus(a, {"board", "status"}, "cli_carte", "CarteZENIK=aucune");
}

TEST(Board, OneThatAnotherProgramHoldsIsTold) {
  const Atelier a;
  Reussi(a, {"board", "status"});
  const int autre = open(a.Chemin("carte.zenik.verrou").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  ASSERT_GE(autre, 0);
  ASSERT_EQ(flock(autre, LOCK_EX | LOCK_NB), 0);
  AttendRefus(a, {"board", "status"}, "Carte_occupee", "carte.zenik");
  close(autre);
  Reussi(a, {"board", "status"});
}

TEST(BoardUdev, PrintsTheRuleOfTheBoardThatIsSet) {
  const Atelier a;
  AttendRefus(a, {"board", "udev"}, "Carte_identite", "CarteZENIK_USB=");
  const Retour r = a.Appelle({"board", "udev", "--set", "CarteZENIK_USB=1A2B:3c4d"});
  EXPECT_EQ(r.etat, 0);
  EXPECT_NE(r.sortie.find("ATTRS{idVendor}==\"1a2b\", ATTRS{idProduct}==\"3c4d\""), std::string::npos) << r.sortie;
  EXPECT_EQ(Reussi(a, {"board", "udev", "--set", "CarteZENIK_USB=1A2B:3c4d"}).Json()["file"], "70-zenik.rules");
}

TEST(BoardList, IsAList) {
  const Atelier a;
  EXPECT_TRUE(Reussi(a, {"board", "list"}).Json()["devices"].is_array());
  EXPECT_FALSE(fs::exists(a.Chemin("carte.zenik.verrou"))) << "no board is opened for it";
}

TEST(BoardTables, TheCheckWritesTheTableInForceAndItLasts) {
  const Atelier a;
  EXPECT_EQ(Reussi(a, {"board", "tables"}).Json()["tables"], (nlohmann::json{"", "", "", ""}));
  const auto j = Reussi(a, {"board", "tables", "check"}).Json();
  EXPECT_EQ(j["table"], "OVELIN");
  EXPECT_EQ(j["slot"], 0);
  const auto liste = Reussi(a, {"board", "tables", "list"}).Json();
  EXPECT_EQ(liste["tables"], (nlohmann::json{"OVELIN", "", "", ""}));
  EXPECT_EQ(liste["default"], 0);
}

TEST(BoardTables, ADifferenceIsAskedByItsKey) {
  const Atelier a;
  Reussi(a, {"board", "tables", "check", "--set", "TB_SAV_31=80"});
  AttendRefus(a, {"board", "tables", "check", "--set", "TB_SAV_31=50"}, "2", "?");
  const auto octet29 = [&a] {
    return Reussi(a, {"board", "wire", "T", "3", "0"}).Json()["reply"].get<std::string>().substr(29 * 3, 2);
  };
  Reussi(a, {"board", "tables", "check", "--set", "TB_SAV_31=50", "--answer", "2=no"});
  EXPECT_EQ(octet29(), "CC");  // 204 of 255
  Reussi(a, {"board", "tables", "check", "--set", "TB_SAV_31=50", "--answer", "2=yes"});
  EXPECT_EQ(octet29(), "80");  // 127.5, halves to even
}

TEST(BoardTables, AFullBoardAsksWhichOneMakesRoom) {
  const Atelier a;
  RemplitCarte(a);
  AttendRefus(a, {"board", "tables", "check"}, "F_ChangtTable", "T0\nT1\nT2");
  EXPECT_EQ(a.Appelle({"board", "tables", "check", "--answer", "F_ChangtTable=3"}).etat, 2);
  Reussi(a, {"board", "tables", "check", "--answer", "F_ChangtTable=cancel"});
  auto liste = Reussi(a, {"board", "tables"}).Json();
  EXPECT_EQ(liste["tables"], (nlohmann::json{"T0", "T1", "T2", ""}));
  EXPECT_EQ(liste["default"], 3);
  const auto j = Reussi(a, {"board", "tables", "check", "--answer", "F_ChangtTable=1"}).Json();
  EXPECT_EQ(j["slot"], 1);
  EXPECT_EQ(j["default"], 3) << "corrected by the next check";
  liste = Reussi(a, {"board", "tables"}).Json();
  EXPECT_EQ(liste["tables"], (nlohmann::json{"T0", "OVELIN", "T2", ""}));
}

TEST(BoardTables, WriteAndDefaultTakeASlot) {
  const Atelier a;
  Reussi(a, {"board", "tables", "write", "3"});
  EXPECT_EQ(Reussi(a, {"board", "tables", "default", "3"}).Json()["default"], 3);
  EXPECT_EQ(Reussi(a, {"board", "tables"}).Json()["tables"][3], "OVELIN");
  EXPECT_EQ(a.Appelle({"board", "tables", "write", "4"}).etat, 2);
}

TEST(BoardTables, ANameThatTheBoardCannotHoldIsRefused) {
  const Atelier a;
  Reussi(a, {"info", essai::Exemple("plaque.dxf")});
  a.Ecrit("OVELIN.ini", Atelier::Lit(a.Chemin("OVELIN.ini")) + "[table_Фреза]\r\nTB_SAV_31=80\r\n");
  AttendRefus(a, {"board", "tables", "check", "--table", "Фреза"}, "NomTable", "Фреза");
}

TEST(BoardFlash, WhatIsStoredIsReadBack) {
  const Atelier a;
  const std::string liste = Liste(40);
  const auto j = Reussi(a, {"board", "flash", a.Ecrit("liste.bin", liste)}).Json();
  EXPECT_EQ(j["bytes"], 1001);
  EXPECT_EQ(j["pages"], 32);
  EXPECT_EQ(j["records"], 40);
  Reussi(a, {"board", "read", "--length", "1001", "-o", a.Chemin("lu.bin")});
  EXPECT_EQ(Atelier::Lit(a.Chemin("lu.bin")), liste);
  EXPECT_EQ(Reussi(a, {"board", "read", "--address", "1000", "--length", "2"}).Json()["bytes"], "80 FF");
}

TEST(BoardFlash, ReadingGoesOnInTheNextBlock) {
  const Atelier a;
  const auto j = Reussi(a, {"board", "read", "--address", "65530", "--length", "20"}).Json();
  EXPECT_EQ(j["length"], 20);
  EXPECT_EQ(Reussi(a, {"board", "read", "--block", "31", "--address", "65530"}).Json()["length"], 6)
      << "there is no block behind the last one";
}

TEST(BoardFlash, AListThatIsTooLongIsRefusedWithHowManyFit) {
  const Atelier a;
  Reussi(a, {"board", "flash", a.Ecrit("une.bin", Liste(1))});
  AttendRefus(a, {"board", "flash", a.Ecrit("longue.bin", Liste(2700))}, "cli_flash_longue", " 2621");
  EXPECT_EQ(Reussi(a, {"board", "read", "--length", "1"}).Json()["bytes"], "07") << "nothing has been erased";
  Reussi(a, {"board", "flash", a.Ecrit("juste.bin", Liste(2621))});
}

TEST(BoardFlash, AFileThatIsNoListIsRefused) {
  const Atelier a;
  AttendRefus(a, {"board", "flash", a.Ecrit("coupee.bin", Liste(3, false))}, "cli_flash_liste", "coupee.bin");
  AttendRefus(a, {"board", "flash", a.Ecrit("vide.bin", "")}, "cli_flash_liste", "vide.bin");
  AttendRefus(a, {"board", "flash", a.Chemin("absente.bin")}, "lib110", "absente.bin");
}

TEST(BoardFlash, PagesThatAreNotConfirmedAreToldAsANumber) {
  const Atelier a;
  const std::string liste = a.Ecrit("liste.bin", Liste(40));
  AttendRefus(a, {"board", "flash", liste, "--fault", "5:garbage", "--fault", "7:late", "--fast"}, "cli_flash",
              " 2");
}

TEST(BoardFile, HasAnyNameInTheCurrentFolderAndLasts) {
  const Atelier a;
  const std::string dossier = a.Chemin("un dossier");
  fs::create_directory(dossier);
  const std::string nom = "ma carte \u00E9.bin";
  EXPECT_EQ(a.AppelleDans(dossier, {"board", "tables", "write", "2", "--board-file", nom}).etat, 0);
  EXPECT_TRUE(fs::exists(dossier + "/" + nom));
  EXPECT_FALSE(fs::exists(a.Chemin("carte.zenik")));
  const Retour r = a.AppelleDans(dossier, {"board", "tables", "--json", "--board-file", nom});
  EXPECT_EQ(r.Json()["tables"][2], "OVELIN");
}

TEST(BoardFile, AFileOfAnotherKindIsRefusedAndLeftAlone) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", essai::Carre);
  AttendRefus(a, {"board", "status", "--board-file", dxf}, "cli_carte_fichier", "c.dxf");
  EXPECT_EQ(Atelier::Lit(dxf), essai::Carre);
}

TEST(BoardFile, ADamagedOneIsToldAndKeptUnderAnotherName) {
  const Atelier a;
  Reussi(a, {"board", "tables", "write", "0"});
  const std::string bonne = Atelier::Lit(a.Chemin("carte.zenik"));
  for (const std::string& octets :
       {bonne.substr(0, 100), bonne + "x", bonne.substr(0, 20) + "?" + bonne.substr(21)}) {
    a.Ecrit("carte.zenik", octets);
    const Retour r = a.Appelle({"board", "tables", "--json"});
    EXPECT_EQ(r.etat, 0) << r.erreurs;
    EXPECT_EQ(r.Json()["tables"][0], "");
    EXPECT_NE(r.erreurs.find("carte.zenik.endommage"), std::string::npos) << r.erreurs;
    EXPECT_NE(r.erreurs.find("CarteZENIK=auto"), std::string::npos) << r.erreurs;
  }
  EXPECT_TRUE(fs::exists(a.Chemin("carte.zenik.endommage-3")));
}

TEST(BoardFile, OneThatCannotBeWrittenIsToldAndTheStatusSaysSo) {
  const Atelier a;
  Reussi(a, {"board", "tables", "write", "0"});
  ASSERT_EQ(chmod(a.Chemin("carte.zenik").c_str(), 0400), 0);
  Reussi(a, {"board", "tables"});
  AttendRefus(a, {"board", "tables", "write", "1"}, "Carte_fichier", "carte.zenik: Permission denied");
}

TEST(BoardFile, AFolderOrAPipeIsToldAndStays) {
  const Atelier a;
  fs::create_directory(a.Chemin("d"));
  ASSERT_EQ(mkfifo(a.Chemin("p").c_str(), 0600), 0);
  for (const char* nom : {"d", "p"}) {
    AttendRefus(a, {"board", "status", "--board-file", a.Chemin(nom)}, "Carte_fichier", a.Chemin(nom));
    EXPECT_TRUE(fs::exists(a.Chemin(nom)));
  }
}

TEST(BoardWire, SendsOneExchangeAndShowsIt) {
  const Atelier a;
  const auto j = Reussi(a, {"board", "wire", "R", "0", "0x00", "32"}).Json();
  EXPECT_EQ(j["request"].get<std::string>().substr(0, 17), "00 52 00 00 20 00");
  EXPECT_EQ(j["reply"].get<std::string>().substr(0, 17), "00 52 00 00 20 FF");
  for (const Appel& faux : std::vector<Appel>{{"VV"}, {"V", "256"}, {"V", "-1"}, {"V", "x"}, {"V", "0x"}}) {
    Appel appel{"board", "wire"};
    appel.insert(appel.end(), faux.begin(), faux.end());
    EXPECT_EQ(a.Appelle(appel).etat, 2) << faux.back();
  }
}

TEST(WireLog, HasTwoLinesForEachExchange) {
  const Atelier a;
  Reussi(a, {"board", "wire", "V", "--wire", a.Chemin("fil.log")});
  const std::string journal = Atelier::Lit(a.Chemin("fil.log"));
  EXPECT_EQ(std::count(journal.begin(), journal.end(), '\n'), 2);
  EXPECT_NE(journal.find(" > 00 56 00"), std::string::npos) << journal;
  EXPECT_NE(journal.find(" < 00 56 5A 45 4E 49 4B"), std::string::npos) << journal;
  EXPECT_TRUE(journal.ends_with(" 00 1\n")) << "the result stands behind the reply";
}

TEST(WireLog, IsNoFileOfTheCall) {
  const Atelier a;
  const std::string liste = a.Ecrit("liste.bin", Liste(2));
  AttendRefus(a, {"board", "flash", liste, "--wire", liste}, "cli_sortie", "liste.bin");
  AttendRefus(a, {"board", "flash", liste, "--board-file", liste}, "cli_sortie", "liste.bin");
  AttendRefus(a, {"board", "status", "--wire", a.Chemin("x"), "--board-file", a.Chemin("x")}, "cli_sortie", "x");
  EXPECT_EQ(Atelier::Lit(liste), Liste(2));
}

TEST(WireLog, ThatCannotBeWrittenIsTold) {
  const Atelier a;
  AttendRefus(a, {"board", "status", "--wire", a.Chemin("nulle/part.log")}, "lib125", "part.log: No such file");
}

TEST(Fault, AtAnExchangeIsALostAnswer) {
  const Atelier a;
  for (const char* faute : {"1:before", "1:behind", "1:late", "1:unplugged"}) {
    AttendRefus(a, {"board", "status", "--fast", "--fault", faute}, "cli_carte_echange", "carte");
  }
  EXPECT_EQ(a.Appelle({"board", "status", "--fault", "1:gone"}).etat, 2);
  EXPECT_EQ(a.Appelle({"board", "status", "--fault", "before"}).etat, 2);
}

TEST(Fault, AndItsLikeAreOfTheVirtualBoardAlone) {
  const Atelier a;
  for (const Appel& options : std::vector<Appel>{{"--fast"}, {"--fault", "1:late"}, {"--board-file", "x"}}) {
    Appel appel{"board", "status", "--set", "CarteZENIK=aucune"};
    appel.insert(appel.end(), options.begin(), options.end());
    AttendRefus(a, appel, "cli_carte_option", options[0] + " CarteZENIK=aucune");
  }
}

// A straight cut of 100 mm along Y and the ways to it.
std::string Trait() {
  return "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n0\n21\n100\n0\nENDSEC\n0\nEOF\n";
}

std::int32_t Lit32(const std::string& octets, std::size_t i) {
  std::uint32_t v = 0;
  for (std::size_t n = 4; n-- > 0;) v = v << 8U | static_cast<std::uint8_t>(octets[i + n]);
  return static_cast<std::int32_t>(v);
}

// Fields of the CSV, line by line behind the header.
std::vector<std::vector<std::string>> Lignes(const std::string& csv) {
  std::vector<std::vector<std::string>> lignes;
  std::istringstream texte(csv);
  std::string ligne;
  std::getline(texte, ligne);
  EXPECT_EQ(ligne, "X,Y,Z,dX,dY,dZ,Vitesse,Ticks,N,P,T");
  while (std::getline(texte, ligne)) {
    std::vector<std::string> champs;
    std::istringstream l(ligne);
    for (std::string champ; std::getline(l, champ, ',');) champs.push_back(champ);
    lignes.push_back(champs);
  }
  return lignes;
}

// Speeds below those that need a ramp: 10,000 ticks a second, so a row has 10,000 x length / speed of them.
TEST(PlanRecords, OfRowsWithoutRampHaveTheTicksOfTheirTime) {
  const Atelier a;
  const auto j = Reussi(a, {"plan", a.Ecrit("l.dxf", Trait()), "--rows", a.Chemin("l.csv"), "--records",
                            a.Chemin("l.bin"), "--set", "Combo_SAV_11=0", "--set", "TB_SAV_12=50", "--set",
                            "TB_SAV_13=50", "--set", "TB_SAV_14=50"})
                     .Json();
  const auto lignes = Lignes(Atelier::Lit(a.Chemin("l.csv")));
  const std::string records = Atelier::Lit(a.Chemin("l.bin"));
  ASSERT_EQ(records.size(), 37 * j["records"].get<std::size_t>());
  std::size_t r = 0;
  bool coupe = false;
  for (const auto& l : lignes) {
    ASSERT_EQ(l.size(), 11U);
    if (l[3] == "0" && l[4] == "0" && l[5] == "0") {
      EXPECT_EQ(l[7], "0");
      continue;
    }
    EXPECT_EQ(l[8] + l[9], "00");
    EXPECT_EQ(Lit32(records, r + 3), std::stoi(l[7]));
    EXPECT_EQ(Lit32(records, r + 11), 2 * std::abs(std::stoi(l[4])));
    EXPECT_EQ(records[r + 1], 'D');
    EXPECT_EQ(records.substr(r + 33, 4), std::string(4, '\0'));
    // 200 steps a mm: 100 mm of cut at 2 mm/s last 50 s.
    if (l[4] == "20000" && l[6] == "2") {
      coupe = true;
      EXPECT_EQ(l[7], "500000");
      EXPECT_EQ(l[10], "50");
    }
    r += 37;
  }
  EXPECT_TRUE(coupe) << Atelier::Lit(a.Chemin("l.csv"));
  EXPECT_NEAR(j["foreseen"].get<double>(), j["seconds"].get<double>(), 1e-3);
}

TEST(PlanRecords, WithRampsTakeLongerAndSayTheirLevels) {
  const Atelier a;
  const auto j =
      Reussi(a, {"plan", essai::Exemple("plaque.dxf"), "--rows", a.Chemin("p.csv"), "--set", "Vitesse_Mat_H=12"})
          .Json();
  EXPECT_GT(j["foreseen"].get<double>(), j["seconds"].get<double>());
  double somme = 0;
  bool rampe = false;
  for (const auto& l : Lignes(Atelier::Lit(a.Chemin("p.csv")))) {
    somme += std::stod(l[10]);
    rampe = rampe || (std::stoi(l[9]) > std::stoi(l[8]) && std::stoi(l[8]) > 0);
  }
  EXPECT_TRUE(rampe);
  EXPECT_NEAR(somme, j["foreseen"].get<double>(), 1e-3 * somme);
  EXPECT_FALSE(fs::exists(a.Chemin("carte.zenik.verrou"))) << "no board is opened";
}

TEST(PlanFlash, IsTheListThatTheBoardStores) {
  const Atelier a;
  const auto j = Reussi(a, {"plan", a.Ecrit("c.dxf", essai::Carre), "--records", a.Chemin("r.bin"), "--flash",
                            a.Chemin("f.bin")})
                     .Json();
  const std::string records = Atelier::Lit(a.Chemin("r.bin"));
  std::string attendue;
  for (std::size_t i = 0; i < records.size(); i += 37) {
    attendue += records.substr(i + 2, (static_cast<std::uint8_t>(records[i + 2]) & 32U) != 0 ? 31 : 25);
  }
  EXPECT_EQ(Atelier::Lit(a.Chemin("f.bin")), attendue + static_cast<char>(128));
  EXPECT_EQ(Reussi(a, {"board", "flash", a.Chemin("f.bin")}).Json()["records"], j["records"]);
}

TEST(PlanFlash, OfAJobThatDoesNotFitSaysHowManyRecordsDo) {
  const Atelier a;
  const std::string dessin = essai::Exemple("enseigne-texte.OVL");
  const Retour r = a.Appelle({"plan", dessin, "--json", "--set", "ProfPasse=-0.05", "--flash", a.Chemin("f.bin"),
                              "--rows", a.Chemin("f.csv")});
  EXPECT_EQ(r.etat, 1) << r.sortie;
  EXPECT_EQ(r.Json()["error"]["key"], "cli_flash_longue") << r.sortie;
  EXPECT_FALSE(fs::exists(a.Chemin("f.bin")));
  EXPECT_FALSE(fs::exists(a.Chemin("f.csv")));
}

TEST(PlanRecords, AreNoFileOfTheCall) {
  const Atelier a;
  const std::string dxf = a.Ecrit("c.dxf", essai::Carre);
  AttendRefus(a, {"plan", dxf, "--records", dxf}, "cli_sortie", "c.dxf");
  AttendRefus(a, {"plan", dxf, "--flash", dxf}, "cli_sortie", "c.dxf");
  AttendRefus(a, {"plan", dxf, "--records", a.Chemin("x"), "--flash", a.Chemin("x")}, "cli_sortie", "x");
  EXPECT_EQ(Atelier::Lit(dxf), essai::Carre);
}

}  // namespace
