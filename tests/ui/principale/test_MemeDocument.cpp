// The same edits by mouse and keys, and by the names of their procedures on the command line: the same file.
#include <QCheckBox>
#include <QComboBox>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTreeView>
#include <filesystem>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Vue.h"
#include "workspace/ui/F_Representation.h"

namespace {

using namespace ovelin;

class MemeDocument : public essai::Principale {
 protected:
  void Ouvre() {
    dessin_ = Exemple("plaque.dxf");
    Charge(dessin_);
    codes_ = ListeCodes();
  }
  // The operation that selects the path of that place, as it was opened.
  [[nodiscard]] std::string Choix(std::size_t rang) const {
    return R"({"op":"Selectionne","codes":[")" + codes_.at(rang).Texte() + R"("]})";
  }
  void Ligne(int groupe) { CliqueLigne("TreeView1", groupe); }
  void Clic(const char* controle) {
    C<QAbstractButton>(controle)->click();
    essai::Evenements();
  }
  void Page(int page) {
    C<QTabBar>("Option1")->setCurrentIndex(page);
    essai::Evenements();
  }
  // A dialog that comes up is filled in and left with OK.
  void Repond(const char* nom, const std::map<std::string, std::string>& champs, const char* choix = nullptr) {
    reponses_[nom] = [nom, champs, choix] {
      const auto fenetre = FaitFenetre(*ChercheFenetre(TableFenetres(), nom), nullptr);
      essai::Montre(*fenetre);
      if (choix != nullptr) essai::Controle<QRadioButton>(*fenetre, choix)->click();
      for (const auto& [champ, texte] : champs) {
        essai::Tape(*essai::Controle<QLineEdit>(*fenetre, champ.c_str()), texte);
      }
      essai::Controle<QPushButton>(*fenetre, "Btn_OK")->click();
      return fenetre->result() == QDialog::Accepted;
    };
  }
  // Saves what the window has, and has the command line make its own of the same drawing.
  void Compare(const std::string& operations) {
    const std::string fenetre = essai::Dossier() + "/fenetre.OVL";
    const std::string ligne = essai::Dossier() + "/ligne.OVL";
    const std::size_t avant = essai::LitFichierEssai(dessin_).size();
    ASSERT_GT(avant, 0U);
    essai::AttendFichier("mnu_Save", fenetre);
    Commande("mnu_Save");
    const std::string liste = essai::EcritFichierEssai("operations.json", "[" + operations + "]");
    QProcess cli;
    cli.start(QString::fromStdString(essai::DossierProgrammes() + "/ovelin-cli"),
              {"--config", QString::fromStdString(essai::Dossier()), "--lang", "fr", "--decimal", ".", "edit",
               QString::fromStdString(dessin_), "--do", QString::fromStdString(liste), "-o",
               QString::fromStdString(ligne)});
    ASSERT_TRUE(cli.waitForFinished(60000));
    ASSERT_EQ(cli.exitCode(), 0) << cli.readAllStandardError().toStdString();
    EXPECT_GT(std::filesystem::file_size(fenetre), 2000U);
    EXPECT_EQ(essai::LitFichierEssai(fenetre), essai::LitFichierEssai(ligne));
  }
  // Tabs on the outline, which comes last; the holes have no room for one.
  void PoseAttaches(const char* champ, const std::string& texte, const std::string& voeu) {
    Ouvre();
    Page(1);
    essai::Tape(*C<QLineEdit>("TB_LargeurEncoche"), "3");
    Ligne(static_cast<int>(Chemins()) - 1);
    Repond("F_Attaches", {{champ, texte}});
    Commande("mnu_Attaches");
    Compare(R"({"op":"TB_LargeurEncoche","valeur":"3"}, )" + Choix(Chemins() - 1) + R"(, {"op":"PoseAttaches",)" +
            voeu + "}");
  }
  [[nodiscard]] std::size_t Chemins() const { return codes_.size(); }

