// A file as lines, each judged.
#include <filesystem>
#include <fstream>
#include <regex>

#include "gcode/Programme.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;
namespace fs = std::filesystem;

std::vector<std::string> Lignes(const Programme& p) {
  std::vector<std::string> lignes;
  for (std::size_t i = 0; i < p.NombreLignes(); ++i) lignes.emplace_back(p.Ligne(i));
  return lignes;
}

TEST(Programme, LineEndsAndTheByteOrderMarkAreNoPartOfALine) {
  const Programme p("\xEF\xBB\xBFG01 X1\r\nX2\rX3\n\nX4");
  EXPECT_EQ(Lignes(p), (std::vector<std::string>{"G01 X1", "X2", "X3", "", "X4"}));
}

TEST(Programme, AnEmptyFileHasNoLine) {
  EXPECT_TRUE(Programme("").Vide());
  EXPECT_EQ(Programme("").Comptes(), ComptesProgramme{});
}

TEST(Programme, CountsEachKindAndTheFirstBadLine) {
  const Programme p("G01 X1\n; note\n(note)\n\nG91.1\nG02 X1\n");
  const ComptesProgramme& c = p.Comptes();
  EXPECT_EQ(c.valides, 2U);
  EXPECT_EQ(c.douteuses, 1U);
  EXPECT_EQ(c.commentaires, 2U);
  EXPECT_EQ(c.refusees, 2U) << "an empty line is no comment";
  EXPECT_EQ(c.premiereRefusee, 4U);
  EXPECT_EQ(p.JugementDe(4), Jugement::Douteuse);
  EXPECT_EQ(p.JugementDe(5), Jugement::Refusee);
}

TEST(Programme, ShowsTextOfBothCharacterSets) {
  const Programme p("(\xE9t\xE9)\n(\xC3\xA9t\xC3\xA9)\n");
  EXPECT_EQ(p.Texte(0), "(été)");
  EXPECT_EQ(p.Texte(1), "(été)");
}

TEST(Programme, HoldsNulBytesAndALineOfAMegabyte) {
  std::string octets("X1\0Y2\n", 6);
  octets += std::string(1'000'000, '(') + "\nM02";
  const Programme p(octets);
  ASSERT_EQ(p.NombreLignes(), 3U);
  EXPECT_EQ(p.Ligne(0).size(), 5U);
  EXPECT_EQ(p.Ligne(1).size(), 1'000'000U);
  EXPECT_EQ(p.JugementDe(1), Jugement::Commentaire);
  EXPECT_EQ(p.Ligne(2), "M02");
}

TEST(LitProgramme, RefusesWithTheReasonOfTheSystem) {
  EXPECT_EQ(LitProgramme(Dossier()).refus, "Is a directory");
  EXPECT_EQ(LitProgramme(Dossier() + "/rien.nc").refus, "No such file or directory");
  const std::string grand = EcritFichierEssai("grand.nc", "");
  fs::resize_file(grand, (std::uintmax_t{1} << 31) + 1);  // no byte of it is on the disk
  EXPECT_EQ(LitProgramme(grand).refus, "File too large");
}

TEST(LitProgramme, ReadsAFileWithBlanksAndAccentsInItsName) {
  const std::string chemin = EcritFichierEssai("pièce n° 1.nc", "G71\nG01 X1\n");
  const ProgrammeLu lu = LitProgramme(chemin);
  EXPECT_EQ(lu.refus, "");
  EXPECT_EQ(lu.programme.Comptes().valides, 2U);
}

// The same judgement by patterns, word by word.
enum class Sorte { Valide, Commentaire, Refusee };
Sorte ParMotif(const std::string& ligne) {
  static const std::string Nombre = R"([ \t]*[-+]?[ \t]*(?:[0-9]|\.[ \t]*[0-9]))";
  static const std::regex Motif(
      "(?:[NST][^A-Z]*|[FPXYZ]" + Nombre + "[^A-Z]*" +
      R"(|G[ \t]*0*(?:0|1|4|20|21|70|71|90|91|92)(?:\.[0-4][0-9]*|\.)?(?![0-9.])[^A-Z]*)" +
      R"(|M[ \t]*0*(?:2|3|5|6|7|9|30)(?:\.[0-4][0-9]*|\.)?(?![0-9.])[^A-Z]*)+)");
  if (ligne.starts_with(';') || ligne.starts_with('(')) return Sorte::Commentaire;
  return std::regex_match(ligne, Motif) ? Sorte::Valide : Sorte::Refusee;
}

std::vector<fs::path> ProgrammesDuCorpus() {
  std::vector<fs::path> fichiers;
  for (const auto& entree : fs::directory_iterator(DossierCorpus() + "/GCODE")) fichiers.push_back(entree.path());
  return fichiers;
}

TEST(Programme, EveryProgramOfOthersIsJudgedAsByPatterns) {
  if (!CorpusPresent()) GTEST_SKIP() << CorpusAbsent;
  std::size_t fichiers = 0;
  for (const fs::path& chemin : ProgrammesDuCorpus()) {
    const ProgrammeLu lu = LitProgramme(chemin.string());
    ASSERT_EQ(lu.refus, "") << chemin;
    std::ifstream f(chemin, std::ios::binary);
    ComptesProgramme attendu;
    std::size_t n = 0;
    for (std::string ligne; std::getline(f, ligne);) {
      if (ligne.ends_with('\r')) ligne.pop_back();
      ++n;
      const Sorte sorte = ParMotif(ligne);
      if (sorte == Sorte::Valide) ++attendu.valides;
      if (sorte == Sorte::Commentaire) ++attendu.commentaires;
      if (sorte == Sorte::Refusee && ++attendu.refusees == 1) attendu.premiereRefusee = n;
    }
    EXPECT_EQ(lu.programme.NombreLignes(), n) << chemin;
    EXPECT_EQ(lu.programme.Comptes(), attendu)
        << chemin << " valid " << lu.programme.Comptes().valides << "/" << attendu.valides << " comments "
        << lu.programme.Comptes().commentaires << "/" << attendu.commentaires << " bad "
        << lu.programme.Comptes().refusees << "/" << attendu.refusees;
    ++fichiers;
  }
  EXPECT_EQ(fichiers, 13U);
}

}  // namespace
}  // namespace essai
