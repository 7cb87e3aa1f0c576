#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "core/Fichiers.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;
using testing::ElementsAre;

mode_t Mode(const std::string& chemin) {
  struct stat etat {};
  stat(chemin.c_str(), &etat);
  return etat.st_mode & 07777U;
}

ino_t Numero(const std::string& chemin) {
  struct stat etat {};
  stat(chemin.c_str(), &etat);
  return etat.st_ino;
}

std::size_t NombreDeFichiers(const std::string& dossier) {
  std::size_t n = 0;
  for ([[maybe_unused]] const auto& f : std::filesystem::directory_iterator(dossier)) ++n;
  return n;
}

// The disk is full after `octets` bytes of a file, as far as this process can tell.
class DisquePlein {
 public:
  explicit DisquePlein(rlim_t octets) {
    avant_ = std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &limite_);
    rlimit basse = limite_;
    basse.rlim_cur = octets;
    setrlimit(RLIMIT_FSIZE, &basse);
  }
  ~DisquePlein() {
    setrlimit(RLIMIT_FSIZE, &limite_);
    std::signal(SIGXFSZ, avant_);
  }
  DisquePlein(const DisquePlein&) = delete;
  DisquePlein& operator=(const DisquePlein&) = delete;

 private:
  rlimit limite_{};
  void (*avant_)(int) = nullptr;
};

TEST(EcritFichierEntier, WritesAndReplacesAFile) {
  const std::string chemin = Dossier() + "/f.txt";
  EXPECT_EQ(EcritFichierEntier(chemin, std::string("un\0deux", 7)), "");
  EXPECT_EQ(LitFichierEssai(chemin), std::string("un\0deux", 7));
  EXPECT_EQ(EcritFichierEntier(chemin, "trois"), "");
  EXPECT_EQ(LitFichierEssai(chemin), "trois");
  EXPECT_EQ(EcritFichierEntier(chemin, "", Garantie::Processus), "");
  EXPECT_EQ(LitFichierEssai(chemin), "");
}

TEST(EcritFichierEntier, KeepsTheModeOfTheFileThatWasThere) {
  const std::string chemin = EcritFichierEssai("f.txt", "a");
  chmod(chemin.c_str(), 0640);
  EXPECT_EQ(EcritFichierEntier(chemin, "b"), "");
  EXPECT_EQ(Mode(chemin), 0640U);
}

TEST(EcritFichierEntier, GivesANewFileTheModeOfTheUsersMask) {
  const mode_t masque = umask(027);
  const std::string chemin = Dossier() + "/neuf.txt";
  EXPECT_EQ(EcritFichierEntier(chemin, "a"), "");
  umask(masque);
  EXPECT_EQ(Mode(chemin), 0640U);
}

TEST(EcritFichierEntier, LeavesNothingBesideTheFile) {
  const std::string dossier = Dossier() + "/seul";
  std::filesystem::create_directory(dossier);
  EXPECT_EQ(EcritFichierEntier(dossier + "/f.txt", "a"), "");
  EXPECT_EQ(NombreDeFichiers(dossier), 1U);
}

TEST(EcritFichierEntier, DoesNotWriteContentThatIsThere) {
  const std::string chemin = EcritFichierEssai("f.txt", "meme");
  const ino_t avant = Numero(chemin);
  EXPECT_EQ(EcritFichierEntier(chemin, "meme"), "");
  EXPECT_EQ(Numero(chemin), avant);
  EXPECT_EQ(EcritFichierEntier(chemin, "Meme"), "");
  EXPECT_EQ(LitFichierEssai(chemin), "Meme");
}

TEST(EcritFichierEntier, RefusesAReadOnlyFileAlsoForRoot) {
  const std::string chemin = EcritFichierEssai("f.txt", "a");
  chmod(chemin.c_str(), 0444);
  EXPECT_EQ(EcritFichierEntier(chemin, "b"), "Permission denied");
  EXPECT_EQ(EcritFichierEntier(chemin, "a"), "Permission denied");
  EXPECT_EQ(EcritureRefusee(chemin), "Permission denied");
  EXPECT_TRUE(LectureSeule(chemin));
  EXPECT_EQ(LitFichierEssai(chemin), "a");
}

TEST(EcritFichierEntier, LeavesTheOldFileWholeOnAFullDisk) {
  const std::string dossier = Dossier() + "/plein";
  std::filesystem::create_directory(dossier);
  const std::string chemin = dossier + "/f.txt";
  ASSERT_EQ(EcritFichierEntier(chemin, "ancien"), "");
  {
    const DisquePlein plein(100);
    EXPECT_EQ(EcritFichierEntier(chemin, std::string(5000, 'x')), "File too large");
  }
  EXPECT_EQ(LitFichierEssai(chemin), "ancien");
  EXPECT_EQ(NombreDeFichiers(dossier), 1U);
}

TEST(EcritFichierEntier, GivesTheSystemsReason) {
  EXPECT_EQ(EcritFichierEntier(Dossier() + "/absent/f.txt", "a"), "No such file or directory");
  EXPECT_EQ(EcritFichierEntier(Dossier(), "a"), "Is a directory");
  EXPECT_EQ(EcritFichierEntier("", "a"), "No such file or directory");
  EXPECT_EQ(EcritFichierEntier(EcritFichierEssai("f", "") + "/g", "a"), "Not a directory");
}

