#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "base/Fichiers.h"
#include "tests/support/DossierEssai.h"

namespace {

namespace fs = std::filesystem;

class Fichiers : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Chemin(const std::string& nom) const { return dossier_.Chemin(nom); }
  [[nodiscard]] static std::string Octets(const std::string& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
  }
  [[nodiscard]] std::ptrdiff_t Nombre() const {
    return std::distance(fs::directory_iterator(dossier_.Chemin()), fs::directory_iterator());
  }

  essai::DossierEssai dossier_;
};

TEST_F(Fichiers, WhatWasWrittenIsReadAndNothingElseLies) {
  const std::string octets("a\0b\r\n", 5);
  ASSERT_EQ(base::EcritFichier(Chemin("f"), octets), 0);
  std::string lus = "old";
  ASSERT_EQ(base::LitFichier(Chemin("f"), lus), 0);
  EXPECT_EQ(lus, octets);
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Fichiers, AFileWhoseSizeIsNotAnnouncedIsReadWhole) {
  std::string lus;
  ASSERT_EQ(base::LitFichier("/proc/self/status", lus), 0);
  EXPECT_TRUE(lus.starts_with("Name:"));
  EXPECT_GT(lus.size(), 100U);
}

TEST_F(Fichiers, OfALongerFileTheFirstBytesAlone) {
  std::ofstream(Chemin("long")) << "abcdefgh";
  std::string octets;
  ASSERT_EQ(base::LitFichier(Chemin("long"), octets, 5), 0);
  EXPECT_EQ(octets, "abcde");
  ASSERT_EQ(base::LitFichier(Chemin("long"), octets, 8), 0);
  EXPECT_EQ(octets, "abcdefgh");
  ASSERT_EQ(base::LitFichier(Chemin("long"), octets, 100), 0);
  EXPECT_EQ(octets, "abcdefgh");
  // Its size is not announced.
  ASSERT_EQ(base::LitFichier("/proc/self/status", octets, 5), 0);
  EXPECT_EQ(octets, "Name:");
}

TEST_F(Fichiers, WhatIsNoFileIsRefusedByItsReason) {
  std::string lus = "old";
  EXPECT_EQ(base::LitFichier(Chemin("absent"), lus), ENOENT);
  EXPECT_EQ(lus, "");
  EXPECT_EQ(base::LitFichier(dossier_.Chemin(), lus), EISDIR);
  ASSERT_EQ(::mkfifo(Chemin("tube").c_str(), 0600), 0);
  EXPECT_EQ(base::LitFichier(Chemin("tube"), lus), EINVAL);
  EXPECT_EQ(base::EcritFichier(dossier_.Chemin(), "a"), EISDIR);
  EXPECT_EQ(base::EcritFichier("", "a"), ENOENT);
}

TEST_F(Fichiers, AFileThatNobodyMayWriteStaysAsItWas) {
  ASSERT_EQ(base::EcritFichier(Chemin("f"), "old"), 0);
  ASSERT_EQ(::chmod(Chemin("f").c_str(), 0444), 0);
  EXPECT_EQ(base::EcritFichier(Chemin("f"), "new"), EACCES);
  EXPECT_EQ(Octets(Chemin("f")), "old");
  EXPECT_EQ(Nombre(), 1);
}

TEST_F(Fichiers, ModeAndLinkStay) {
  ASSERT_EQ(base::EcritFichier(Chemin("f"), "old"), 0);
  ASSERT_EQ(::chmod(Chemin("f").c_str(), 0640), 0);
  fs::create_symlink(Chemin("f"), Chemin("lien"));
  ASSERT_EQ(base::EcritFichier(Chemin("lien"), "new"), 0);
  EXPECT_TRUE(fs::is_symlink(Chemin("lien")));
  EXPECT_EQ(Octets(Chemin("f")), "new");
  struct stat etat {};
  ASSERT_EQ(::stat(Chemin("f").c_str(), &etat), 0);
  EXPECT_EQ(etat.st_mode & 07777U, 0640U);
}

