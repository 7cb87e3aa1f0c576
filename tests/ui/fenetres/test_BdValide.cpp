// Rows of the material presets come and go by the menu; OK validates and writes.
#include <QClipboard>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Traduction.h"
#include "tests/ui/fenetres/BdEssai.h"

namespace essai {
namespace {

TEST(F_BD, MenuOpensOverARowOfThePresetsOnly) {
  BancBD b;
  b.MenuEn(b.Milieu(2, 3));
  EXPECT_TRUE(b.Menu()->isVisible());
  EXPECT_EQ(b.Courante(), Place(2, 3));
  b.Menu()->close();
  b.MenuEn(b.Milieu(6, 3));
  EXPECT_FALSE(b.Menu()->isVisible());
  b.MenuEn(QPoint(20, b.grille->viewport()->height() - 2));
  EXPECT_FALSE(b.Menu()->isVisible());
}

TEST(F_BD, MenuInsertsAnEmptyRowAtThePointer) {
  BancBD b;
  b.MenuEn(b.Milieu(2, 3));
  b.Choisit("mnu_DB_Insert");
  ASSERT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(1, 1), "Dépron 3 mm");
  EXPECT_EQ(b.Cellule(2, 1), "");
  EXPECT_EQ(b.Cellule(3, 1), "Dépron 6 mm");
  EXPECT_EQ(b.Cellule(3, 2), "0,5");
  EXPECT_EQ(b.Courante(), Place(2, 1));
}

TEST(F_BD, MenuDeletesTheRowUnderThePointer) {
  BancBD b;
  b.MenuEn(b.Milieu(3, 1));
  b.Choisit("mnu_DB_Delete");
  ASSERT_EQ(b.grille->rowCount(), 5);
  EXPECT_EQ(b.Cellule(3, 1), "CTP 3 mm");
  EXPECT_EQ(b.Cellule(5, 1), "");
}

TEST(F_BD, KeysInsertAndDeleteTheCurrentRow) {
  BancBD b;
  b.VaEn(2, 4);
  b.Touche(Qt::Key_Insert);
  EXPECT_EQ(b.grille->rowCount(), 7);
  EXPECT_EQ(b.Cellule(2, 1), "");
  b.Touche(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(b.grille->rowCount(), 6);
  EXPECT_EQ(b.Cellule(2, 1), "Dépron 6 mm");
  b.VaEn(6, 1);
  b.Touche(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(b.grille->rowCount(), 6);
}

TEST(F_BD, DeletingTheThirdOfFiveLeavesFourKeys) {
  BancBD b;
  b.MenuEn(b.Milieu(3, 1));
  b.Choisit("mnu_DB_Delete");
  b.Ok();
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.result(), QDialog::Accepted);
  OublieCles();
  EXPECT_THAT(LireCle("DB3", "$$"), testing::StartsWith("CTP 3 mm\t"));
  EXPECT_NE(LireCle("DB4", "$$"), "$$");
  EXPECT_EQ(LireCle("DB5", "$$"), "$$");
}

TEST(F_BD, IsAcceptedAfterTheWriting) {
  BancBD b;
  std::size_t lues = 0;
  QObject::connect(&b.f, &QDialog::accepted, [&] { lues = LitFiches().size(); });
  b.MenuEn(b.Milieu(1, 1));
  b.Choisit("mnu_DB_Delete");
  b.Ok();
  EXPECT_EQ(lues, 4U);
}

TEST(F_BD, CancelChangesNothing) {
  BancBD b;
  bool change = false;
  QObject::connect(&b.f, &QDialog::accepted, [&] { change = true; });
  const auto avant = LitFiches();
  b.MenuEn(b.Milieu(1, 1));
  b.Choisit("mnu_DB_Delete");
  b.CliqueEn(1, 2);
  b.Tape("5");
  Clique(*Controle<QPushButton>(b.f, "Btn_Annuler"));
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.result(), QDialog::Rejected);
  EXPECT_EQ(LitFiches(), avant);
  EXPECT_FALSE(change);
}

struct Faute {
  int colonne;
  const char* mauvais;
  const char* bon;
};

TEST(F_BD, OkRefusesEachColumnByItsTestAndGoesThere) {
  for (const Faute& faute :
       {Faute{2, "-0,1", "0"}, Faute{2, "", "1"}, Faute{4, "1", "0"}, Faute{5, "0,5", "0"}, Faute{6, "0", "0,1"},
        Faute{6, "-1", "3"}, Faute{7, "0", "2"}, Faute{7, "1,2,3", "4"}}) {
    SCOPED_TRACE(std::to_string(faute.colonne) + " " + faute.mauvais);
    EcritFichesDefaut();
    BancBD b;
    b.VaEn(2, faute.colonne);
    QApplication::clipboard()->setText(faute.mauvais);
    b.Touche(Qt::Key_V, Qt::ControlModifier);
    if (*faute.mauvais == '\0') b.Touche(Qt::Key_Delete);
    b.VaEn(1, 1);
    const std::size_t boites = Boites().size();
    Attend("F_BD", "lib001");
    b.Ok();
    EXPECT_TRUE(b.f.isVisible());
    ASSERT_EQ(Boites().size(), boites + 1);
    EXPECT_EQ(Boites().back().titre, "OVELIN");
    EXPECT_THAT(Boites().back().texte, testing::StartsWith(Traduire("F_BD", "lib001")));
    EXPECT_EQ(b.Courante(), Place(2, faute.colonne));
    EXPECT_FALSE(b.grille->item(1, faute.colonne - 1)->toolTip().isEmpty());
    b.Tape(faute.bon);
    b.Touche(Qt::Key_Return);
    EXPECT_TRUE(b.grille->item(1, faute.colonne - 1)->toolTip().isEmpty());
    b.Ok();
    EXPECT_FALSE(b.f.isVisible());
  }
}

TEST(F_BD, OkStopsAtTheFirstFaultInTheOrderOfTheRows) {
  BancBD b;
  b.VaEn(2, 7);
  b.Touche(Qt::Key_Delete);
  b.VaEn(3, 2);
  b.Touche(Qt::Key_Delete);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(2, 7));
}

