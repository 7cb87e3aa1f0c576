// The window of recovered work.
#include <QListWidget>
#include <QPushButton>
#include <filesystem>

#include "core/Fichiers.h"
#include "tests/ui/support/SupportUi.h"
#include "workspace/Module_Reprise.h"
#include "workspace/ui/dialogues/ApercuDimension.h"
#include "workspace/ui/dialogues/F_Reprise.h"

namespace {

using namespace ovelin;
using namespace essai;
namespace fs = std::filesystem;

// Two that wait: the bracket, and a nameplate of an hour later.
void LaisseDeux() {
  DossierReprises = Dossier() + "/reprises";
  fs::create_directories(DossierReprises);
  int n = 0;
  for (const char* nom : {"equerre-attaches.OVL", "plaque-poches.OVL"}) {
    const std::string fichier = DossierReprises + "/" + std::to_string(++n) + ".reprise";
    fs::copy_file(DossierExemples() + "/" + nom, fichier);
    fs::permissions(fichier, fs::perms::owner_write, fs::perm_options::add);
    fs::last_write_time(fichier, fs::file_time_type(std::chrono::hours(24 * 365 * 10 + n)));
    EcritFichierEssai("reprises/" + std::to_string(n) + ".dessin", std::string("/dessins/") + nom);
  }
}

TEST(F_Reprise, ListsTheNewestFirstWithDrawingAndPicture) {
  LaisseDeux();
  F_Reprise f;
  Montre(f);
  auto* liste = Controle<QListWidget>(f, "List_Reprises");
  ASSERT_EQ(liste->count(), 2);
  EXPECT_TRUE(liste->item(0)->text().startsWith("plaque-poches.OVL"));
  EXPECT_GT(liste->item(0)->text().size(), QStringLiteral("plaque-poches.OVL").size() + 8) << "day and time";
  EXPECT_EQ(liste->item(0)->toolTip(), "/dessins/plaque-poches.OVL");
  EXPECT_TRUE(liste->item(1)->text().startsWith("equerre-attaches.OVL"));
  const auto image = [&f] { return f.findChild<ApercuDimension*>()->grab().toImage(); };
  const QImage premiere = image();
  liste->setCurrentRow(1);
  essai::Evenements();
  EXPECT_NE(image(), premiere);
  Capture(f, "F_Reprise");
}

TEST(F_Reprise, RecoverTakesTheChosenOne) {
  LaisseDeux();
  F_Reprise f;
  Montre(f);
  Controle<QListWidget>(f, "List_Reprises")->setCurrentRow(1);
  Clique(*Controle<QPushButton>(f, "Btn_Reprendre"));
  EXPECT_EQ(f.result(), QDialog::Accepted);
  EXPECT_EQ(RepriseChoisie.dessin, "/dessins/equerre-attaches.OVL");
  EXPECT_EQ(ListeReprises().size(), 2U);
}

TEST(F_Reprise, DiscardTakesOneAwayAndClosesBehindTheLast) {
  LaisseDeux();
  F_Reprise f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_Jeter"));
  EXPECT_TRUE(f.isVisible());
  ASSERT_EQ(ListeReprises().size(), 1U);
  EXPECT_EQ(ListeReprises()[0].dessin, "/dessins/equerre-attaches.OVL");
  Clique(*Controle<QPushButton>(f, "Btn_Jeter"));
  EXPECT_FALSE(f.isVisible());
  EXPECT_TRUE(ListeReprises().empty());
  EXPECT_TRUE(fs::is_empty(DossierReprises));
}

TEST(F_Reprise, EscapeLeavesEverythingForTheNextStart) {
  LaisseDeux();
  F_Reprise f;
  Montre(f);
  QTest::keyClick(&f, Qt::Key_Escape);
  EXPECT_FALSE(f.isVisible());
  EXPECT_EQ(ListeReprises().size(), 2U);
}

}  // namespace
