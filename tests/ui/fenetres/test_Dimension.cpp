// The size window of a newly read drawing, by mouse and keys.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/Theme.h"
#include "machine/Module_Table.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/ui/dialogues/ApercuDimension.h"
#include "workspace/ui/dialogues/F_Dimension.h"

namespace essai {
namespace {

using namespace ovelin;

// A rectangle of 100 x 50 mm; travel 600 x 400.
void Rectangle() {
  AjouteSequence(" A", {{10, 20}, {110, 20}, {110, 70}, {10, 70}, {10, 20}});
  EncombrementGeneral();
}

struct Banc {
  F_Dimension f;
  ChampNombre* hInitial = Controle<ChampNombre>(f, "TB_H_Initial");
  ChampNombre* hRapport = Controle<ChampNombre>(f, "TB_H_Rapport");
  ChampNombre* hResultat = Controle<ChampNombre>(f, "TB_H_Resultat");
  ChampNombre* vInitial = Controle<ChampNombre>(f, "TB_V_Initial");
  ChampNombre* vRapport = Controle<ChampNombre>(f, "TB_V_Rapport");
  ChampNombre* vResultat = Controle<ChampNombre>(f, "TB_V_Resultat");
  Banc() { Montre(f); }
  void Presse(const char* bouton) { Clique(*Controle<QPushButton>(f, bouton)); }
};

void DemandeSansDessin(Banc& b) { b.Presse("Btn_Annuler"); }

TEST(F_Dimension, LoadsTheSizeWithRatiosOfOne) {
  Rectangle();
  Banc b;
  EXPECT_EQ(b.hInitial->Texte(), "100.0");
  EXPECT_EQ(b.vInitial->Texte(), "50.0");
  EXPECT_EQ(b.hRapport->Texte(), "1");
  EXPECT_EQ(b.vRapport->Texte(), "1");
  EXPECT_EQ(b.hResultat->Texte(), "100.0");
  EXPECT_EQ(b.vResultat->Texte(), "50.0");
  EXPECT_TRUE(b.hInitial->isReadOnly());
  b.Presse("Btn_OK");
  EXPECT_EQ(b.f.Reponse().rapportX, 1);
  EXPECT_EQ(b.f.Reponse().rapportY, 1);
}

TEST(F_Dimension, ShowsTheTravelInItsStatusBar) {
  EcrireCleSection(SectionTable(TableDefaut), "TB_SAV_18", "612,5");
  EcrireCleSection(SectionTable(TableDefaut), "TB_SAV_19", "300");
  Rectangle();
  Banc b;
  EXPECT_EQ(Controle<QLabel>(b.f, "SB1_1")->text(), "X = 612.5 mm");
  EXPECT_EQ(Controle<QLabel>(b.f, "SB1_2")->text(), "Y = 300 mm");
  DemandeSansDessin(b);
}

TEST(F_Dimension, LeavingARatioGivesTheResult) {
  Rectangle();
  Banc b;
  Tape(*b.hRapport, "2,5");
  EXPECT_EQ(b.hResultat->Texte(), "250.0");
  EXPECT_EQ(b.hRapport->Texte(), "2.5");
  EXPECT_EQ(b.vResultat->Texte(), "50.0");
  b.Presse("Btn_OK");
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.Reponse().rapportX, 2.5);
  EXPECT_EQ(b.f.Reponse().rapportY, 1);
}

TEST(F_Dimension, LeavingAResultGivesTheRatio) {
  Rectangle();
  Banc b;
  Tape(*b.vResultat, "12.5", Sortie::Entree);
  EXPECT_EQ(b.vRapport->Texte(), "0.25");
  EXPECT_EQ(b.hRapport->Texte(), "1");
  b.Presse("Btn_OK");
  EXPECT_EQ(b.f.Reponse().rapportY, 0.25);
}

TEST(F_Dimension, ProportionsCarryTheRatioToTheOtherAxis) {
  Rectangle();
  Banc b;
  auto* proportions = Controle<QCheckBox>(b.f, "CB_Proportions");
  QTest::keyClick(proportions, Qt::Key_Space);
  ASSERT_TRUE(proportions->isChecked());
  Tape(*b.vRapport, "3");
  EXPECT_EQ(b.hRapport->Texte(), "3");
  EXPECT_EQ(b.hResultat->Texte(), "300.0");
  Tape(*b.hResultat, "150");
  EXPECT_EQ(b.vRapport->Texte(), "1.5");
  EXPECT_EQ(b.vResultat->Texte(), "75.0");
  QTest::keyClick(proportions, Qt::Key_Space);
  Tape(*b.hRapport, "2");
  EXPECT_EQ(b.vRapport->Texte(), "1.5");
  b.Presse("Btn_OK");
  EXPECT_EQ(b.f.Reponse().rapportX, 2);
  EXPECT_EQ(b.f.Reponse().rapportY, 1.5);
}

TEST(F_Dimension, GoingThroughTheFieldsChangesNoRatio) {
  AjouteSequence(" A", {{0, 0}, {33.3333F, 0}, {33.3333F, 7}});
  EncombrementGeneral();
  Banc b;
  Tape(*b.hRapport, "0.3333333333");
  const std::string avant = b.hResultat->Texte();
  for (int i = 0; i < 12; ++i) QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(b.hResultat->Texte(), avant);
  b.Presse("Btn_OK");
  EXPECT_EQ(b.f.Reponse().rapportX, 0.3333333333);
}

TEST(F_Dimension, OkAcceptsAResultEqualToTheTravel) {
  Rectangle();
  Banc b;
  Tape(*b.hResultat, "600");
  Tape(*b.vResultat, "400");
  b.Presse("Btn_OK");
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.Reponse().rapportX, 6);
  EXPECT_EQ(b.f.Reponse().rapportY, 8);
}

