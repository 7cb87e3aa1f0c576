// The window of automatic attachment points, by mouse and keys.
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/ui/ChampNombre.h"
#include "tests/support/PasseEcrite.h"
#include "tests/ui/support/SupportUi.h"
#include "toolpath/Module_Decalage.h"
#include "workspace/ui/dialogues/F_Attaches.h"

namespace essai {
namespace {

using namespace ovelin;

void Carre(float cote) {
  LargeurEncoche = 5;
  RayonFraise = 1.5;
  AjouteCarre(" A", 0, 0, cote);
  RecalculDecalages();
}

long Marques() {
  return std::count_if(TraceInitial.begin(), TraceInitial.end(),
                       [](const PointTrace& p) { return p.Cde == CodePC; });
}

TEST(F_Attaches, FourOnEachPath) {
  Carre(60);
  F_Attaches f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_EQ(f.result(), QDialog::Accepted);
  EXPECT_EQ(Marques(), 4);
}

TEST(F_Attaches, TypingADistanceChoosesIt) {
  Carre(80);
  F_Attaches f;
  Montre(f);
  Tape(*Controle<ChampNombre>(f, "TB_Pas"), "160");
  EXPECT_TRUE(Controle<QRadioButton>(f, "Option_Voeu_1")->isChecked());
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_EQ(Marques(), 2);  // 320 mm around
}

TEST(F_Attaches, RefusesWhatIsNoNumberOfThem) {
  Carre(60);
  F_Attaches f;
  Montre(f);
  for (const char* texte : {"0", "-1", "abc", ""}) {
    Tape(*Controle<ChampNombre>(f, "TB_Nombre"), texte);
    Clique(*Controle<QPushButton>(f, "Btn_OK"));
    EXPECT_TRUE(f.isVisible()) << texte;
  }
  EXPECT_EQ(Marques(), 0);
}

TEST(F_Attaches, SaysWhereThereIsNoRoomAndStays) {
  Carre(6);
  Attend("F_Attaches", "lib002");
  F_Attaches f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_TRUE(f.isVisible());
}

TEST(F_Attaches, StaysWithoutAWordWhereTheUserTakesThemBack) {
  LargeurEncoche = 5;
  RayonFraise = 0;
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i <= 50000; ++i) xy.emplace_back(static_cast<float>(i) * 0.01F, 0.0F);
  AjouteSequence(" A", xy);
  Sequences.back().Selection = Vrai;
  RecalculDecalages();
  const Document avant = Doc;
  PasseEcrite passe;
  passe.Offre();
  passe.script = {[] { return true; }};
  F_Attaches f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_OK"));
  EXPECT_EQ(passe.repris, 1);
  EXPECT_TRUE(f.isVisible());
  EXPECT_TRUE(Doc == avant);
}

TEST(F_Attaches, ChangesNothingWhenCancelled) {
  Carre(60);
  F_Attaches f;
  Montre(f);
  Clique(*Controle<QPushButton>(f, "Btn_Annuler"));
  EXPECT_EQ(Marques(), 0);
}

}  // namespace
}  // namespace essai