TEST_F(Fichiers, AFullDeviceSaysSo) {
  EXPECT_EQ(base::EcritFichier("/dev/full", "a"), ENOSPC);
  EXPECT_EQ(base::TexteErreur(ENOSPC), "No space left on device");
  EXPECT_EQ(base::TexteErreur(0), "");
}

TEST_F(Fichiers, WhatIsAppendedStandsBehindWhatWasThere) {
  ASSERT_EQ(base::AjouteAuFichier(Chemin("f"), "one\n"), 0);
  ASSERT_EQ(base::AjouteAuFichier(Chemin("f"), "two\n"), 0);
  EXPECT_EQ(Octets(Chemin("f")), "one\ntwo\n");
}

TEST_F(Fichiers, AnAppendingThatFindsNoRoomLeavesTheFileAsItWas) {
  ASSERT_EQ(base::AjouteAuFichier(Chemin("f"), "one\n"), 0);
  const auto sansPlace = [this] {
    ::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit six { 6, 6 };  // bytes: two of the next four get in
    ::setrlimit(RLIMIT_FSIZE, &six);
    const int erreur = base::AjouteAuFichier(Chemin("f"), "two\n");
    ::_exit(erreur == EFBIG && Octets(Chemin("f")) == "one\n" ? 0 : 1);
  };
  EXPECT_EXIT(sansPlace(), testing::ExitedWithCode(0), "");
}

TEST_F(Fichiers, AnAppendingToAFullDeviceOrAFolderSaysSo) {
  EXPECT_EQ(base::AjouteAuFichier("/dev/full", "x"), ENOSPC);
  EXPECT_EQ(base::AjouteAuFichier(dossier_.Chemin(), "x"), EISDIR);
}

TEST(Noms, FolderNameAndExtensionOfAPath) {
  EXPECT_EQ(base::DossierDe("/a/b.dxf"), "/a");
  EXPECT_EQ(base::DossierDe("/b"), "/");
  EXPECT_EQ(base::DossierDe("b"), "");
  EXPECT_EQ(base::NomDe("/a.b/c"), "c");
  EXPECT_EQ(base::ExtensionBrute("/a.b/c"), "");
  EXPECT_EQ(base::ExtensionBrute("/a/b.tar.Gz"), "Gz");
  EXPECT_EQ(base::ExtensionBrute("b."), "");
}

// What a killed process left, where it had to give its file a name; what belongs to a living one, or to nobody,
// stays.
TEST_F(Fichiers, TheFileOfAProcessThatIsNoMoreGoesWithTheNextOne) {
  const pid_t mort = fork();
  if (mort == 0) _exit(0);
  ASSERT_EQ(waitpid(mort, nullptr, 0), mort);
  const std::string parti = Chemin(".ovelin-" + std::to_string(mort) + "-a1B2c3");
  const std::string vivant = Chemin(".ovelin-" + std::to_string(getpid()) + "-a1B2c3");
  const std::string autre = Chemin(".ovelin-notes");
  for (const std::string& reste : {parti, vivant, autre}) std::ofstream(reste) << "half";
  ASSERT_EQ(base::EcritFichier(Chemin("f"), "whole"), 0);
  EXPECT_FALSE(fs::exists(parti));
  EXPECT_TRUE(fs::exists(vivant));
  EXPECT_TRUE(fs::exists(autre));
}

TEST_F(Fichiers, AFileLargerThanTheMemoryIsRefusedByItsSize) {
  std::ofstream(Chemin("f")) << "x";
  std::error_code erreur;
  fs::resize_file(Chemin("f"), std::uintmax_t{4} << 40, erreur);  // no block of it is on disk
  if (erreur) GTEST_SKIP() << "no file of that size here";
  std::string lus;
  EXPECT_EQ(base::LitFichier(Chemin("f"), lus), ENOMEM);
}

}  // namespace