TEST(F_Dimension, OkRefusesAResultBeyondTheTravelAtItsField) {
  Rectangle();
  Banc b;
  Tape(*b.vResultat, "400.1");
  Attend("F_Dimension", "lib002");
  b.Presse("Btn_OK");
  EXPECT_TRUE(b.f.isVisible());
  ASSERT_EQ(Boites().size(), 1U);
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
  EXPECT_EQ(Boites()[0].titre, "OVELIN");
  EXPECT_TRUE(b.vResultat->EstRefuse());
  EXPECT_EQ(b.vResultat->toolTip().toStdString(), Traduire("F_Dimension", "lib002"));
  EXPECT_FALSE(b.hResultat->EstRefuse());
  DemandeSansDessin(b);
  EXPECT_EQ(b.f.Reponse().rapportY, 1);
}

TEST(F_Dimension, OkRefusesARatioOfZeroAtItsField) {
  Rectangle();
  Banc b;
  Tape(*b.hRapport, "0");
  EXPECT_EQ(b.hResultat->Texte(), "0.0");
  Attend("F_Dimension", "lib001");
  b.Presse("Btn_OK");
  EXPECT_TRUE(b.f.isVisible());
  EXPECT_EQ(Boites().at(0).icone, Icone::Critique);
  EXPECT_TRUE(b.hRapport->EstRefuse());
  Tape(*b.hRapport, "1");
  EXPECT_FALSE(b.hRapport->EstRefuse());
  b.Presse("Btn_OK");
  EXPECT_FALSE(b.f.isVisible());
}

TEST(F_Dimension, ApplyTestsAsWellAndLeavesTheWindowOpen) {
  Rectangle();
  Banc b;
  Tape(*b.hRapport, "0");
  Attend("F_Dimension", "lib001");
  b.Presse("Btn_Appliquer");
  Tape(*b.hRapport, "7");
  Attend("F_Dimension", "lib002");
  b.Presse("Btn_Appliquer");
  Tape(*b.hRapport, "2");
  b.Presse("Btn_Appliquer");
  EXPECT_TRUE(b.f.isVisible());
  DemandeSansDessin(b);
}

TEST(F_Dimension, CancelAfterApplyGivesRatiosOfOne) {
  for (const bool ferme : {false, true}) {
    Doc = Document{};
    Rectangle();
    Banc b;
    Tape(*b.hRapport, "2");
    b.Presse("Btn_Appliquer");
    if (ferme) {
      b.f.close();
    } else {
      b.Presse("Btn_Annuler");
    }
    EXPECT_FALSE(b.f.isVisible());
    EXPECT_EQ(b.f.result(), QDialog::Rejected);
    EXPECT_EQ(b.f.Reponse().rapportX, 1);
    EXPECT_EQ(b.f.Reponse().rapportY, 1);
    EXPECT_EQ(b.f.Reponse().largeur, 100);
  }
}

TEST(F_Dimension, SaysAtTheFieldWhatIsNoNumberAndStaysOpen) {
  Rectangle();
  Banc b;
  Tape(*b.hRapport, "-");
  EXPECT_TRUE(b.hRapport->EstRefuse());
  EXPECT_EQ(b.hResultat->Texte(), "100.0");
  b.Presse("Btn_OK");
  EXPECT_TRUE(b.f.isVisible());
  EXPECT_TRUE(Boites().empty());
  Tape(*b.vResultat, "");
  EXPECT_TRUE(b.vResultat->EstRefuse());
  DemandeSansDessin(b);
}