TEST(F_BD, OkRefusesAnInsertedRowThatWasLeftEmpty) {
  BancBD b;
  b.VaEn(1, 1);
  b.Touche(Qt::Key_Insert);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(1, 2));
}

TEST(F_BD, OkRefusesARowThatIsLongerThanCanBeReadBack) {
  BancBD b;
  b.VaEn(1, 1);
  QApplication::clipboard()->setText(QString(300, 'x'));
  b.Touche(Qt::Key_V, Qt::ControlModifier);
  Attend("F_BD", "lib001");
  b.Ok();
  EXPECT_EQ(b.Courante(), Place(1, 1));
  EXPECT_LT(Boites().back().texte.size(), 200U);  // the box stays readable
}

TEST(F_BD, SaysThatTheSettingsFileCannotBeWritten) {
  BancBD b;
  b.VaEn(1, 2);
  b.Tape("3");
  b.Touche(Qt::Key_Return);
  const std::string avant = DossierProgramme;
  DossierProgramme = Dossier() + "/absent/tout";
  OublieCles();
  Attend("F_BD", "lib002");
  bool change = false;
  QObject::connect(&b.f, &QDialog::accepted, [&] { change = true; });
  b.Ok();
  EXPECT_TRUE(b.f.isVisible());
  EXPECT_FALSE(change);
  EXPECT_EQ(Magasin.DerniereErreur, "") << "it has been told";
  DossierProgramme = avant;
  OublieCles();
  b.Ok();
  EXPECT_TRUE(change);
}

TEST(F_BD, WritesNothingIntoTheOpenProject) {
  const std::string projet = EcritFichierEssai("p.OVL", "$$DB1=Du projet\r\n");
  FichierCourant = FichierProjet = projet;
  BancBD b;
  EXPECT_EQ(b.Cellule(1, 1), "Dépron 3 mm");
  b.CliqueEn(1, 1);
  b.Tape("Neuf");
  b.Ok();
  EXPECT_EQ(LitFichierEssai(projet), "$$DB1=Du projet\r\n");
}

}  // namespace
}  // namespace essai