 private:
  std::string dessin_;
  std::vector<Code2> codes_;
};

TEST_F(MemeDocument, MovedTurnedMirroredDuplicatedWithItsProperties) {
  Ouvre();
  Ligne(0);
  QTest::keyClick(C<ImagePB1>("PB1"), Qt::Key_Right, Qt::ShiftModifier);
  Clic("CB_Poche");
  essai::Tape(*C<QLineEdit>("TB_Profondeur"), "-1.5");
  Ligne(1);
  Clic("CB_AutreCote");
  Clic("Option_Decal_2");
  Commande("mnu_Dupliquer");
  Clic("CB_Fraiser");
  Commande("mnu_Tout");
  Clic("CB_Rotation_0");
  Clic("CB_Miroir_0");
  Commande("mnu_Trajets");
  Compare(Choix(0) + R"(, {"op":"DeplaceSelection","direction":1,"distance":1},
    {"op":"CB_Poche","valeur":true}, {"op":"TB_Profondeur","valeur":-1.5}, )" +
          Choix(1) + R"(, {"op":"CB_Inversion"}, {"op":"Option_Decal","decalage":2},
    {"op":"DupliqueSelection","dx":10,"dy":10}, {"op":"CB_Fraiser","valeur":false},
    {"op":"SelectionneTout"}, {"op":"TourneSelection","angle":1.5707963267948966}, {"op":"MiroirSelection","axe":0},
    {"op":"OrdonneTrajets"})");
}

TEST_F(MemeDocument, CopiedAndPastedTwice) {
  Ouvre();
  Ligne(0);
  Commande("mnu_Copier");
  Commande("mnu_Coller");
  Commande("mnu_Coller");
  EXPECT_EQ(ListeCodes().size(), Chemins() + 2);
  Compare(Choix(0) + R"(, {"op":"CopieSelection"}, {"op":"ColleCopie","dx":10,"dy":10},
    {"op":"ColleCopie","dx":20,"dy":20})");
}

TEST_F(MemeDocument, RepeatedInRowsAndColumns) {
  Ouvre();
  Ligne(0);
  Repond("F_Repeter", {{"TB_Colonnes", "3"}, {"TB_Rangees", "2"}, {"TB_PasX", "25.5"}, {"TB_PasY", "30"}});
  Commande("mnu_Repeter");
  EXPECT_EQ(ListeCodes().size(), Chemins() + 5);
  Compare(Choix(0) + R"(, {"op":"RepeteEnRangees","colonnes":3,"rangees":2,"pasX":25.5,"pasY":30})");
}

// 45 degrees are a quarter of the half turn.
TEST_F(MemeDocument, RepeatedAroundAPoint) {
  Ouvre();
  Ligne(0);
  Repond("F_Repeter", {{"TB_Nombre", "4"}, {"TB_Angle", "45"}, {"TB_CentreX", "90"}, {"TB_CentreY", "70"}},
         "Option_Sorte_1");
  Commande("mnu_Repeter");
  EXPECT_EQ(ListeCodes().size(), Chemins() + 3);
  Compare(Choix(0) + R"(, {"op":"RepeteEnRond","nombre":4,"angle":0.7853981633974483,"x":90,"y":70})");
}

TEST_F(MemeDocument, WithTabsByNumber) { PoseAttaches("TB_Nombre", "3", R"("nombre":3)"); }

TEST_F(MemeDocument, WithTabsByDistance) { PoseAttaches("TB_Pas", "80", R"("pas":80)"); }