TEST(F_Dimension, KeepsTheResultOfADrawingWithoutHeight) {
  AjouteSequence(" A", {{0, 5}, {100, 5}});
  EncombrementGeneral();
  Banc b;
  Tape(*b.vResultat, "10");
  EXPECT_EQ(b.vResultat->Texte(), "0.0");
  EXPECT_EQ(b.vRapport->Texte(), "1");
  EXPECT_TRUE(b.vResultat->EstRefuse());
  Tape(*b.hResultat, "50");
  b.Presse("Btn_OK");
  EXPECT_FALSE(b.f.isVisible());
  EXPECT_EQ(b.f.Reponse().rapportX, 0.5);
  EXPECT_EQ(b.f.Reponse().rapportY, 1);
}

TEST(F_Dimension, TakesTheDemandOfItsCallerWithRatiosMadeOne) {
  Rectangle();
  F_Dimension f({100, 50, 300, 200, 5, 6}, nullptr);
  Montre(f);
  EXPECT_EQ(Controle<QLabel>(f, "SB1_1")->text(), "X = 300 mm");
  EXPECT_EQ(Controle<ChampNombre>(f, "TB_H_Rapport")->Texte(), "1");
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_EQ(f.Reponse().rapportX, 1);
}

// Width and height of the shape that the preview holds, twips.
std::pair<float, float> Etendue(const Scene& scene) {
  float x0 = 1e9F, x1 = -1e9F, y0 = 1e9F, y1 = -1e9F;
  for (const PointEcran& p : scene.Points) {
    x0 = std::min(x0, p.X);
    x1 = std::max(x1, p.X);
    y0 = std::min(y0, p.Y);
    y1 = std::max(y1, p.Y);
  }
  return {x1 - x0, y1 - y0};
}

TEST(F_DimensionPB1, FollowsARatioWhileItIsTypedAndStaysWhenItIsApplied) {
  Rectangle();
  Banc b;
  const auto* apercu = Controle<ApercuDimension>(b.f, "PB1");
  const auto [l, h] = Etendue(apercu->Dessine());
  EXPECT_NEAR(l / h, 2, 0.01);
  Tape(*b.vRapport, "4");
  for (const bool applique : {false, true}) {
    if (applique) b.Presse("Btn_Appliquer");
    const auto [l2, h2] = Etendue(apercu->Dessine());
    EXPECT_NEAR(l2 / h2, 0.5, 0.01) << applique;
  }
  DemandeSansDessin(b);
}

TEST(F_DimensionPB1, PaintsTheDrawingOnPaperAndFollowsTheSize) {
  Rectangle();
  Banc b;
  auto* apercu = Controle<ApercuDimension>(b.f, "PB1");
  const auto traits = [&] {
    const QImage image = apercu->grab().toImage();
    const QRgb papier = Papier(*apercu).rgb();
    int n = 0;
    for (int y = 2; y < image.height() - 2; ++y) {
      for (int x = 2; x < image.width() - 2; ++x) n += image.pixel(x, y) != papier;
    }
    return n;
  };
  const int petit = traits();
  EXPECT_GT(petit, 100);
  const float avant = Etendue(apercu->Dessine()).first;
  b.f.resize(b.f.width() + 200, b.f.height() + 300);
  Evenements();
  EXPECT_GT(Etendue(apercu->Dessine()).first, avant);
  EXPECT_GT(traits(), petit);
  DemandeSansDessin(b);
}

TEST(F_DimensionPB1, DrawsAThousandPointsOfALargeDrawing) {
  std::vector<std::pair<float, float>> points;
  for (int i = 0; i < 5000; ++i) {
    const int rang = i / 100;
    points.emplace_back(static_cast<float>(i % 100), static_cast<float>(rang));
  }
  AjouteSequence(" A", points);
  EncombrementGeneral();
  Banc b;
  EXPECT_LE(Controle<ApercuDimension>(b.f, "PB1")->Dessine().Points.size(), 1001U);
  DemandeSansDessin(b);
}

TEST(F_Dimension, AnswersTheReaderOfADrawing) {
  const std::string dessin = EcritFichierEssai("carre.dat", "10 10\n110 10\n110 60\n10 60\n10 10\n");
  Svc.Dimensionne = [](DemandeDimension& demande) {
    F_Dimension f(demande);
    Montre(f);
    Tape(*Controle<ChampNombre>(f, "TB_H_Rapport"), "2");
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    demande = f.Reponse();
  };
  ASSERT_EQ(mnu_Ouvrir(dessin, OptionsOuverture{}), Ouverture::Reussie);
  EXPECT_NEAR(Xmax - Xmin, 200, 0.01);
  EXPECT_NEAR(Ymax - Ymin, 50, 0.01);
  EXPECT_EQ(Doc.EchelleX, 2);
}

}  // namespace
}  // namespace essai
