// The milling window in the states of its run, in every language: nothing is cut, nothing lies over its neighbour.
// Pictures of them, light and dark, go to OVELIN_CAPTURES.
#include "tests/ui/fenetres/RunEssai.h"

namespace essai {
namespace {

using namespace ovelin;

class FFraisageAspect : public RunEssai {
 protected:
  FFraisageAspect() {
    LaCarte.genre = GenreCarte::Virtuelle;
    Svc.Montre = [](const BoiteMessage& b) { return b.boutons == Boutons::OuiNon ? Reponse::Oui : Reponse::Ok; };
  }
  ~FFraisageAspect() override {
    LaCarte.genre = GenreCarte::Aucune;
    ThemeSombreEssai(false);
  }

  void Regarde(F_Fraisage& f, const std::string& etat) {
    const std::string nom = "F_Fraisage-" + etat + "-" + Regl.Langue + (sombre_ ? "-dark" : "-light");
    EXPECT_EQ(TextesCoupesEnTexte(f), "") << nom;
    if (Regl.Langue == "fr" || Regl.Langue == "en") Capture(f, nom);
  }

  bool sombre_ = false;

  // Ready, running, writing, stopped, ended, waiting for the board, its place lost.
  void TousLesEtats() {
    F_Fraisage f;
    Montre(f, f.minimumSizeHint().width(), f.minimumSizeHint().height());
    Regarde(f, "etroite");
    Montre(f, f.sizeHint().width(), f.sizeHint().height());
    Regarde(f, "prete");
    auto& depart = *Controle<QPushButton>(f, "Btn_Fraiser_Serie");
    Quand(8, [&] {
      Regarde(f, "fraise");
      QTest::mousePress(&depart, Qt::LeftButton);
    });
    Clique(depart);
    QTest::mouseRelease(&depart, Qt::LeftButton);
    Regarde(f, "arretee");
    pendant_ = nullptr;
    Clique(depart);
    Regarde(f, "terminee");
    Quand(8, [&] { carte_->Debranche(true); });
    Clique(depart);
    pendant_ = nullptr;
    Regarde(f, "attente");
    carte_->Debranche(false);
    zenikcom::TamponOctets t{};
    t[1] = 'B';
    carte_->Echange(t);
    Controle<QTimer>(f, "Timer_Carte")->setInterval(0);
    Evenements();
    Regarde(f, "perdue");
    Clique(*Controle<QPushButton>(f, "Btn_Abandon"));
    f.close();
  }
};

TEST_F(FFraisageAspect, NothingIsCutInAnyStateOfTheRunInAnyLanguage) {
  for (const std::string& langue : LanguesDuProduit()) {
    ChoisitLangue(langue);
    TousLesEtats();
    if (HasFailure()) return;
  }
}

TEST_F(FFraisageAspect, NorInADarkTheme) {
  sombre_ = true;
  ThemeSombreEssai(true);
  for (const char* langue : {"fr", "en"}) {
    ChoisitLangue(langue);
    TousLesEtats();
  }
}

}  // namespace
}  // namespace essai
