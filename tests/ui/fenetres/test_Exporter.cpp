// The export window, by mouse and keys, with real files.
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Services.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/ui/F_Exporter.h"

namespace essai {
namespace {

using namespace ovelin;

class FExporter : public testing::Test {
 protected:
  FExporter() {
    AjouteCarre(" A", 10, 10, 40);
    AjouteCarre(" B", 20, 20, 10);
    RecalculDecalages();
    FichierCourant = Dossier() + "/plaque.v2.OVL";
  }
  // What the dialog is asked; it answers with that path.
  DialogueFichier demande;
  void Repond(const std::string& chemin) {
    Svc.ChoisitFichier = [this, chemin](const DialogueFichier& d) {
      demande = d;
      return chemin;
    };
  }
};

TEST_F(FExporter, ProposesTheNameOfTheDrawingWithTheExtensionOfTheFormat) {
  F_Exporter f;
  Montre(f);
  Repond("");
  Clique(*Controle<QPushButton>(f, "Btn_Gener_Fichier"));
  EXPECT_EQ(demande.propose, "plaque.v2.dxf");
  EXPECT_EQ(demande.motif, "*.dxf");
  EXPECT_TRUE(demande.enregistrer);
  EXPECT_TRUE(f.isVisible()) << "cancelled";
  Clique(*Controle<QRadioButton>(f, "Option1_1"));
  Clique(*Controle<QPushButton>(f, "Btn_Gener_Fichier"));
  EXPECT_EQ(demande.propose, "plaque.v2.dat");
  EXPECT_EQ(demande.motif, "*.dat");
}

// One polyline a sequence; the tool path of the outer square is larger than the drawing.
TEST_F(FExporter, WritesTheDrawingOrItsToolPathAndCloses) {
  const auto lignes = [](const std::string& texte, const char* ligne) {
    std::size_t n = 0;
    for (std::size_t i = texte.find(ligne); i != std::string::npos; i = texte.find(ligne, i + 1)) ++n;
    return n;
  };
  const std::string chemin = Dossier() + "/été.dxf";
  for (const char* source : {"Option2_0", "Option2_1"}) {
    F_Exporter f;
    Montre(f);
    Repond(chemin);
    Attend("F_Exporter", "lib002");
    Clique(*Controle<QRadioButton>(f, source));
    Clique(*Controle<QPushButton>(f, "Btn_Gener_Fichier"));
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(lignes(LitFichierEssai(chemin), "\nPOLYLINE"), 2U);
    const bool outil = std::string(source) == "Option2_1";
    EXPECT_EQ(Boites().back().texte.find("X=40") != std::string::npos, !outil) << Boites().back().texte;
  }
}

TEST_F(FExporter, StaysOpenWhenNothingWasWritten) {
  F_Exporter f;
  Montre(f);
  Repond(Dossier() + "/rien/a.dxf");
  Attend("F_Representation", "lib125");
  Clique(*Controle<QPushButton>(f, "Btn_Gener_Fichier"));
  EXPECT_TRUE(f.isVisible());
  EXPECT_TRUE(Controle<QPushButton>(f, "Btn_Gener_Fichier")->isEnabled());
  EXPECT_EQ(Controle<QProgressBar>(f, "ProgressBar_Avancement")->value(), 0);
}

TEST_F(FExporter, BarMovesWhileTheLibraryIsAtWork) {
  F_Exporter f;
  Montre(f);
  Repond(Dossier() + "/a.dxf");
  int vue = -1;
  Svc.EnFond = [&](const std::function<void()>& noyau) {
    auto* minuterie = Controle<QTimer>(f, "Timer_Avancement");
    EXPECT_TRUE(minuterie->isActive());
    EXPECT_FALSE(Controle<QPushButton>(f, "Btn_Gener_Fichier")->isEnabled()) << "pressed twice";
    QMetaObject::invokeMethod(minuterie, "timeout", Qt::DirectConnection);
    vue = Controle<QProgressBar>(f, "ProgressBar_Avancement")->value();
    noyau();
  };
  Attend("F_Exporter", "lib002");
  Clique(*Controle<QPushButton>(f, "Btn_Gener_Fichier"));
  EXPECT_GT(vue, 0);
  EXPECT_TRUE(FichierExiste(Dossier() + "/a.dxf"));
}

}  // namespace
}  // namespace essai