TEST(EcritFichierEntier, WritesThroughALink) {
  const std::string cible = EcritFichierEssai("cible.txt", "a");
  const std::string lien = Dossier() + "/lien.txt";
  std::filesystem::create_symlink(cible, lien);
  EXPECT_EQ(EcritFichierEntier(lien, "b"), "");
  EXPECT_TRUE(std::filesystem::is_symlink(lien));
  EXPECT_EQ(LitFichierEssai(cible), "b");
}

TEST(EcritFichierEntier, WritesToADeviceWithoutReplacingIt) {
  EXPECT_EQ(EcritFichierEntier("/dev/full", "a"), "No space left on device");
  EXPECT_EQ(EcritFichierEntier("/dev/null", "a"), "");
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(EcritFichierEntier, WritesIntoTheCurrentFolder) {
  const std::filesystem::path avant = std::filesystem::current_path();
  std::filesystem::current_path(Dossier());
  EXPECT_EQ(EcritFichierEntier("local.txt", "a"), "");
  std::filesystem::current_path(avant);
  EXPECT_EQ(LitFichierEssai(Dossier() + "/local.txt"), "a");
}

TEST(EcritureRefusee, AllowsANewFileAndAWritableOne) {
  EXPECT_EQ(EcritureRefusee(Dossier() + "/neuf"), "");
  EXPECT_EQ(EcritureRefusee(EcritFichierEssai("f", "")), "");
}

TEST(LitFichierEntier, ReadsTheWholeFile) {
  std::string contenu(100000, 'x');
  contenu[5] = '\0';
  const auto lu = LitFichierEntier(EcritFichierEssai("f", contenu));
  ASSERT_TRUE(lu);
  EXPECT_EQ(*lu, contenu);
}

TEST(LitFichierEntier, ReadsAFileWhoseSizeTheSystemDoesNotTell) {
  const auto lu = LitFichierEntier("/proc/self/status");
  ASSERT_TRUE(lu);
  EXPECT_NE(lu->find("Name:"), std::string::npos);
}

TEST(LitFichierEntier, GivesTheSystemsReason) {
  ErreurSysteme raison = "avant";
  EXPECT_FALSE(LitFichierEntier(Dossier() + "/absent", &raison));
  EXPECT_EQ(raison, "No such file or directory");
  EXPECT_FALSE(LitFichierEntier(Dossier(), &raison));
  EXPECT_EQ(raison, "Is a directory");
  EXPECT_TRUE(LitFichierEntier(EcritFichierEssai("f", ""), &raison));
  EXPECT_EQ(raison, "");
}

TEST(LitFichierEntier, RefusesPipesAndDevicesInsteadOfWaiting) {
  const std::string tube = Dossier() + "/tube";
  ASSERT_EQ(mkfifo(tube.c_str(), 0600), 0);
  EXPECT_FALSE(LitFichierEntier(tube));
  EXPECT_FALSE(LitFichierEntier("/dev/zero"));
}

TEST(FichierExiste, IsTrueForRegularFilesOnly) {
  EXPECT_TRUE(FichierExiste(EcritFichierEssai("f", "")));
  EXPECT_FALSE(FichierExiste(Dossier()));
  EXPECT_FALSE(FichierExiste(Dossier() + "/absent"));
}

TEST(LectureSeule, IsFalseForAMissingFile) { EXPECT_FALSE(LectureSeule(Dossier() + "/absent")); }

TEST(DossierDe, GivesTheFolderWithoutItsSeparator) {
  EXPECT_EQ(DossierDe("/a/b.c/d.ovl"), "/a/b.c");
  EXPECT_EQ(DossierDe("/d.ovl"), "/");
  EXPECT_EQ(DossierDe("d.ovl"), "");
}

TEST(NomDe, GivesTheNameWithoutTheFolder) {
  EXPECT_EQ(NomDe("/a/b.c/d.ovl"), "d.ovl");
  EXPECT_EQ(NomDe("d.ovl"), "d.ovl");
  EXPECT_EQ(NomDe("/a/"), "");
}

TEST(NomSansExtension, TakesOffTheLastExtensionOfTheNameAlone) {
  EXPECT_EQ(NomSansExtension("/a/b.c/d.e.ovl"), "/a/b.c/d.e");
  EXPECT_EQ(NomSansExtension("/a/b.c/d"), "/a/b.c/d");
  EXPECT_EQ(NomSansExtension("d.ovl"), "d");
}

TEST(ExtensionDe, IsUpperCaseAndWithoutThePoint) {
  EXPECT_EQ(ExtensionDe("/a/b.c/d.ovl"), "OVL");
  EXPECT_EQ(ExtensionDe("/a/b.c/d"), "");
  EXPECT_EQ(ExtensionDe("x.tar.gz"), "GZ");
  EXPECT_EQ(ExtensionDe("x."), "");
}

TEST(ListeFichiers, GivesTheNamesSortedHiddenOnesIncluded) {
  for (const char* nom : {"b.OVL", "a.ovl", ".cache.Ovl", "c.dxf", "ovl"}) EcritFichierEssai(nom, "");
  std::filesystem::create_directory(Dossier() + "/dossier.ovl");
  EXPECT_THAT(ListeFichiers(Dossier(), "OVL"), ElementsAre(".cache.Ovl", "a.ovl", "b.OVL"));
  EXPECT_TRUE(ListeFichiers(Dossier() + "/absent", "OVL").empty());
}

}  // namespace
