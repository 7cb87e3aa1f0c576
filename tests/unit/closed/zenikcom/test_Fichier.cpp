// What outlives the program: the board's file.
#include <sys/stat.h>

#include <algorithm>

#include "closed/zenikcom/virtual/Memoire.h"
#include "tests/unit/closed/zenikcom/Banc.h"

namespace {

using namespace essai;
using zenikcom::Memoire;

// What a board with a table and a page in block 3 leaves.
void Remplit(const std::string& fichier) {
  Banc b({.fichier = fichier});
  b.Table(2, "Acier", 2, 7);
  TamponOctets t = Requete('W', {3, 0, 64});
  for (std::size_t i = 5; i < 37; ++i) t[i] = static_cast<std::uint8_t>(i);
  b.Envoie(t);
  b.liaison->Ferme();
}

TEST(FichierCarte, TablesAndFlashMemoryComeBack) {
  const DossierEssai d;
  Remplit(d.Chemin("carte"));
  Banc b({.fichier = d.Chemin("carte")});
  EXPECT_EQ(b.Envoie('T', {0}).t[3], 2);
  const Reponse table = b.Envoie('T', {3, 2});
  EXPECT_EQ(table.t[4], 'A');
  EXPECT_EQ(table.t[27], 2);
  EXPECT_EQ(table.t[28], 7);
  const Reponse page = b.Envoie('R', {3, 0, 64});
  for (std::size_t i = 5; i < 37; ++i) EXPECT_EQ(page.t[i], i);
  EXPECT_EQ(b.Envoie('R', {3, 0, 32}).t[5], 255);
  EXPECT_EQ(b.carte->Fichier().raison, "");
}

TEST(FichierCarte, IsWrittenOnceARunOfWritesIsOver) {
  const DossierEssai d;
  Banc b({.fichier = d.Chemin("carte")});
  b.Etat();
  EXPECT_FALSE(std::filesystem::exists(d.Chemin("carte"))) << "nothing to keep yet";
  b.Table(0, "Bois", 1, 5);
  b.Envoie('E', {0});
  EXPECT_FALSE(std::filesystem::exists(d.Chemin("carte")));
  b.Etat();
  EXPECT_TRUE(std::filesystem::exists(d.Chemin("carte")));
}

TEST(FichierCarte, TheEndOfTheBoardWritesItToo) {
  const DossierEssai d;
  {
    Banc b({.fichier = d.Chemin("carte")});
    b.Table(0, "Bois", 1, 5);
  }
  EXPECT_TRUE(std::filesystem::exists(d.Chemin("carte")));
}

TEST(FichierCarte, LeavesNothingElseInTheFolder) {
  const DossierEssai d;
  Remplit(d.Chemin("carte"));
  std::vector<std::string> noms;
  for (const auto& e : std::filesystem::directory_iterator(d.Chemin(""))) noms.push_back(e.path().filename());
  std::sort(noms.begin(), noms.end());
  EXPECT_EQ(noms, (std::vector<std::string>{"carte", "carte.verrou"}));
}

TEST(FichierCarte, HoldsOnlyBlocksInWhichSomethingStands) {
  const DossierEssai d;
  Remplit(d.Chemin("carte"));
  // Mark, default, 4 tables of 3 x 33, the set of blocks, one block, the checksum.
  EXPECT_EQ(std::filesystem::file_size(d.Chemin("carte")), 8U + 1 + 396 + 4 + 65'536 + 4);
}

// Each way of being damaged: kept aside under another name, told, and a new board begins.
void Endommage(const std::string& octets, const std::string& raison) {
  const DossierEssai d;
  const std::string fichier = d.Chemin("carte");
  EcritFichier(fichier, octets);
  {
    Banc b({.fichier = fichier});
    const auto etat = b.carte->Fichier();
    EXPECT_EQ(etat.misDeCote, fichier + ".endommage");
    EXPECT_NE(etat.raison.find(raison), std::string::npos) << etat.raison;
    EXPECT_EQ(b.Envoie('T', {3, 0}).t[4], 255) << "a new board";
    EXPECT_EQ(LitFichier(fichier + ".endommage"), octets);
    b.Table(0, "Bois", 1, 5);
  }
  Banc b({.fichier = fichier});
  EXPECT_EQ(b.Envoie('T', {3, 0}).t[4], 'B');
  EXPECT_EQ(b.carte->Fichier().raison, "");
}

std::string OctetsBons() {
  const DossierEssai d;
  Remplit(d.Chemin("carte"));
  return LitFichier(d.Chemin("carte"));
}

TEST(FichierEndommage, CutAnywhereIsSetAside) {
  const std::string bons = OctetsBons();
  for (const std::size_t taille : {std::size_t{9}, std::size_t{300}, std::size_t{412}, bons.size() - 1}) {
    SCOPED_TRACE(taille);
    Endommage(bons.substr(0, taille), "cut off");
  }
}

TEST(FichierEndommage, LongerThanItSaysIsSetAside) { Endommage(OctetsBons() + "x", "longer"); }

TEST(FichierEndommage, AWrongByteIsSetAside) {
  std::string octets = OctetsBons();
  octets[200] = static_cast<char>(octets[200] ^ 1);
  Endommage(octets, "checksum");
}

TEST(FichierEndommage, AnotherKindOfFileIsSetAside) {
  Endommage("", "not a file of the virtual board");
  Endommage(std::string(5'000'000, 'x'), "not a file of the virtual board");
}

TEST(FichierEndommage, TheSecondOneGetsAnotherName) {
  const DossierEssai d;
  EcritFichier(d.Chemin("carte"), "un");
  { const Banc premier({.fichier = d.Chemin("carte")}); }
  EcritFichier(d.Chemin("carte"), "deux");
  Banc b({.fichier = d.Chemin("carte")});
  EXPECT_EQ(b.carte->Fichier().misDeCote, d.Chemin("carte.endommage-2"));
  EXPECT_EQ(LitFichier(d.Chemin("carte.endommage")), "un");
  EXPECT_EQ(LitFichier(d.Chemin("carte.endommage-2")), "deux");
}

TEST(FichierCarte, OneThatCannotBeWrittenIsToldAndTheBoardGoesOn) {
  const DossierEssai d;
  Remplit(d.Chemin("carte"));
  const std::string avant = LitFichier(d.Chemin("carte"));
  chmod(d.Chemin("carte").c_str(), 0444);
  Banc b({.fichier = d.Chemin("carte")});
  b.Table(0, "Bois", 1, 5);
  EXPECT_EQ(b.Etat().Etat(), 2);
  EXPECT_NE(b.carte->Fichier().raison, "");
  EXPECT_EQ(LitFichier(d.Chemin("carte")), avant);
  EXPECT_EQ(b.Envoie('T', {3, 0}).t[4], 'B');
}

TEST(FichierCarte, AFolderThatIsNotThereIsTold) {
  const DossierEssai d;
  Banc b({.fichier = d.Chemin("absent/carte")});
  EXPECT_EQ(b.carte->Fichier().raison, "");
  b.Table(0, "Bois", 1, 5);
  b.Etat();
  EXPECT_NE(b.carte->Fichier().raison, "");
}

TEST(FichierCarte, AFolderOfThatNameIsLeftAlone) {
  const DossierEssai d;
  std::filesystem::create_directory(d.Chemin("carte"));
  {
    Banc b({.fichier = d.Chemin("carte")});
    EXPECT_NE(b.carte->Fichier().raison, "");
    b.Table(0, "Bois", 1, 5);
  }
  EXPECT_TRUE(std::filesystem::is_directory(d.Chemin("carte")));
}

TEST(FichierCarte, APipeOfThatNameIsLeftAlone) {
  const DossierEssai dossier;
  const std::string chemin = dossier.Chemin("carte");
  ASSERT_EQ(mkfifo(chemin.c_str(), 0600), 0);
  const auto carte = zenikcom::CreeCarteVirtuelle({.fichier = chemin, .rapide = true});
  ASSERT_NE(carte, nullptr);
  EXPECT_EQ(carte->Fichier().misDeCote, "");
  EXPECT_EQ(carte->Fichier().raison, "not a regular file");
  EXPECT_TRUE(std::filesystem::is_fifo(chemin));
}

TEST(FichierCarte, ASecondBoardOnTheSameFileIsRefused) {
  const DossierEssai d;
  Banc b({.fichier = d.Chemin("carte")});
  ASSERT_NE(b.carte, nullptr);
  EXPECT_EQ(zenikcom::CreeCarteVirtuelle({.fichier = d.Chemin("carte")}), nullptr);
  EXPECT_NE(zenikcom::CreeCarteVirtuelle({.fichier = d.Chemin("autre")}), nullptr);
  b.liaison.reset();
  b.carte.reset();
  EXPECT_NE(zenikcom::CreeCarteVirtuelle({.fichier = d.Chemin("carte")}), nullptr);
}

TEST(Memoire, ReadsBackWhatItGives) {
  Memoire memoire;
  memoire.defaut = 3;
  memoire.tables[1][2][32] = 9;
  const std::array<std::uint8_t, 3> octets{1, 2, 3};
  memoire.EcritPage(31, 65'534, octets);  // comes round to the block's beginning
  EXPECT_EQ(memoire.Octet(31, 65'535), 2);
  EXPECT_EQ(memoire.Octet(31, 0), 3);
  std::string raison;
  EXPECT_EQ(Memoire::Lit(memoire.Octets(), raison), memoire);
}

TEST(Memoire, ABlockThatIsErasedTakesNoRoom) {
  Memoire memoire;
  const std::string vide = memoire.Octets();
  memoire.EcritPage(0, 0, std::array<std::uint8_t, 1>{255});
  EXPECT_EQ(memoire.Octets(), vide);
}

}  // namespace
