// Exports through the library into real folders: many files, a full disk, files that may not be written.
#include <sys/mount.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/traces/Bibliotheque.h"

namespace essai {
namespace {

using namespace ovelin;
namespace fs = std::filesystem;

// Open lines of two points, the n-th at that height.
void Lignes(int nombre) {
  Code2 code = CodeAucun;
  for (int i = 0; i < nombre; ++i) {
    code = CodeSuivant(code);
    AjouteSequence(code.Texte(), {{0, static_cast<float>(i)}, {10, static_cast<float>(i)}});
  }
  RecalculDecalages();
}

std::vector<std::string> Noms(const std::string& dossier) {
  std::vector<std::string> noms;
  for (const auto& e : fs::directory_iterator(dossier)) noms.push_back(e.path().filename().string());
  std::sort(noms.begin(), noms.end());
  return noms;
}

// A disk of that many bytes, where this user may mount one.
class PetitDisque {
 public:
  explicit PetitDisque(const char* taille) : dossier_(Dossier() + "/disque") {
    fs::create_directory(dossier_);
    monte_ = mount("tmpfs", dossier_.c_str(), "tmpfs", 0, taille) == 0;
  }
  ~PetitDisque() {
    if (monte_) umount2(dossier_.c_str(), MNT_DETACH);
  }
  PetitDisque(const PetitDisque&) = delete;
  PetitDisque& operator=(const PetitDisque&) = delete;
  [[nodiscard]] bool Monte() const { return monte_; }
  [[nodiscard]] const std::string& Ou() const { return dossier_; }

 private:
  std::string dossier_;
  bool monte_ = false;
};

TEST(ExportFichiers, AThousandPathsAreAThousandFilesThatComeBack) {
  Lignes(1000);
  const std::string dossier = Dossier() + "/export";
  fs::create_directory(dossier);
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Exporter", "lib004");
  EXPECT_TRUE(Exporte(dossier + "/plaque.dat", 0));
  const std::vector<std::string> noms = Noms(dossier);
  EXPECT_EQ(noms.size(), 1000U);
  EXPECT_EQ(noms.front(), "plaque001.dat");
  std::vector<PointTrace> points;
  float x0 = 0, x1 = 0, y0 = 0, y1 = 0;
  std::string message;
  ASSERT_EQ(pathwerk::LireFichier(points, dossier + "/plaque1000.dat", x0, x1, y0, y1, message), 2) << message;
  EXPECT_EQ(y0, 999);
  EXPECT_EQ(y1, 999);
  EXPECT_EQ(x1, 10);
}

TEST(ExportFichiers, AFullDiskIsToldAndWhatWasThereStays) {
  const PetitDisque disque("size=64k");
  if (!disque.Monte()) GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
  const std::string chemin = disque.Ou() + "/plein.dxf";
  Lignes(10);
  Attend("F_Exporter", "lib002");
  ASSERT_TRUE(Exporte(chemin, 0));
  const std::string avant = LitFichierEssai(chemin);
  Doc = Document{};
  Lignes(2000);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte(chemin, 0));
  EXPECT_THAT(Boites().back().texte, testing::EndsWith("plein.dxf: No space left on device"));
  EXPECT_EQ(LitFichierEssai(chemin), avant);
  EXPECT_EQ(Noms(disque.Ou()), std::vector<std::string>{"plein.dxf"});
}

TEST(ExportFichiers, ADiskThatFillsUpAmongManyFilesNamesTheOneAndKeepsThoseBeforeIt) {
  const PetitDisque disque("size=64k");
  if (!disque.Monte()) GTEST_SKIP() << "no small disk can be mounted here: " << std::strerror(errno);
  Lignes(1000);
  Attend("F_Exporter", "lib003", Reponse::Ok);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte(disque.Ou() + "/a.dat", 0));
  const std::vector<std::string> noms = Noms(disque.Ou());
  ASSERT_FALSE(noms.empty());
  ASSERT_LT(noms.size(), 1000U);
  EXPECT_THAT(Boites().back().texte,
              testing::HasSubstr(NomDe(CheminNumerote("a.dat", std::ssize(noms) + 1)) + ": "));
  for (const std::string& nom : noms) {
    EXPECT_GT(LitFichierEssai(disque.Ou() + "/" + nom).size(), 10U) << nom << " is not whole";
  }
}

TEST(ExportFichiers, AFileThatMayNotBeWrittenIsToldAndStays) {
  Lignes(1);
  const std::string chemin = EcritFichierEssai("ferme.dxf", "avant");
  ASSERT_EQ(chmod(chemin.c_str(), 0444), 0);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte(chemin, 0));
  EXPECT_THAT(Boites().back().texte, testing::EndsWith("ferme.dxf: Permission denied"));
  EXPECT_EQ(LitFichierEssai(chemin), "avant");
}

TEST(ExportFichiers, AFolderThatIsNotThereIsTold) {
  Lignes(1);
  Attend("F_Representation", "lib125");
  EXPECT_FALSE(Exporte(Dossier() + "/absent/a.dat", 0));
  EXPECT_THAT(Boites().back().texte, testing::EndsWith("a.dat: No such file or directory"));
  EXPECT_FALSE(fs::exists(Dossier() + "/absent"));
}

}  // namespace
}  // namespace essai