// A click at a place of the outline, with the tool of tabs.
TEST_F(MemeDocument, WithATabByClick) {
  Ouvre();
  Page(1);
  essai::Tape(*C<QLineEdit>("TB_LargeurEncoche"), "3");
  Commande("mnu_Lever");
  const auto bord = TraceInitial.end() - 10;
  const float x = (bord[0].X + bord[1].X) / 2;
  const float y = (bord[0].Y + bord[1].Y) / 2;
  const QPoint place = PlaceDessin(x, y);
  CliqueDessin(x, y);
  const PointTrace ici = VersDessin(
      Vue, C<ImagePB1>("PB1")->Taille().hauteur,
      {static_cast<float>(place.x()) * TwipsParPixel, static_cast<float>(place.y()) * TwipsParPixel, CodePD, {}});
  Compare(R"({"op":"TB_LargeurEncoche","valeur":"3"}, {"op":"AjouteAttache","x":)" + TexteNombre(ici.X) +
          R"(,"y":)" + TexteNombre(ici.Y) + "}");
}

TEST_F(MemeDocument, DraggedByTheMouse) {
  Ouvre();
  Ligne(0);
  auto* image = C<ImagePB1>("PB1");
  const QPoint depart = PlaceDessin(TraceInitial[0].X, TraceInitial[0].Y);
  const QPoint pas(40, 30);
  QTest::mousePress(image, Qt::LeftButton, {}, depart);
  QTest::mouseMove(image, depart + pas / 2);
  QTest::mouseMove(image, depart + pas);
  QTest::mouseRelease(image, Qt::LeftButton, {}, depart + pas);
  essai::Evenements();
  const auto mm = [](int pixels) {
    return TexteNombre(static_cast<float>(static_cast<double>(pixels) * TwipsParPixel / Zoom));
  };
  Compare(Choix(0) + R"(, {"op":"DeplaceSelection","direction":1,"distance":)" + mm(pas.x()) +
          R"(}, {"op":"DeplaceSelection","direction":3,"distance":)" + mm(-pas.y()) + "}");
}

TEST_F(MemeDocument, ALayerOfIslandsLaterAndAPathLess) {
  Ouvre();
  Ligne(2);
  Commande("mnu_Calque");
  EXPECT_GT(Selectionnes().size(), 1U);
  Clic("CB_Ilot");
  Clic("CB_Ordre_1");
  Ligne(0);
  const std::string premier = Selectionnes().at(0);
  Commande("mnu_Supprimer");
  Compare(Choix(2) + R"(, {"op":"SelectionneCalque"}, {"op":"CB_Ilot","valeur":true}, {"op":"CB_Ordre","index":1},
    {"op":"Selectionne","codes":[")" +
          premier + R"("]}, {"op":"SupprimeSelection"})");
}

TEST_F(MemeDocument, Scaled) {
  Ouvre();
  Page(2);
  Ligne(0);
  if (C<QCheckBox>("CB_Prop")->isChecked()) Clic("CB_Prop");
  essai::Tape(*C<QLineEdit>("TB_Rapport_0"), "1.5");
  essai::Tape(*C<QLineEdit>("TB_Rapport_1"), "0.5");
  Clic("CB_OK_Dimension");
  Compare(Choix(0) + R"(, {"op":"CB_OK_Dimension","rapportX":1.5,"rapportY":0.5})");
}

TEST_F(MemeDocument, CleanedUp) {
  Ouvre();
  const std::int32_t avant = NbPoints;
  Repond("F_Nettoyage", {{"TB_Resolution", "0.8"}});
  Commande("mnu_Nettoyage");
  EXPECT_LT(NbPoints, avant);
  Compare(R"({"op":"mnu_Nettoyage","resolution":0.8})");
}

TEST_F(MemeDocument, InTheShortestOrderOfTravelAndWithTheBestStarts) {
  Ouvre();
  Ligne(0);
  Commande("mnu_Dupliquer");
  Commande("mnu_Trajets");
  Commande("mnu_Optimisation");
  Compare(Choix(0) + R"(, {"op":"DupliqueSelection","dx":10,"dy":10}, {"op":"OrdonneTrajets"},
    {"op":"mnu_Optimisation_Click"})");
}

}  // namespace
