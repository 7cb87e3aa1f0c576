// The window about the program.
#include <QLabel>
#include <QPushButton>
#include <cstdlib>
#include <filesystem>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Fichiers.h"
#include "core/ui/F_About.h"
#include "tests/ui/support/SupportUi.h"

namespace essai {
namespace {

using namespace ovelin;

// The programs of the desktop are those of this folder alone.
class Bureau {
 public:
  Bureau() : avant_(std::getenv("PATH")) { setenv("PATH", Dossier().c_str(), 1); }
  ~Bureau() { setenv("PATH", avant_.c_str(), 1); }
  Bureau(const Bureau&) = delete;
  Bureau& operator=(const Bureau&) = delete;
  static void Pose(const std::string& nom, const std::string& script) {
    namespace fs = std::filesystem;
    const std::string chemin = EcritFichierEssai(nom, script);
    fs::permissions(chemin, fs::perms::owner_all);
  }

 private:
  std::string avant_;
};

TEST(F_About, ShowsNameAndVersion) {
  F_About f;
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Nom")->text(), "OVELIN");
  EXPECT_EQ(Controle<QLabel>(f, "Lbl_Version")->text(), "OVELIN 4.10.0");
}

TEST(F_About, TellsWhenTheDesktopHasNoProgramForIt) {
  const Bureau bureau;
  F_About f;
  Montre(f);
  Attend("F_About", "lib001");
  Clique(*Controle<QPushButton>(f, "Btn_SysInfo"));
}

TEST(F_About, StartsTheProgramOfTheDesktopWithItsPage) {
  const Bureau bureau;
  const std::string trace = Dossier() + "/lance";
  Bureau::Pose("hardinfo", "#!/bin/sh\nexit 1\n");
  Bureau::Pose("gnome-control-center",
               "#!/bin/sh\necho \"$1\" > '" + trace + ".part'\n/bin/mv '" + trace + ".part' '" + trace + "'\n");
  F_About f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_SysInfo"));
  ASSERT_TRUE(QTest::qWaitFor([&] { return FichierExiste(trace); }, 30000));
  EXPECT_EQ(LitFichierEssai(trace), "info-overview\n");
}

TEST(F_About, OpensThePageOfHelp) {
  EcrireCle(cles::AdresseMaj, "https://example.org");
  F_About f;
  Montre(f);
  AttendBureau("https://example.org/Aide/HELP.htm");
  Clique(*Controle<QPushButton>(f, "Btn_Page"));
}

TEST(F_About, TellsThatTheAddressIsMissing) {
  F_About f;
  Montre(f);
  Attend("F_About", "lib002");
  Clique(*Controle<QPushButton>(f, "Btn_Page"));
}

TEST(F_About, ClosesByEnterAndEscape) {
  for (const Qt::Key touche : {Qt::Key_Return, Qt::Key_Escape}) {
    F_About f;
    Montre(f);
    QTest::keyClick(&f, touche);
    EXPECT_FALSE(f.isVisible());
  }
}

}  // namespace
}  // namespace essai
