// The pages fit in the side panel in every language, are readable by those who only hear them, and follow the
// theme.
#include <QAbstractButton>

#include "tests/ui/panneau/Banc.h"

namespace {

using namespace ovelin;
using essai::Banc;

template <class Page>
class Apparence : public Banc<Page> {};
using Pages = testing::Types<PagePoints, PageFraisage, PageSequences>;
TYPED_TEST_SUITE(Apparence, Pages);

template <class Page>
void Prepare(Page*) {}
void Prepare(PageFraisage* page) { page->RemplitOutil(); }

TYPED_TEST(Apparence, FitsInASmallPanelInEveryLanguage) {
  this->DeuxCarres();
  for (const std::string& langue : essai::LanguesDuProduit()) {
    essai::ChoisitLangue(langue);
    this->Ouvre(340, 440);
    Prepare(this->page_);
    essai::Evenements();
    EXPECT_LE(this->page_->minimumSizeHint().width(), 340) << langue;
    EXPECT_LE(this->page_->minimumSizeHint().height(), 440) << langue;
    EXPECT_EQ(essai::TextesCoupesEnTexte(*this->fenetre_), "") << langue;
    for (const bool sombre : {false, true}) {
      essai::ThemeSombreEssai(sombre);
      essai::Evenements();
      const std::string nom = std::string(this->page_->metaObject()->className()).substr(8) + "-" + langue;
      essai::Capture(*this->fenetre_, nom + (sombre ? "-sombre" : "-clair"));
    }
  }
  essai::ThemeSombreEssai(false);
  this->Ouvre(300, 440);
  essai::Capture(*this->fenetre_, std::string(this->page_->metaObject()->className()).substr(8) + "-etroit");
}

TYPED_TEST(Apparence, EveryControlHasANameAndATip) {
  this->DeuxCarres();
  this->Ouvre();
  for (QWidget* w : this->page_->template findChildren<QWidget*>()) {
    if (w->focusPolicy() == Qt::NoFocus || w->objectName().startsWith("qt_") || w->objectName().isEmpty()) continue;
    EXPECT_FALSE(w->accessibleName().isEmpty()) << w->objectName().toStdString();
    EXPECT_FALSE(w->toolTip().isEmpty()) << w->objectName().toStdString();
  }
}

// Rows from the top, each from the left.
const std::vector<std::string>& OrdreDe(const PagePoints*) {
  static const std::vector<std::string> noms{"List_Position", "CB_Origine"};
  return noms;
}
const std::vector<std::string>& OrdreDe(const PageFraisage*) {
  static const std::vector<std::string> noms{
      "CB_Fraiser",     "CB_Poche",          "CB_Ilot",        "TB_Profondeur", "Option_Decal_1", "CB_AutreCote",
      "TB_RayonFraise", "TB_LargeurEncoche", "TB_MiniEncoche", "TB_HautDeg",    "TB_PCPoche",     "TB_ProfPasse"};
  return noms;
}
const std::vector<std::string>& OrdreDe(const PageSequences*) {
  static const std::vector<std::string> noms{
      "CB_Tout",         "CB_InverseSelection", "CB_Supprimer",  "CB_Ordre_0",    "CB_Ordre_1",
      "CB_Inversion",    "CB_Lissage",          "TB_X",          "TB_Y",          "HScroll_Sequence",
      "CB_Haut",         "CB_Gauche",           "CB_Droite",     "CB_Bas",        "VScroll_Sequence",
      "TB_Angle",        "CB_Rotation_0",       "CB_Rotation_1", "CB_Miroir_0",   "CB_Miroir_1",
      "TB_Rapport_0",    "TB_Resultat_0",       "TB_Rapport_1",  "TB_Resultat_1", "CB_Prop",
      "CB_OK_Dimension", "TB_DecalageX",        "TB_DecalageY",  "CB_OKRecalage"};
  return noms;
}

TYPED_TEST(Apparence, TabKeyFollowsTheEye) {
  this->DeuxCarres();
  this->Ouvre();
  const std::vector<std::string>& ordre = OrdreDe(this->page_);
  this->C(ordre.front().c_str())->setFocus(Qt::TabFocusReason);
  std::vector<std::string> vus;
  for (std::size_t i = 0; i < ordre.size(); ++i) {
    vus.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(vus, ordre);
  EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), ordre.front());
  EXPECT_EQ(this->rafraichis_, 0);
}

}  // namespace
