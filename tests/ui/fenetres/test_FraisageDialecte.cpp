// The dialect of G-code in the milling window: chosen, remembered, told where it has arcs or can't be had.
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ChampNombre.h"
#include "machine/TableCourante.h"
#include "run/Module_GCode.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"

namespace essai {
namespace {

using namespace ovelin;

struct Banc {
  F_Fraisage f;
  QComboBox* liste = Controle<QComboBox>(f, "Combo_Dialecte");
  ChampNombre* vitesse = Controle<ChampNombre>(f, "TB_VitesseBroche");
  ChampNombre* attente = Controle<ChampNombre>(f, "TB_AttenteBroche");
  QLabel* arcs = Controle<QLabel>(f, "Lbl_ArcsAtelier");
  QLabel* refus = Controle<QLabel>(f, "Lbl_DialecteRefuse");
  Banc() { Montre(f); }
  ~Banc() { f.close(); }
  Banc(const Banc&) = delete;
  Banc& operator=(const Banc&) = delete;

  void Choisit(const char* nom) {
    const int rang = liste->findData(QString::fromLatin1(nom));
    ASSERT_GE(rang, 0) << nom;
    liste->setCurrentIndex(rang);
    Q_EMIT liste->activated(rang);
  }
};

void Travail() {
  Vitesse_Mat_H = 3;
  Vitesse_Mat_V = 1;
  VitesseMaxX = 50;
  VitesseMaxY = 20;
  VitesseMaxZ = 8;
  AjouteCarre(" A", 10, 10, 40);
  RecalculDecalages();
}

TEST(DialecteFraisage, TheOwnIsChosenAsDeliveredAndNeedsNothingElse) {
  Travail();
  Banc b;
  EXPECT_EQ(b.liste->currentData().toString(), QStringLiteral("own"));
  EXPECT_EQ(b.liste->count(), 5);
  EXPECT_FALSE(b.vitesse->isVisible());
  EXPECT_FALSE(b.attente->isVisible());
  EXPECT_FALSE(b.arcs->isVisible());
  EXPECT_FALSE(b.refus->isVisible());
}

TEST(DialecteFraisage, AChoiceIsRememberedAndSaysThatTheWorkshopSkipsItsArcs) {
  Travail();
  EcritFichierEssai("droit.dialecte", "base = grbl\narcs = non\n");
  Banc b;
  b.Choisit("grbl");
  EXPECT_EQ(LireCleIni(cles::DialecteNC, ""), "grbl");
  EXPECT_TRUE(b.vitesse->isVisible());
  EXPECT_TRUE(b.arcs->isVisible());
  b.Choisit("droit");
  EXPECT_TRUE(b.vitesse->isVisible());
  EXPECT_FALSE(b.arcs->isVisible());
  b.Choisit("own");
  EXPECT_FALSE(b.vitesse->isVisible());
  EXPECT_FALSE(b.arcs->isVisible());
}

TEST(DialecteFraisage, TheFileIsWrittenInItUnderTheExtensionThatIsProposed) {
  Travail();
  FichierCourant = Dossier() + "/piece.dxf";
  Banc b;
  b.Choisit("linuxcnc");
  Tape(*b.vitesse, "1500");
  std::string propose;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    return Dossier() + "/piece.ngc";
  };
  Controle<QPushButton>(b.f, "Btn_Gener_GCODE")->click();
  EXPECT_EQ(propose, Dossier() + "/piece.ngc");
  EXPECT_NE(LitFichierEssai(Dossier() + "/piece.ngc").find("\nM3 S1500\n"), std::string::npos);
  b.Choisit("own");
  EXPECT_EQ(NomFichierNC, Dossier() + "/piece.nc");
}

TEST(DialecteFraisage, ASpeedThatIsNoneIsRefusedAtItsField) {
  Travail();
  Regl.DialecteNC = "grbl";
  Banc b;
  Tape(*b.vitesse, "-5");
  EXPECT_TRUE(b.vitesse->EstRefuse());
  EXPECT_EQ(Regl.VitesseBroche, 10'000);
}

TEST(DialecteFraisage, AFaultyFileIsToldWithLineAndReason) {
  Travail();
  const std::string fichier = EcritFichierEssai("faux.dialecte", "base = grbl\nfins = M2\n");
  Banc b;
  EXPECT_TRUE(b.refus->isVisible());
  EXPECT_THAT(b.refus->text().toStdString(), testing::HasSubstr(fichier + ":2: fins = M2"));
}

// Pictures of both go to OVELIN_CAPTURES.
TEST(DialecteFraisage, NothingIsCutWithAnotherDialectInAnyLanguage) {
  Travail();
  Regl.DialecteNC = "grbl";
  for (const std::string& langue : LanguesDuProduit()) {
    ChoisitLangue(langue);
    F_Fraisage f;
    Montre(f, f.minimumSizeHint().width(), f.minimumSizeHint().height());
    EXPECT_EQ(TextesCoupesEnTexte(f), "") << langue << ", narrow";
    Montre(f, f.sizeHint().width(), f.sizeHint().height());
    EXPECT_EQ(TextesCoupesEnTexte(f), "") << langue;
    Capture(f, "F_Fraisage-dialecte-" + langue);
    f.close();
  }
}

TEST(DialecteFraisage, ADialectThatIsGoneStandsThereByItsName) {
  Travail();
  Regl.DialecteNC = "disparu";
  Banc b;
  EXPECT_EQ(b.liste->currentData().toString(), QStringLiteral("disparu"));
  EXPECT_TRUE(b.refus->isVisible());
}

}  // namespace
}  // namespace essai
