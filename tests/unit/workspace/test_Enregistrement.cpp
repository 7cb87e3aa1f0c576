#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "tests/support/Support.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;

void Dessin() {
  essai::AjouteCarre(" A", 0, 0, 10);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  FichierCourant = essai::Dossier() + "/plan.dxf";
  ExtensionCourante = "DXF";
  Modifie = Vrai;
}

TEST(Enregistrement, ADrawingAsksForAPathAndBecomesAProject) {
  Dessin();
  const std::string chemin = essai::Dossier() + "/plan.OVL";
  essai::AttendFichier("mnu_Save", chemin);
  EXPECT_TRUE(mnu_Save());
  EXPECT_EQ(FichierProjet, chemin);
  EXPECT_EQ(FichierCourant, chemin);
  EXPECT_EQ(ExtensionCourante, "OVL");
  EXPECT_EQ(Modifie, Faux);
  EXPECT_TRUE(essai::LitFichierEssai(chemin).starts_with("$$"));
}

TEST(Enregistrement, TheProposedNameIsThatOfTheDrawingWithTheProjectsExtension) {
  Dessin();
  std::string propose;
  Svc.ChoisitFichier = [&](const DialogueFichier& d) {
    propose = d.propose;
    EXPECT_TRUE(d.enregistrer);
    EXPECT_EQ(d.motif, "*.OVL");
    return std::string();
  };
  EXPECT_FALSE(mnu_Save());
  EXPECT_EQ(propose, essai::Dossier() + "/plan.OVL");
}

TEST(Enregistrement, AProjectIsSavedToItsOwnFileWithoutAQuestion) {
  Dessin();
  FichierCourant = essai::Dossier() + "/travail.ovl";
  EXPECT_TRUE(mnu_Save());
  EXPECT_TRUE(FichierExiste(essai::Dossier() + "/travail.ovl"));
}

TEST(Enregistrement, AfterAnUndoTheProjectGoesToItsFileAndNoOtherAppears) {
  Dessin();
  FichierCourant = essai::Dossier() + "/travail.OVL";
  FichierProjet = "Chargt";
  EXPECT_TRUE(mnu_Save());
  EXPECT_EQ(FichierProjet, FichierCourant);
  EXPECT_FALSE(FichierExiste("Chargt"));
}

TEST(Enregistrement, ACancelledDialogLeavesTheDocumentModified) {
  Dessin();
  essai::AttendFichier("mnu_Save", "");
  EXPECT_FALSE(mnu_Save());
  EXPECT_EQ(Modifie, Vrai);
  EXPECT_EQ(FichierProjet, "");
}

TEST(Enregistrement, SaveAsAlwaysAsksAndAddsTheExtension) {
  Dessin();
  FichierCourant = essai::Dossier() + "/travail.OVL";
  essai::AttendFichier("mnu_SaveAs", essai::Dossier() + "/copie.v2");
  EXPECT_TRUE(mnu_SaveAs());
  EXPECT_EQ(FichierCourant, essai::Dossier() + "/copie.v2.OVL");
}

TEST(Enregistrement, SaveAsKeepsAnExtensionInSmallLetters) {
  Dessin();
  essai::AttendFichier("mnu_SaveAs", essai::Dossier() + "/copie.ovl");
  EXPECT_TRUE(mnu_SaveAs());
  EXPECT_EQ(FichierCourant, essai::Dossier() + "/copie.ovl");
}

TEST(Enregistrement, ARefusalNamesTheFileAndTheReasonAndLeavesTheDocument) {
  Dessin();
  const std::string chemin = essai::Dossier() + "/nulle-part/plan.OVL";
  essai::AttendFichier("mnu_Save", chemin);
  essai::Attend("F_Representation", "lib125");
  EXPECT_FALSE(mnu_Save());
  EXPECT_NE(essai::Boites().back().texte.find(chemin), std::string::npos);
  EXPECT_EQ(FichierProjet, "");
  EXPECT_EQ(FichierCourant, essai::Dossier() + "/plan.dxf");
  EXPECT_EQ(Modifie, Vrai);
}

TEST(Enregistrement, WithoutADrawingNothingIsAsked) {
  EXPECT_FALSE(mnu_Save());
  EXPECT_FALSE(mnu_SaveAs());
}

}  // namespace
